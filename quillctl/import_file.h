// The file that an import takes: read once, so that whatever becomes of it on the disk the rows
// that are told are the rows that are sent.

#ifndef QUILLKIT_EXAMPLES_IMPORT_FILE_H_
#define QUILLKIT_EXAMPLES_IMPORT_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace quillctl {

// The bytes of the file. Throws a UsageError for one that cannot be read, and for one that is
// larger than any address book: 64 MiB.
std::string ReadImportFile(const std::string& path);

// The mark that some programs put in front of UTF-8.
inline constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

// The text without one.
std::string_view WithoutByteOrderMark(std::string_view text);

// The name that messages have for it, quoted.
std::string WithoutFolder(const std::string& path);

// Walks through a text line by line.
class FileLines {
 public:
  explicit FileLines(std::string_view text) : rest_(text) {}

  // Goes to the next line. False behind the last one.
  bool Next();

  std::size_t Number() const { return number_; }     // from 1
  std::string_view Bytes() const { return bytes_; }  // its end included
  bool IsBlank() const;                              // nothing but white space
  std::string_view Text() const;                     // without LF or CR LF
  std::string Folded() const;                        // with LF for CR LF, as the converters read it

 private:
  std::string_view rest_;
  std::string_view bytes_;
  std::size_t number_ = 0;
};

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_IMPORT_FILE_H_
