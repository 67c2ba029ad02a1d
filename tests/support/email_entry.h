// Records for the tests of e-mail and fax books and lists.

#ifndef QUILLKIT_TESTS_SUPPORT_EMAIL_ENTRY_H_
#define QUILLKIT_TESTS_SUPPORT_EMAIL_ENTRY_H_

#include <cstdint>
#include <string_view>

#include "bridge/address_entries.h"

namespace quillkit {

inline CEmailEntry MakeEntry(std::string_view name, std::string_view address = "at",
                             std::int32_t flags = 0) {
  CEmailEntry entry;
  entry.SetName(name);
  entry.SetAddress(address);
  entry.flags = flags;
  return entry;
}

inline CFaxEntry MakeFax(std::string_view name, std::string_view number = "at") {
  CFaxEntry entry;
  entry.SetName(name);
  entry.SetNumber(number);
  return entry;
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_EMAIL_ENTRY_H_
