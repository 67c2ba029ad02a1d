// The one walk behind every search by name: keys, items, users, lists, entries.

#ifndef QUILLKIT_BASE_NAME_SEARCH_H_
#define QUILLKIT_BASE_NAME_SEARCH_H_

#include <cstdint>
#include <string_view>

namespace quillkit {

// Whether `name` is what `pattern` looks for: the whole name, or as many characters of it as the
// pattern has, so that an empty pattern matches every name. Exact bytes, case-sensitive.
inline bool NameMatches(std::string_view name, std::string_view pattern, bool wholeName) {
  return wholeName ? name == pattern : name.starts_with(pattern);
}

// The first index from `start` on, and below `count`, whose name matches; -1 when there is none.
// `nameAt` gives the name at an index. REQUIRES: `start` is not negative.
template <class NameAt>
std::int32_t FindName(std::int32_t start, std::int32_t count, std::string_view pattern,
                      bool wholeName, NameAt nameAt) {
  for (std::int32_t i = start; i < count; ++i) {
    if (NameMatches(nameAt(i), pattern, wholeName)) return i;
  }
  return -1;
}

}  // namespace quillkit

#endif  // QUILLKIT_BASE_NAME_SEARCH_H_
