// Files that are read and written whole, and their lines.

#ifndef QUILLCTL_TEXT_FILE_H_
#define QUILLCTL_TEXT_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

namespace quillctl {

// Throws a UsageError for a file that cannot be read or has more bytes than `most`.
std::string ReadTextFile(const std::string& path, std::size_t most);

// Writes the file whole or, with a Refusal, not at all: for a link that leads nowhere, too. What is
// there and is no plain file, as a device, is written in place.
void WriteTextFile(const std::string& path, const std::string& text);

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
  explicit FileLines(std::string_view text) : rest(text) {}

  // Goes to the next line. False behind the last one.
  bool Next();

  std::size_t Number() const { return number; }     // from 1
  std::string_view Bytes() const { return bytes; }  // its end included
  bool IsBlank() const;                             // nothing but white space
  std::string_view Text() const;                    // without LF or CR LF
  std::string Folded() const;                       // with LF for CR LF, as the converters read it

 private:
  std::string_view rest;
  std::string_view bytes;
  std::size_t number = 0;
};

}  // namespace quillctl

#endif  // QUILLCTL_TEXT_FILE_H_
