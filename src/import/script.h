// The lines of an import script.
//
// A script fills one book. The administrator's script can begin with a line that clears the book
// and has one line for each entry. The script of any other user has two plain lines for each entry,
// the name first:
//
//   for the administrator                 for any other user
//
//   CA emailab                            Ann Lee
//   SE emailab "Ann Lee" "box1"           box1
//
// Values are truncated to the width of their field in bytes, without a report. There is no escape:
// a double quote or a newline inside a value is written unchanged.

#ifndef QUILLKIT_IMPORT_SCRIPT_H_
#define QUILLKIT_IMPORT_SCRIPT_H_

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>
#include <memory>
#include <span>
#include <string_view>

#include "platform/open_file.h"

namespace quillkit {

// Writes a script: text in pieces, through a buffer of its own, to a text file. A piece is composed
// in the buffer itself.
//
// Callers end lines with '\n'; the file gets the line ends of the system. After the first write
// that fails, as on a full disk, all later text is dropped and Close() returns false. The buffer is
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

  // Reserve returns space for the next `size` bytes of the script, valid until the next call of any
  // function. Commit adds to the script what was written there, up to `end`.
  // REQUIRES: the file is open, and `size` is at most kBufferSize.
  char* Reserve(std::size_t size) {
    if (size > kBufferSize - used) WriteBuffer();
    return buffer.get() + used;
  }
  void Commit(const char* end) { used = static_cast<std::size_t>(end - buffer.get()); }

  // REQUIRES: as Reserve, for the size of the text.
  void Append(std::string_view text) {
    Commit(std::copy(text.begin(), text.end(), Reserve(text.size())));
  }

  // Returns false after a write failed.
  bool IsGood() const { return !file.HasFailed(); }

  // Writes the rest and closes the file. Returns whether the whole script was written.
  // REQUIRES: the file is open.
  bool Close();

 private:
  void WriteBuffer();

  std::unique_ptr<char[]> buffer;
  std::size_t used = 0;  // bytes in the buffer
  OpenFile file;
};

// The largest number of fields of an entry.
inline constexpr std::size_t kMaxEntryFields = 4;

// A text of up to 16 bytes. All 16 are copied, which is faster than a copy of unknown size.
class ShortText {
 public:
  static constexpr std::size_t kCopied = 16;

  constexpr ShortText(std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts) {
      for (const char c : part) bytes[size++] = c;
    }
  }

  constexpr std::size_t Size() const { return size; }

  // Copies the text and returns its end. REQUIRES: there is space for 16 bytes.
  char* Put(char* at) const {
    std::memcpy(at, bytes.data(), bytes.size());
    return at + size;
  }

 private:
  std::array<char, kCopied> bytes = {};
  std::size_t size = 0;
};

// The format of the entries of a book.
struct ScriptBook {
  std::int32_t target;    // ImportOptions::targetBook
  bool hasPlainPair;      // whether other users than the administrator can fill it
  std::string_view word;  // the book's name in a script
  std::size_t fieldCount;
  std::array<std::size_t, kMaxEntryFields> widths;  // bytes of each field
  ShortText entryBegin;                             // the part of an entry line before its fields
  ShortText entryEnd;                               // the part after its fields
};

// Returns the book of a targetBook, or null if there is none.
const ScriptBook* FindScriptBook(std::int32_t target);

// Returns the public e-mail book, which the formats without a targetBook fill.
const ScriptBook& EmailScriptBook();

// The clear line of those formats. It is sent literally, without the word of a book.
inline constexpr std::string_view kWordlessClearLine = "CA %s\n";

// Writes the line that clears the book.
void WriteClearLine(ScriptWriter& script, const ScriptBook& book);

// Writes the line of an entry for the administrator, or its two lines for any other user.
// REQUIRES: `values` has book.fieldCount texts.
void WriteEntry(ScriptWriter& script, const ScriptBook& book, bool isAdmin,
                std::span<const std::string_view> values);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_SCRIPT_H_
