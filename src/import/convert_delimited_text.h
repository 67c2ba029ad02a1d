// Turns a delimited text file into a script for one of four books.
//
// A line is a row of fields; a field may be wrapped in double quotes to hold the separator. Spaces
// and newlines at a line's end are dropped, and so are lines that are then empty. A value is its
// field without any double quote, those inside it too, and then without white space at both ends.

#ifndef QUILLKIT_IMPORT_CONVERT_DELIMITED_TEXT_H_
#define QUILLKIT_IMPORT_CONVERT_DELIMITED_TEXT_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "base/language.h"
#include "import/script_target.h"
#include "platform/message_pump.h"

namespace quillkit {

// Writes the script from the file at `sourcePath`, replacing what the script's file held;
// entries keep their order. Gives what ConvertDirectoryExport gives, and `clearFirst`, `isAdmin`
// and the last two arguments mean the same; the clear line holds the book's word.
//   `targetBook`  One of the targets of ImportOptions. For any other, and for the users and the
//                 printers where `isAdmin` is 0, the script gets no clear line and the rows as they
//                 stand, without a newline between them.
//   `columnMap`   Entry i is the zero-based column that supplies field i of the book. A row without
//                 that column gives an empty value, and so does a field that the map has no entry
//                 for or one below zero. A column may be used more than once.
//   `skipHeader`  Nonzero: the first line that is not empty is dropped.
//   `separator`   Its first character separates the fields.
//   `userName`    Has no effect.
std::int32_t ConvertDelimitedText(const char* sourcePath, std::int32_t targetBook,
                                  std::span<const std::int32_t> columnMap, ScriptTarget script,
                                  std::int32_t skipHeader, const char* separator,
                                  std::int32_t clearFirst, std::int32_t isAdmin,
                                  const char* userName, WindowHandle pumpWindow,
                                  std::int32_t restoreCursor);

// Stores in out[i] the value of the column that columnMap[i] names, and gives 1. A quote that is
// not closed ends the row in front of its field. The values lie in `line`, a NUL-terminated text
// that the splitting uses up. REQUIRES: `out` is as long as `columnMap`.
int SplitMappedColumns(char* line, std::span<const std::int32_t> columnMap,
                       std::span<std::string_view> out, const char* separator);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_DELIMITED_TEXT_H_
