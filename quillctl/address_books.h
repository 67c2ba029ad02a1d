// The address books that an import can fill, as one table, and a look at what they hold.

#ifndef QUILLCTL_ADDRESS_BOOKS_H_
#define QUILLCTL_ADDRESS_BOOKS_H_

#include <cstddef>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "platform/module.h"
#include "quillctl/text_table.h"
#include "simulator/simulator.h"

namespace quillctl {

// The simulated appliance's function that gives one entry.
using EntryAt = decltype(&quillkit::SimulatorEntryAt);

struct AddressBook {
  std::string_view word;   // its name on the command line
  std::string_view title;  // its name in sentences
  std::int32_t target;     // its number in ImportOptions::targetBook, 0 where it has none
  // The fields that a column map supplies, in its order; also the headings of the rows. In small
  // letters they are the fields' words.
  Row fields;
  std::size_t needed;  // how many of them, from the first on, no entry is of use without
  // A row for each entry, in the book's order. `user` is whose the book is, where books are users'
  // own.
  std::vector<Row> (*read)(EntryAt entryAt, const char* user);
  std::size_t secret = kNone;  // the field that is not to be seen

  static constexpr auto kNone = static_cast<std::size_t>(-1);

  // A row as it may be seen: "(set)" for a secret that is not empty.
  Row Shown(Row row) const;
};

// Those that the administrator's imports fill. The e-mail book is the first.
std::span<const AddressBook> PublicBooks();

// The one that anybody else's imports fill on the simulated appliance.
std::span<const AddressBook> PrivateBook();

// The one public book with this word, or none.
std::span<const AddressBook> BookOfWord(std::string_view word);

std::vector<std::string> BookWords();

class StoredBooks {
 public:
  StoredBooks();
  StoredBooks(const StoredBooks&) = delete;
  StoredBooks& operator=(const StoredBooks&) = delete;
  ~StoredBooks();

  // Whether there is a simulated appliance to look into.
  bool CanLook() const { return entryAt != nullptr; }

  // REQUIRES: CanLook().
  std::vector<Row> Read(const AddressBook& book, const std::string& user) const {
    return book.read(entryAt, user.c_str());
  }

 private:
  quillkit::ModuleHandle serverLibrary;
  EntryAt entryAt;
};

}  // namespace quillctl

#endif  // QUILLCTL_ADDRESS_BOOKS_H_
