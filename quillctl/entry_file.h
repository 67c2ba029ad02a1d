// The entries of a book as a file for other programs.

#ifndef QUILLCTL_ENTRY_FILE_H_
#define QUILLCTL_ENTRY_FILE_H_

#include <memory>
#include <string>
#include <vector>

#include "quillctl/address_books.h"

namespace quillctl {

class EntryFile {
 public:
  virtual ~EntryFile() = default;

  // Adds an entry. A password is left out.
  virtual void Add(const Row& row) = 0;

  // Returns the file with all entries that were added.
  virtual std::string Text() = 0;
};

// Returns the names of the formats on the command line.
std::vector<std::string> EntryFileFormats();

// Creates a file without entries. The book must outlive it. `spreadsheet`: a csv that a spreadsheet
// shows as it is. Throws a UsageError if the format cannot hold the entries of the book.
std::unique_ptr<EntryFile> MakeEntryFile(const std::string& format, const AddressBook& book,
                                         bool spreadsheet);

}  // namespace quillctl

#endif  // QUILLCTL_ENTRY_FILE_H_
