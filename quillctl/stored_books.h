// A look at what the appliance's address books hold, which no exported function of the library
// gives.
//
// It goes through a control function of the simulated appliance, looked up by name in the server
// library that Quillkit itself has loaded. In any other server library there is no such function,
// and nothing to see.

#ifndef QUILLKIT_EXAMPLES_STORED_BOOKS_H_
#define QUILLKIT_EXAMPLES_STORED_BOOKS_H_

#include <string>
#include <vector>

#include "platform/module.h"
#include "quillctl/address_books.h"

namespace quillctl {

class StoredBooks {
 public:
  StoredBooks();
  StoredBooks(const StoredBooks&) = delete;
  StoredBooks& operator=(const StoredBooks&) = delete;
  ~StoredBooks();

  // Whether there is a simulated appliance to look into.
  bool CanLook() const { return entryAt_ != nullptr; }

  // REQUIRES: CanLook().
  std::vector<Row> Read(const AddressBook& book, const std::string& user) const {
    return book.read(entryAt_, user.c_str());
  }

 private:
  quillkit::ModuleHandle module_;
  EntryAt entryAt_;
};

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_STORED_BOOKS_H_
