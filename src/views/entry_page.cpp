#include "views/entry_page.h"

#include <algorithm>
#include <new>

#include "base/name_search.h"

namespace quillkit {
namespace {

constexpr std::int32_t kWholeName = 1;

// Compares a name, or its beginning, with the key. The result is less than, equal to or greater
// than 0.
int Compare(std::string_view name, std::string_view key, std::int32_t exact) {
  return (exact == kWholeName ? name : name.substr(0, key.size())).compare(key);
}

}  // namespace

void CEntryPage::Attach(std::int32_t capacity, const BookAccess<CEmailEntry>& newBook) {
  book.emplace(newBook);
  if (!Allocate(capacity) && capacity > 0) throw std::bad_alloc();
}

void CEntryPage::AttachToRead(std::int32_t capacity, const BookAccess<CEmailEntry>& newBook) {
  book.emplace(newBook);
  if (!entries.AllocateToRead(capacity) && capacity > 0) throw std::bad_alloc();
}

int CEntryPage::UpdateAt(std::int32_t index, const CEmailEntry& entry) {
  CEmailEntry* slot = At(index);
  return slot != nullptr ? slot->SetFrom(entry) : 0;
}

CEmailEntry* CEntryPage::First() {
  if (IsEmpty()) return nullptr;
  position = 0;
  return At(position);
}

CEmailEntry* CEntryPage::Step(std::int32_t by) {
  if (IsEmpty()) return nullptr;
  position += by;
  return At(position);
}

std::int32_t CEntryPage::FindName(std::string_view name) const {
  std::int32_t index = -1;
  LinearFind(name, 0, &index, kWholeName);
  return index;
}

int CEntryPage::LinearFind(std::string_view key, std::int32_t start, std::int32_t* index,
                           std::int32_t exact) const {
  const std::int32_t found =
      quillkit::FindName(std::max(start, std::int32_t{0}), Count(), key, exact == kWholeName,
                         [&](std::int32_t i) { return At(i)->name.View(); });
  if (found < 0) return 0;
  *index = found;
  return 1;
}

int CEntryPage::Locate(std::string_view key, std::int32_t* index, std::int32_t exact) const {
  if (IsEmpty()) return 0;
  const int first = Compare(At(0)->name.View(), key, exact);
  if (first > 0) return -1;
  if (first == 0) {
    *index = 0;
    return 0;
  }
  const std::int32_t lastIndex = Count() - 1;
  const int last = Compare(At(lastIndex)->name.View(), key, exact);
  if (last < 0) return 1;
  if (last == 0) {
    *index = lastIndex;
    return 0;
  }
  return LinearFind(key, 0, index, exact) != 0 ? 0 : -1;
}

Status CEntryPage::Fill(std::string_view key, std::string_view filter, std::int32_t direction) {
  if (Count() <= 0 || !book) return kRefused;
  KeyRange range(key, filter);
  auto delivered = static_cast<std::uint32_t>(Count());
  const Status status = book->Read(&range, Data(), &delivered, direction);
  if (status == kDataNotFound) delivered = 0;
  KeepReply(entries, status, delivered, direction);
  return status;
}

}  // namespace quillkit
