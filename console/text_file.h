// Reading and writing whole files, and iterating over their lines.

#ifndef CONSOLE_TEXT_FILE_H_
#define CONSOLE_TEXT_FILE_H_

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/draft.h"

namespace console {

// Returns the bytes of the file, or of standard input for "-". Throws a UsageError with the reason
// if it cannot be read or is larger than `limit` bytes. The message gives the limit in MiB.
std::string ReadTextFile(const std::string& path, std::size_t limit);

// Replaces the file as a whole. On failure, also for a link without a target, throws a Refusal and
// changes nothing. A file that exists and is not a regular file, such as a device, is written in
// place. `readers` applies to a file that did not exist. A request to terminate the program waits
// until a regular file is written.
void WriteTextFile(const std::string& path, const std::string& text,
                   quillkit::Readers readers = quillkit::Readers::kUsual);

// Returns whether the path is that of standard output: empty, "-", or the file that it is.
bool IsStandardOutput(const std::string& path);

// Writes the text to standard output, or to another file with WriteTextFile. Returns whether it is
// another file.
bool WriteOutput(const std::string& path, const std::string& text,
                 quillkit::Readers readers = quillkit::Readers::kUsual);

// Returns the reason why a file cannot be read, from an error number. Systems have different
// numbers for reading a folder.
std::string ReadFault(const std::string& path, int error);

// Returns the file's name without its folder, quoted, for messages; "standard input" for "-".
std::string QuotedFileName(const std::string& path);

// Iterates over the lines of a text.
class FileLines {
 public:
  explicit FileLines(std::string_view text) : rest(text) {}

  // Moves to the next line. Returns false after the last one.
  bool Next();

  std::string_view Text() const;  // without LF or CR LF

 private:
  std::string_view rest;
  std::string_view bytes;
};

}  // namespace console

#endif  // CONSOLE_TEXT_FILE_H_
