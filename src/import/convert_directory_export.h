// Converts a directory export into a script for the public e-mail book.
//
// A line that begins with "dn:" starts an entry. In it, the first line that begins with "cn:" has
// the name, and the first line that begins with "mail:" has the address. When both are found, the
// entry is written, and everything up to the next starting line is skipped. Before that, a "dn:"
// anywhere in a line discards what was found. Attribute names are case-sensitive. No other syntax
// of such files is supported.
//
// A value is the text after the colon, truncated to 31 or 255 bytes, then without leading spaces.
// The last character of every line is removed. If the line has no newline, because it is the last
// line of the file or part of a line of more than 4094 characters, that is a character of the text.

#ifndef QUILLKIT_IMPORT_CONVERT_DIRECTORY_EXPORT_H_
#define QUILLKIT_IMPORT_CONVERT_DIRECTORY_EXPORT_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "import/conversion_job.h"

namespace quillkit {

// Writes the script of the job, replacing the content of its file. Entries keep the order of the
// source. For the administrator with `clearFirst`, the script begins with the literal line "CA %s".
// Returns 0, also for a file without entries; -2 if the source cannot be read; -1 if the script
// cannot be written. A null path cannot be read or written.
std::int32_t ConvertDirectoryExport(ConversionJob job);

// The current entry of an export that is read line by line.
class DirectoryEntry {
 public:
  // Processes the next line of the export, without its last character. Returns true if the line
  // completes an entry. Name() and Address() are then valid until the next call.
  bool ProcessLine(std::string_view line);

  // Return the latest values.
  std::string_view Name() const { return name.Value(); }
  std::string_view Address() const { return address.Value(); }

 private:
  // The first value of an attribute.
  class Attribute {
   public:
    bool IsSeen() const { return isSeen; }
    void MarkUnseen() { isSeen = false; }
    void Set(std::string_view text, std::size_t width);
    std::string_view Value() const { return {value.data(), size}; }

   private:
    std::array<char, 255> value = {};  // large enough for an address
    std::size_t size = 0;
    bool isSeen = false;
  };

  void MarkUnseen();
  bool CloseWhenComplete();

  bool isOpen = false;
  Attribute name;
  Attribute address;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_DIRECTORY_EXPORT_H_
