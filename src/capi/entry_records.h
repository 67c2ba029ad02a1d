// The entries of one book or list, in the form of quill_entry whatever the records of the book are.

#ifndef QUILLKIT_CAPI_ENTRY_RECORDS_H_
#define QUILLKIT_CAPI_ENTRY_RECORDS_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>

#include "appliance/book_access.h"
#include "bridge/record_fields.h"
#include "capi/quillkit_c.h"

namespace quillkit::capi {

// What a handle of quill_open_entries names.
struct OpenEntries {
  std::variant<BookAccess<CEmailEntry>, BookAccess<CFaxEntry>, BookAccess<CUserEntry>,
               BookAccess<PrinterRecord>>
      access;
  bool isList;
};

// Calls `use` with the text of the record and with the field of the entry, for each text that the
// record has, until it returns false. Returns whether it never did.
template <class Record, class Entry, class Use>
bool EachText(Record& record, Entry& entry, Use use) {
  std::size_t i = 0;
  const auto next = [&](auto& text, auto& name) {
    auto& field = entry.texts[i == 0 ? 0 : i - 1];
    return i++ == 0 ? use(text, name, sizeof name) : use(text, field, sizeof field);
  };
  return std::apply([&](auto&... text) { return (next(text, entry.name) && ...); }, Texts(record));
}

// The same for the numbers; `use` returns nothing.
template <class Record, class Entry, class Use>
void EachNumber(Record& record, Entry& entry, Use use) {
  std::size_t i = 0;
  std::apply([&](auto&... number) { (use(number, entry.numbers[i++]), ...); }, Numbers(record));
}

// Copies a record to an entry.
template <class Record>
void StoreEntry(const Record& record, quill_entry& entry) {
  entry = {};
  EachText(record, entry, [](const auto& text, char* field, std::size_t size) {
    const std::string_view stored = text.View();
    std::memcpy(field, stored.data(), std::min(stored.size(), size - 1));
    return true;
  });
  EachNumber(record, entry, [](const auto& number, std::uint32_t& stored) {
    stored = static_cast<std::uint32_t>(number);
  });
}

// Copies an entry to a record. Returns false for a text that is too long for its field or has no
// NUL.
template <class Record>
bool LoadRecord(const quill_entry& entry, Record& record) {
  EachNumber(record, entry, [](auto& number, const std::uint32_t& stored) {
    number = static_cast<std::remove_reference_t<decltype(number)>>(stored);
  });
  return EachText(record, entry, [](auto& text, const char* field, std::size_t size) {
    const void* end = std::memchr(field, '\0', size);
    return end != nullptr && text.Set(field) == 1;
  });
}

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_ENTRY_RECORDS_H_
