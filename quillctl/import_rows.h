// The rows of a file to import, and what keeps each of them from becoming an entry.
//
// What a row gives is found by the functions of the library's converters. These refuse nothing:
// they cut what is too long, take a column that is not there for an empty one, and leave rows out
// without a word. Here such a row has a fault, and so has one whose line in the script no server
// could take. FindFaults finds what does
// not depend on the format.

#ifndef QUILLCTL_IMPORT_ROWS_H_
#define QUILLCTL_IMPORT_ROWS_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "quillctl/address_books.h"
#include "quillctl/text_table.h"

namespace quillctl {

struct ImportRow {
  std::size_t line;        // the number of its first line in the file
  std::string_view bytes;  // as it stands in the file
  Row values = {};         // of the book's fields, in their order
  std::string fault = {};  // why it becomes no entry; empty for one that does
};

struct ImportRows {
  std::string_view header = {};  // the line in front of the rows that is none; empty without one
  std::vector<ImportRow> rows = {};
  std::size_t passedOver = 0;  // what the format itself does not count, such as a list's row

  std::size_t Entries() const;  // the rows without a fault
  std::size_t Rejected() const { return rows.size() - Entries(); }
};

// The values of a line's fields, as the converter of delimited text finds them. REQUIRES: the line
// has no more characters than the converter takes.
std::vector<std::string> DelimitedFields(std::string_view line);

// What is wrong with a line that has a carriage return inside. Other programs may have meant it for
// the end of a line, with another row behind it.
inline constexpr const char* kBareReturn = "it holds a carriage return that ends no line";

// What keeps the converters from taking a line without its end whole: a NUL, a carriage return that
// may have been meant for an end, or its length. Empty for nothing.
std::string LineFault(std::string_view text);

// A row is a line that is not blank. Field i of the book has the column columns[i], or none for -1.
ImportRows DelimitedRows(std::string_view text, std::span<const std::int32_t> columns,
                         bool hasHeader);

// A row is what begins with a "dn:" line, up to the next one, or a line of an entry that has none.
// One with neither name nor address, in which nothing is wrong, is passed over.
ImportRows DirectoryRows(std::string_view text);

// A row is a mailbox's line, or one that may hold one behind a carriage return. Those of other
// classes are passed over; the first one is the header.
ImportRows MailServerRows(std::string_view text);

// Anybody but the administrator sends a name and one more field.
inline constexpr std::size_t kFieldsOfPair = 2;

// Gives a fault to each row that has none yet and whose values do not fit an entry of the book: too
// long, with characters that a script cannot hold, empty where the book needs them, or with the
// name of an earlier row, whose entry the server would replace. `isAdmin` tells which kind of
// script it is for. A field whose element of `columns` is -1 may be empty; where there are no
// columns the format supplies all fields.
void FindFaults(std::vector<ImportRow>& rows, const AddressBook& book, bool isAdmin,
                std::span<const std::int32_t> columns);

// Gives the fault `why` to the rows that were sent and of which the book now holds no entry, or
// another one of that name.
void FindAbsent(std::vector<ImportRow>& rows, std::span<const Row> entries, std::string_view why);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_ROWS_H_
