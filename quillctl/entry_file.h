// The entries of a book as a file for other programs.

#ifndef QUILLCTL_ENTRY_FILE_H_
#define QUILLCTL_ENTRY_FILE_H_

#include <string>
#include <vector>

#include "quillctl/address_books.h"

namespace quillctl {

// Returns a file with the entries of a book. Passwords are left out.
using EntryFileWriter = std::string (*)(const AddressBook& book,
                                        const std::vector<console::Row>& entries);

// Returns the names of the formats on the command line.
std::vector<std::string> EntryFileFormats();

// Returns the writer of a format. `spreadsheet`: a csv that a spreadsheet shows as it is. Throws a
// UsageError if the format cannot hold the entries of the book. REQUIRES: `format` is such a name.
EntryFileWriter EntryFileWriterFor(const std::string& format, const AddressBook& book,
                                   bool spreadsheet);

}  // namespace quillctl

#endif  // QUILLCTL_ENTRY_FILE_H_
