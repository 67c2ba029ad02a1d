#include "books/fax_entry_list.h"

#include <algorithm>

#include "base/archive.h"

namespace quillkit {

int CFaxEntryList::Init(std::int32_t capacity, CFaxAB* newOwner) {
  if (newOwner == nullptr) return 0;
  owner = newOwner;
  return Allocate(capacity) ? 1 : 0;
}

std::int32_t CFaxEntryList::Append(const CFaxEntry& entry) {
  return items.count() < FaxReadCapacity ? items.Append(entry) : -1;
}

int CFaxEntryList::SetAt(std::int32_t index, const CFaxEntry& entry) {
  CFaxEntry* slot = items.At(index);
  return slot != nullptr ? slot->SetFrom(entry) : 0;
}

CFaxEntry* CFaxEntryList::FirstEntry() {
  walkCursor = 0;
  return items.At(0);
}

std::int32_t CFaxEntryList::Lookup(std::string_view pattern, std::int32_t start,
                                   std::int32_t mode) const {
  return start >= 0 ? FindName(start, Count(), pattern, mode == 1, Names()) : -1;
}

std::int32_t CFaxEntryList::FindEntryIndex(std::string_view name) {
  const std::int32_t hit = Lookup(name, 0, 1);
  search.MoveTo(std::max(hit, 0));
  return hit;
}

std::int32_t CFaxEntryList::FindFirstEntry(const std::string& pattern, std::int32_t mode) {
  return search.FindFirst(Count(), pattern, mode == 1, Names());
}

std::int32_t CFaxEntryList::FindNextEntry(std::int32_t mode) {
  return search.FindNext(Count(), mode == 1, Names());
}

std::int32_t CFaxEntryList::BinaryLookup(std::string_view pattern, std::int32_t low,
                                         std::int32_t mode) const {
  std::int64_t first = low;
  std::int64_t last = std::int64_t{Count()} - 1 + low;
  while (first <= last && !IsEmpty()) {
    const std::int64_t middle = (first + last) / 2;
    if (middle >= Count()) {
      last = middle - 1;
      continue;
    }
    if (middle < 0) {
      first = middle + 1;
      continue;
    }
    const auto index = static_cast<std::int32_t>(middle);
    std::string_view name = items.At(index)->name.View();
    if (mode != 1) name = name.substr(0, pattern.size());
    const int order = pattern.compare(name);
    if (order == 0) return index;
    if (order < 0) {
      last = middle - 1;
    } else {
      first = middle + 1;
    }
  }
  return -1;
}

void CFaxEntryList::Serialize(Archive& archive) {
  archive.Exchange(walkCursor);
  if (!archive.IsStoring() && walkCursor > 0) {
    if (!archive.Prepare(items, static_cast<std::uint32_t>(walkCursor))) walkCursor = 0;
  }
  for (std::int32_t i = 0; i < walkCursor; ++i) {
    CFaxEntry blank;
    CFaxEntry* entry = items.At(i);
    (entry != nullptr ? *entry : blank).Serialize(archive);
  }
}

}  // namespace quillkit
