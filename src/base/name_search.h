// Search by name, shared by keys, items, users, printers, lists and entries.

#ifndef QUILLKIT_BASE_NAME_SEARCH_H_
#define QUILLKIT_BASE_NAME_SEARCH_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/language.h"

namespace quillkit {

// Whether `name` matches `pattern`: its whole text if `wholeName` is set, otherwise its beginning,
// so that an empty pattern matches every name. Compares bytes, case-sensitive.
inline bool NameMatches(std::string_view name, std::string_view pattern, bool wholeName) {
  return wholeName ? name == pattern : name.starts_with(pattern);
}

// Returns the first index from `start` to `count` - 1 whose name matches, or -1.
// `nameAt(index)` returns a name. REQUIRES: `start` is not negative.
template <class NameAt>
std::int32_t FindName(std::int32_t start, std::int32_t count, std::string_view pattern,
                      bool wholeName, NameAt nameAt) {
  for (std::int32_t i = start; i < count; ++i) {
    if (NameMatches(nameAt(i), pattern, wholeName)) return i;
  }
  return -1;
}

// The position of a search that FindFirst starts and FindNext continues.
//
// A hit moves the position to it. FindNext continues after the position, with the pattern of the
// latest FindFirst that had a hit. A FindFirst without a hit makes the next FindNext start at index
// 0; a FindNext without a hit leaves the position unchanged.
class NameCursor {
 public:
  explicit NameCursor(std::int32_t start = 0) : position(start) {}

  // Returns the index of the hit, or -1. Arguments as those of FindName.
  template <class NameAt>
  std::int32_t FindFirst(std::int32_t count, std::string_view searched, bool wholeName,
                         NameAt nameAt) {
    position = FindName(0, count, searched, wholeName, nameAt);
    if (position >= 0) pattern = searched;
    return position;
  }
  template <class NameAt>
  std::int32_t FindNext(std::int32_t count, bool wholeName, NameAt nameAt) {
    const std::int32_t hit = FindName(position + 1, count, pattern, wholeName, nameAt);
    if (hit >= 0) position = hit;
    return hit;
  }

  std::int32_t Position() const { return position; }
  void MoveTo(std::int32_t index) { position = index; }

  std::string& Pattern() { return pattern; }

 private:
  std::int32_t position;
  std::string pattern;
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_NAME_SEARCH_H_
