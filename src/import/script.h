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

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

#include "base/language.h"
#include "import/script_writer.h"

namespace quillkit {

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
