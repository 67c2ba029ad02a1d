// The rows of an import file, and the faults that keep them from being imported.
//
// The values of a row are those that the library's converters read. The converters report no
// errors: they truncate long values, treat a missing column as empty and skip rows silently. Here
// such a row has a fault. So does a row whose script line a server would reject. The functions that
// read rows find the faults of their format; MarkInvalidRows finds the others.

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
  std::size_t line;        // the number of its first line in the file, from 1
  std::string_view bytes;  // the row in the file, with its line ends
  Row values = {};         // one for each field of the book
  std::string fault = {};  // why the row cannot be imported; empty for a valid row
};

struct ImportRows {
  std::string_view header = {};  // the heading line before the rows; empty if there is none
  std::vector<ImportRow> rows = {};
  std::size_t passedOver = 0;  // records of another kind than the format imports, such as lists

  std::size_t Entries() const;  // the rows without a fault
  std::size_t Rejected() const { return rows.size() - Entries(); }
};

// Returns the fields of a line as the converter of delimited text reads them. REQUIRES: the line
// has fewer than LineReader::kMaxLine characters.
std::vector<std::string> DelimitedFields(std::string_view line);

// The fault of a line with a carriage return inside. Another program may use it as a line end, with
// another row after it.
inline constexpr const char* kBareReturn = "a carriage return inside a line";

// The fault of a line with a NUL.
inline constexpr const char* kNul = "a NUL character inside a line";

// Returns the fault of a line that the converters cannot read completely: a NUL, a carriage return
// or too many characters. `text` excludes the line end. Empty if there is no fault.
std::string LineFault(std::string_view text);

// Reads delimited text. A row is a line that is not blank. Field i of the book is column
// columns[i]; -1 means none.
ImportRows DelimitedRows(std::string_view text, std::span<const std::int32_t> columns,
                         bool hasHeader);

// Reads a directory export. A row is an entry: a "dn:" line and the lines up to the next one. A
// line of an entry without a "dn:" line is a row with a fault. Entries with neither name nor
// address are passed over, unless they have a fault.
ImportRows DirectoryRows(std::string_view text);

// Reads a mail server's export. A row is the line of a mailbox, or a line with a carriage return,
// which may hide one. Lines of other classes are passed over. If the first line is of another
// class, it is the header.
ImportRows MailServerRows(std::string_view text);

// The number of fields that an account other than ADMINISTRATOR can import: a name and another one.
inline constexpr std::size_t kPrivateFields = 2;

// Sets the fault of each row that has none yet and whose values are invalid for the book:
//
// - A value is too long, or contains a character that a script cannot contain.
// - A required value is empty. A field without a column may be empty.
// - The name is that of an earlier row. The server would replace that row's entry.
//
// `isAdmin` selects the kind of script. If `columns` is empty, the format supplies all fields.
void MarkInvalidRows(std::vector<ImportRow>& rows, const AddressBook& book, bool isAdmin,
                     std::span<const std::int32_t> columns);

// For each row that was sent and whose entry is not in `entries`: sets the fault to `why`.
void MarkMissingRows(std::vector<ImportRow>& rows, std::span<const Row> entries,
                     std::string_view why);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_ROWS_H_
