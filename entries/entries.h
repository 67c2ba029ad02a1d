// The entries that a contact file holds for an address book.

#ifndef ENTRIES_ENTRIES_H_
#define ENTRIES_ENTRIES_H_

#include <cstdint>
#include <istream>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "contacts/form.h"
#include "contacts/record.h"
#include "entries/mapping.h"

namespace entries {

// A record as an entry of the book.
struct Entry {
  std::uint64_t line = 0;  // the number of its first line, from 1
  std::uint64_t begin = 0;
  std::uint64_t end = 0;
  std::vector<std::string> values;  // one for each field, as they are stored
  contacts::Finding fault;          // why it cannot be imported
  std::vector<contacts::Finding> notes;
  bool isPassedOver = false;  // not an entry for this book; a note tells why
};

struct EntryOptions {
  contacts::Encoding storeAs = contacts::Encoding::kUtf8;  // or kWindows1252
  bool shorten = false;                                    // cut names that are too long
};

class EntryReader {
 public:
  // Reads the source from its current position, which is the beginning of the file. Throws a
  // FormError as Mapping::SetColumns does. The source must outlive this object.
  EntryReader(std::istream& source, const contacts::Form& newForm, Mapping newMapping,
              const EntryOptions& newOptions);

  // Reads the next record. Returns false after the last one.
  bool Next(Entry& entry);

  const Mapping& GetMapping() const { return mapping; }

 private:
  void SetEntry(Entry& entry);
  void Check(Entry& entry);
  void StoreValue(Entry& entry, std::size_t field);
  bool RepeatsHeadings() const;
  void RejectExtraColumns(Entry& entry) const;
  // The heading of a column; `name` if it has none.
  std::string HeadingOf(unsigned column, std::string_view name) const;
  contacts::Finding FindingOf(const contacts::Problem& problem, const EntryValue& value,
                              std::size_t width = 0) const;

  const contacts::Form form;
  Mapping mapping;
  const EntryOptions options;
  std::unique_ptr<contacts::Reader> reader;
  bool hasFirst = false;  // whether `record` holds the first row of a csv file without headings
  contacts::Record record;
  std::vector<EntryValue> values;
  EntryValue further;
};

}  // namespace entries

#endif  // ENTRIES_ENTRIES_H_
