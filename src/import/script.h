// The lines of an import script.
//
// A script fills one book. The administrator's script may open with a line that clears the book and
// has one line an entry; anybody else's has two plain lines an entry, name first:
//
//   CA emailab                            Ann Lee
//   SE emailab "Ann Lee" "box1"           box1
//
// Values are cut at their field's width in bytes, silently. There is no escape: a double quote or a
// newline inside a value goes out as it is.

#ifndef QUILLKIT_IMPORT_SCRIPT_H_
#define QUILLKIT_IMPORT_SCRIPT_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <span>
#include <string_view>

#include "platform/open_file.h"

namespace quillkit {

// Writes a script: text in pieces, through a buffer of its own, to a text file. A piece is
// composed in the buffer itself.
//
// Lines end in '\n' here, and on disk as text files of the system do. After the first write that
// fails, as on a full disk, all later text is dropped and Close() returns false. The buffer is
// wiped at the end: a script of accounts contains their passwords.
class ScriptWriter {
 public:
  static constexpr std::size_t kBufferSize = std::size_t{64} * 1024;

  ScriptWriter();
  ScriptWriter(const ScriptWriter&) = delete;
  ScriptWriter& operator=(const ScriptWriter&) = delete;
  ~ScriptWriter();

  // Writes to `file` from now on. Returns false if it is not open. Called once.
  bool Open(OpenFile newFile);

  // Reserve returns space for the next `size` bytes of the script, valid until the next call of
  // any function. Commit adds to the script what was written there, up to `end`.
  // REQUIRES: the file is open, and `size` is at most kBufferSize.
  char* Reserve(std::size_t size) {
    if (size > kBufferSize - used) WriteBuffer();
    return buffer.get() + used;
  }
  void Commit(const char* end) { used = static_cast<std::size_t>(end - buffer.get()); }

  // REQUIRES: as Reserve, for the text's size.
  void Append(std::string_view text) {
    Commit(std::copy(text.begin(), text.end(), Reserve(text.size())));
  }

  // Whether everything that left the buffer so far was written.
  bool IsGood() const { return !file.HasFailed(); }

  // Writes what is left and closes the file. Whether the whole script was written.
  // REQUIRES: the file is open.
  bool Close();

 private:
  void WriteBuffer();

  std::unique_ptr<char[]> buffer;
  std::size_t used = 0;  // bytes in the buffer
  OpenFile file;
};

// The most fields an entry of any book has.
inline constexpr std::size_t kMaxEntryFields = 4;

// How the entries of a book are written.
struct ScriptBook {
  std::int32_t target;    // ImportOptions::targetBook
  bool hasPlainPair;      // whether anybody but the administrator fills it
  std::string_view word;  // the book's name in a script
  std::size_t fieldCount;
  std::array<std::size_t, kMaxEntryFields> widths;  // bytes of each field
  std::string_view tail;                            // follows the last field of an entry line
};

// The book for a targetBook, or null when it names none.
const ScriptBook* FindScriptBook(std::int32_t target);

// The public e-mail book, which the formats without a targetBook fill.
const ScriptBook& EmailScriptBook();

// The clear line of those formats. The server gets it as it stands, without a book's word.
inline constexpr std::string_view kWordlessClearLine = "CA %s\n";

// The line that clears the book.
void WriteClearLine(ScriptWriter& script, const ScriptBook& book);

// The entry's line for the administrator, its two lines for anybody else.
// REQUIRES: `values` has book.fieldCount texts.
void WriteEntry(ScriptWriter& script, const ScriptBook& book, bool isAdmin,
                std::span<const std::string_view> values);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_SCRIPT_H_
