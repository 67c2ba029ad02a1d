// The fields of an entry record, in one order for every kind of book.

#ifndef QUILLKIT_BRIDGE_RECORD_FIELDS_H_
#define QUILLKIT_BRIDGE_RECORD_FIELDS_H_

#include <tuple>

namespace quillkit {

// Returns references to the texts of a record: its name, then those of the book's columns.
template <class Record>
auto Texts(Record& r) {
  if constexpr (requires { r.printerName; }) {
    return std::tie(r.printerName, r.description, r.printerModel);
  } else if constexpr (requires { r.number; }) {
    return std::tie(r.name, r.number, r.third);
  } else if constexpr (requires { r.password; }) {
    return std::tie(r.name, r.password, r.third, r.fourth);
  } else {
    return std::tie(r.name, r.address);
  }
}

// Returns references to the numbers of a record. Those that only this library sets are not among
// them.
template <class Record>
auto Numbers(Record& r) {
  if constexpr (requires { r.isDefault; }) {
    return std::tie(r.isDefault);
  } else if constexpr (requires { r.nibbles; }) {
    return std::tie(r.tag, r.flags, r.nibbles);
  } else if constexpr (requires { r.flags; }) {
    return std::tie(r.flags);
  } else {
    return std::tuple<>();
  }
}

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_RECORD_FIELDS_H_
