// The address books of an appliance, and their entries as rows.

#ifndef QUILLCTL_ADDRESS_BOOKS_H_
#define QUILLCTL_ADDRESS_BOOKS_H_

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <tuple>
#include <vector>

#include "appliance/scanner.h"
#include "bridge/record_fields.h"
#include "console/text_table.h"

namespace quillctl {

// Returns the values of an entry, or of a member of a distribution list.
template <class Record>
console::Row Cells(const Record& record) {
  return std::apply([](const auto&... text) { return console::Row{std::string(text.View())...}; },
                    quillkit::Texts(record));
}

// Receives one entry. Returns false to receive no more.
using RowHandler = std::function<bool(console::Row)>;

struct AddressBook {
  std::string_view word;   // its name on the command line
  std::string_view title;  // its name in sentences
  std::int32_t target;     // its number in ImportOptions::targetBook, 0 if it has none
  // The fields in the order of a column map; also the headings of a table. In lower case they are
  // the field names on the command line.
  console::Row fields;
  std::vector<std::size_t> widths;  // the largest value of each field, in bytes
  std::size_t requiredFields;       // an entry needs the first `requiredFields` fields
  // Reads the entries after the name `from`, in the book's order and in pages, and passes each to
  // the handler. `filter` is "*", or a character and "*". Returns 0; the status of a read that
  // failed; or -2 if the appliance delivers a blank record, or more entries than a book can have.
  std::int32_t (*read)(const quillkit::CScanner& scanner, const std::string& from,
                       const std::string& filter, const RowHandler& handle);
  // Stores the number of entries in `*count` on success. Returns a status.
  std::int32_t (*count)(const quillkit::CScanner& scanner, std::uint32_t* count);
  // Adds an entry. Returns a status. Throws a UsageError for a value that is too long.
  std::int32_t (*add)(const AddressBook& book, const quillkit::CScanner& scanner,
                      const console::Row& row);
  // Reads the entry `name` and passes it to `edit`. If that returns true, replaces the entry by the
  // edited row. Returns a status, and throws a UsageError as `add` does.
  std::int32_t (*change)(const AddressBook& book, const quillkit::CScanner& scanner,
                         const std::string& name, const std::function<bool(console::Row&)>& edit);
  // Deletes the entry `name`, or all entries. Return a status.
  std::int32_t (*remove)(const quillkit::CScanner& scanner, const std::string& name);
  std::int32_t (*clear)(quillkit::CScanner& scanner);
  std::size_t secretField = kNone;  // the field that is never shown

  static constexpr auto kNone = static_cast<std::size_t>(-1);

  // Returns the row with a secret that is not empty replaced by "(set)".
  console::Row WithoutSecret(console::Row row) const;
};

// All books: those of PublicBooks(), then that of PrivateBook().
std::span<const AddressBook> AllBooks();

// The books that imports of the administrator fill. The e-mail book is the first.
std::span<const AddressBook> PublicBooks();

// The book that imports of any other account fill: its own.
std::span<const AddressBook> PrivateBook();

// Returns the book with this word. REQUIRES: there is one.
const AddressBook& BookOf(std::string_view word);

// Returns the words of all books.
std::vector<std::string> AllBookWords();

// Reads the book, shows the progress of the activity, such as "Reading", and passes each entry to
// the handler. A missing book has no entries. Returns 0; a status; or -2 if the number of entries
// is not the one that the appliance reports.
std::int32_t ReadCompletely(const AddressBook& book, const quillkit::CScanner& scanner,
                            const std::string& activity,
                            const std::function<void(console::Row)>& handle);

// Returns all entries of the book, or nothing if ReadCompletely() fails.
std::optional<std::vector<console::Row>> ReadAllEntries(const AddressBook& book,
                                                        const quillkit::CScanner& scanner);

}  // namespace quillctl

#endif  // QUILLCTL_ADDRESS_BOOKS_H_
