// Converts a delimited text file into a script for one of four books.
//
// A line is a row of fields. A field may be in double quotes, to contain the separator. Spaces and
// newlines at the end of a line are removed; empty lines are skipped. The value of a field is its
// text without any double quotes, and without white space at both ends.

#ifndef QUILLKIT_IMPORT_CONVERT_DELIMITED_TEXT_H_
#define QUILLKIT_IMPORT_CONVERT_DELIMITED_TEXT_H_

#include <cstdint>
#include <span>
#include <string_view>

#include "import/conversion_job.h"
#include "import/import_options.h"

namespace quillkit {

// How a delimited file is laid out, and the book that its rows go to.
struct DelimitedLayout {
  // One of the targets of ImportOptions. For any other, and for users and printers without
  // `isAdmin`, the rows are not formatted: the script holds them unchanged, without newlines
  // between them and without a line that clears the book.
  std::int32_t targetBook = TargetEmail;
  // Entry i is the zero-based column for field i of the book; a negative entry means no column. A
  // column may be used more than once. A field without an entry or a column is empty.
  std::span<const std::int32_t> columnMap;
  // Drops the first line that is not empty.
  bool skipHeader = false;
  // Its first character separates the fields.
  const char* separator = ",";
};

// Writes the script of the job, with its entries in the order of the source. The line that clears
// the book holds the book's word. Returns what ConvertDirectoryExport returns.
std::int32_t ConvertDelimitedText(ConversionJob job, const DelimitedLayout& layout);

// Stores the value of column columnMap[i] in out[i]. Always returns 1. An unclosed quote ends the
// row before its field. The values point into `line`, a NUL-terminated text that is changed.
// REQUIRES: `out` is as long as `columnMap`.
int SplitMappedColumns(char* line, std::span<const std::int32_t> columnMap,
                       std::span<std::string_view> out, const char* separator);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_DELIMITED_TEXT_H_
