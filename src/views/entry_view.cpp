#include "views/entry_view.h"

#include <algorithm>
#include <new>

#include "base/name_search.h"

namespace quillkit {
namespace {

constexpr std::int32_t kMaxLetters = 128;

}  // namespace

int CEntryView::AttachBook(EntrySource* newBook) {
  if (newBook != nullptr) book = newBook;
  return book != nullptr ? 1 : 0;
}

void CEntryView::BeginAccess() {
  if (book != nullptr) book->BeginAccess();
}

void CEntryView::EndAccess() {
  if (book != nullptr) book->EndAccess();
}

Status CEntryView::LoadBoundaries(std::int32_t force) {
  if (book == nullptr) return kRefused;
  if (force == 0 && boundaries.block() != nullptr) return kNoError;
  if (!boundaries.Allocate(kMaxLetters)) throw std::bad_alloc();
  auto delivered = static_cast<std::uint32_t>(kMaxLetters);
  const Status status = book->ReadBoundaries(boundaries.data(), &delivered);
  if (status != kNoError && status != kMoreData) {
    boundaries.Free();
    return status;
  }
  boundaries.KeepDelivered(static_cast<std::int32_t>(delivered), 1);
  for (PageBoundary& row : boundaries) {
    row.count = std::clamp(row.count, std::int32_t{0}, MaxEmailEntries);
  }
  return status;
}

char CEntryView::FirstLetter() {
  LoadBoundaries(0);
  return boundaries.IsEmpty() ? '\0' : boundaries.At(0)->letter;
}

char CEntryView::NextLetter(char letter) {
  LoadBoundaries(0);
  if (boundaries.IsEmpty()) return '\0';
  const std::int32_t row = RowOfLetter(letter);
  const PageBoundary* next = row >= 0 ? boundaries.At(row + 1) : nullptr;
  return next != nullptr ? next->letter : boundaries.At(boundaries.count() - 1)->letter;
}

std::int32_t CEntryView::LetterStart(char letter) {
  LoadBoundaries(0);
  const std::int32_t row = RowOfLetter(letter);
  std::int32_t start = 0;
  for (std::int32_t i = 0; i < row; ++i) start += boundaries.At(i)->count;
  return row >= 0 ? start : -1;
}

std::int32_t CEntryView::LetterOfIndex(std::int32_t index, char* letter) {
  LoadBoundaries(0);
  std::int32_t start = 0;
  const std::int32_t row = RowReaching(index, &start);
  if (row < 0) return -1;
  *letter = boundaries.At(row)->letter;
  return start;
}

const PageBoundary* CEntryView::GetBoundaries(std::int32_t* count) const {
  *count = boundaries.data() != nullptr ? boundaries.count() : kMaxLetters;
  return boundaries.data();
}

Status CEntryView::BookSize(std::uint32_t* size) const {
  return book != nullptr ? book->EntryCount(size) : kRefused;
}

bool CEntryView::HasDelivered(Status status) {
  return status == kNoError || status == kMoreData || status == kDataNotFound;
}

std::int32_t CEntryView::RowOfLetter(char letter) const {
  const auto* found =
      std::find_if(boundaries.begin(), boundaries.end(),
                   [letter](const PageBoundary& row) { return row.letter == letter; });
  return found != boundaries.end() ? static_cast<std::int32_t>(found - boundaries.begin()) : -1;
}

std::int32_t CEntryView::RowReaching(std::int64_t total, std::int32_t* start) const {
  *start = 0;
  for (std::int32_t row = 0; row < boundaries.count(); ++row) {
    const std::int32_t count = boundaries.At(row)->count;
    if (*start + count >= total) return row;
    *start += count;
  }
  return -1;
}

CEmailEntry* CEntryView::IfMatches(CEmailEntry* entry, std::int32_t exact) const {
  const bool matches = entry != nullptr && NameMatches(entry->name.View(), lastSearch, exact == 1);
  return matches ? entry : nullptr;
}

}  // namespace quillkit
