// Turns a directory export into a script for the public e-mail book.
//
// A line that begins with "dn:" opens an entry. Of the lines in it the first that begins with "cn:"
// gives the name and the first with "mail:" the address; once both are there the entry is written
// and everything up to the next opening line is skipped. Before that, "dn:" anywhere in a line
// drops what the entry had. Names of attributes are case-sensitive; no other syntax of such files
// is understood.
//
// A value is what follows the colon, cut at 31 or 255 bytes, and then without its leading blanks.
// Every line loses its last character: its newline, or where it has none, because it is the last
// one of the file or a piece of a line of more than 4094 characters, a character of its text.

#ifndef QUILLKIT_IMPORT_CONVERT_DIRECTORY_EXPORT_H_
#define QUILLKIT_IMPORT_CONVERT_DIRECTORY_EXPORT_H_

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "import/conversion_job.h"

namespace quillkit {

// Writes the script from the file at `sourcePath`, replacing what the script's file held;
// entries keep their order. `isAdmin` nonzero writes the administrator's lines, and before them, if
// `clearFirst` is nonzero too, the line "CA %s" as it stands. The last two arguments go to
// PumpPendingMessages once a line.
// Gives 0; -2 when the source cannot be read; -1 when the script cannot be written. A file that
// holds no entry is none of these. A null path cannot be read or written.
std::int32_t ConvertDirectoryExport(ConversionJob job);

// The entry of an export that is being read, line by line.
class DirectoryEntry {
 public:
  // Takes the next line of the export, without the character that every line loses. True when it
  // completes an entry, of which Name() and Address() are good until the next call.
  bool Take(std::string_view line);

  // What the entry has so far; nothing once it was complete.
  bool HasName() const { return name.IsSeen(); }
  bool HasAddress() const { return address.IsSeen(); }

  // The values taken last.
  std::string_view Name() const { return name.Value(); }
  std::string_view Address() const { return address.Value(); }

 private:
  // The first value of an attribute.
  class Attribute {
   public:
    bool IsSeen() const { return isSeen; }
    void Forget() { isSeen = false; }
    void Take(std::string_view text, std::size_t width);
    std::string_view Value() const { return {value.data(), size}; }

   private:
    std::array<char, 255> value = {};  // as wide as the widest
    std::size_t size = 0;
    bool isSeen = false;
  };

  void Forget();
  bool CloseWhenComplete();

  bool isOpen = false;
  Attribute name;
  Attribute address;
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_DIRECTORY_EXPORT_H_
