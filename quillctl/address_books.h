// The address books that an import can fill, and access to the entries that the simulator stores.

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

// The simulator's function that returns one entry.
using EntryAt = decltype(&quillkit::SimulatorEntryAt);

struct AddressBook {
  std::string_view word;   // its name on the command line
  std::string_view title;  // its name in sentences
  std::int32_t target;     // its number in ImportOptions::targetBook, 0 if it has none
  // The fields in the order of a column map; also the headings of a table. In lower case they are
  // the field names on the command line.
  Row fields;
  std::size_t requiredFields;  // an entry needs the first `requiredFields` fields
  // Returns a row for each entry, in the book's order. `user` is the owner of a private book.
  std::vector<Row> (*read)(EntryAt entryAt, const char* user);
  std::size_t secretField = kNone;  // the field that is never shown

  static constexpr auto kNone = static_cast<std::size_t>(-1);

  // Returns the row with a secret that is not empty replaced by "(set)".
  Row WithoutSecret(Row row) const;
};

// The books that imports of the administrator fill. The e-mail book is the first.
std::span<const AddressBook> PublicBooks();

// The book that imports of any other account fill on the simulator.
std::span<const AddressBook> PrivateBook();

// Returns the public book with this word, or an empty span.
std::span<const AddressBook> FindBook(std::string_view word);

std::vector<std::string> BookWords();

// Reads the books of the simulator. The interface of an appliance has no function for that.
class SimulatorBooks {
 public:
  SimulatorBooks();
  SimulatorBooks(const SimulatorBooks&) = delete;
  SimulatorBooks& operator=(const SimulatorBooks&) = delete;
  ~SimulatorBooks();

  // Returns whether the server library is the simulator.
  bool IsAvailable() const { return entryAt != nullptr; }

  // REQUIRES: IsAvailable().
  std::vector<Row> Read(const AddressBook& book, const std::string& user) const {
    return book.read(entryAt, user.c_str());
  }

 private:
  quillkit::ModuleHandle serverLibrary;
  EntryAt entryAt;
};

}  // namespace quillctl

#endif  // QUILLCTL_ADDRESS_BOOKS_H_
