// What keeps the values of a row from being an entry, whatever the file's format.

#ifndef QUILLKIT_EXAMPLES_IMPORT_FAULTS_H_
#define QUILLKIT_EXAMPLES_IMPORT_FAULTS_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>
#include <vector>

#include "quillctl/address_books.h"
#include "quillctl/import_rows.h"

namespace quillctl {

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

#endif  // QUILLKIT_EXAMPLES_IMPORT_FAULTS_H_
