#include "views/letter_entry_view.h"

#include <algorithm>
#include <string>

namespace quillkit {

CEmailEntry* CLetterEntryView::First() {
  if (LoadBoundaries(0) != kNoError || !LoadRow(0)) return nullptr;
  letterIndex = 0;
  return page.IsEmpty() ? nullptr : MoveTo(0);
}

CEmailEntry* CLetterEntryView::FindLetter(char letter) {
  if (LoadBoundaries(0) != kNoError) return nullptr;
  const std::int32_t row = RowOfLetter(letter);
  if (row < 0) return nullptr;
  letterIndex = row;
  if (boundaries.At(row)->count == 0) return nullptr;
  return LoadRow(row) && !page.IsEmpty() ? MoveTo(0) : nullptr;
}

CEmailEntry* CLetterEntryView::Last() {
  if (!HasEntries() || LoadBoundaries(0) != kNoError) return nullptr;
  if (!LoadRow(boundaries.count() - 1) || page.IsEmpty()) return nullptr;
  return MoveTo(page.Count() - 1);
}

CEmailEntry* CLetterEntryView::Next() {
  if (!HasEntries() || LoadBoundaries(0) != kNoError) return nullptr;
  if (++cursor < page.Count()) return page.At(cursor);
  if (++letterIndex >= boundaries.count()) {
    letterIndex = boundaries.count();
    cursor = 0;
    return nullptr;
  }
  return LoadRow(letterIndex) ? MoveTo(0) : nullptr;
}

CEmailEntry* CLetterEntryView::Prev() {
  if (!HasEntries()) return nullptr;
  if (--cursor >= 0) return page.At(cursor);
  cursor = 0;
  if (--letterIndex < 0) {
    letterIndex = 0;
    return nullptr;
  }
  return LoadRow(letterIndex) ? MoveTo(std::max(page.Count() - 1, std::int32_t{0})) : nullptr;
}

CEmailEntry* CLetterEntryView::GetAt(std::int32_t index) {
  std::uint32_t size = 0;
  if (!HasEntries() || BookSize(&size) != kNoError) return nullptr;
  if (index < 0 || static_cast<std::uint32_t>(index) >= size) return nullptr;
  if (LoadBoundaries(0) != kNoError) return nullptr;
  BeginAccess();
  std::int32_t start = 0;
  const std::int32_t row = RowOfEntry(index, &start);
  if (row < 0) return nullptr;  // without EndAccess
  cursor = index - start;
  const Status status = FillAndEndAccess(boundaries.At(row)->letter, boundaries.At(row)->count);
  if (!HasDelivered(status)) return nullptr;
  if (page.IsEmpty()) return MoveTo(0);
  letterIndex = row;
  return page.At(cursor);
}

// Steps through the entries of this name and removes nothing: only an entry that matches the one
// found is removed, and two entries with the same name never match (CEmailEntry::Matches).
Status CLetterEntryView::Remove(CEmailEntry* entry, std::int32_t /*flag*/) {
  if (!HasEntries()) return kNoError;
  const CEmailEntry* found = Find(entry->name.View(), 1);
  while (found != nullptr) found = FindNext(1);
  return kRefused;
}

CEmailEntry* CLetterEntryView::Find(std::string_view key, std::int32_t flag) {
  if (book == nullptr) return nullptr;
  if (flag == 1) Reset();
  return Seek(key, 1);
}

CEmailEntry* CLetterEntryView::FindPrefix(std::string_view key) {
  return Seek(key, 0);
}

Status CLetterEntryView::Modify(CEmailEntry* entry, std::int32_t flag) {
  if (!HasEntries()) return kNoError;
  const Status status = flag == 1 ? book->ModifyEntry(entry) : kNoError;
  if (status != kNoError) return status;
  CEmailEntry* found = FindInPage(entry->name.View());
  if (found != nullptr) found->SetFrom(*found);
  return kNoError;
}

Status CLetterEntryView::ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) {
  if (!HasEntries()) return kNoError;
  const Status status = flag == 1 ? book->RenameEntry(key, entry) : kNoError;
  if (status != kNoError) return status;
  CEmailEntry* found = FindInPage(entry->name.View());
  if (found != nullptr) found->SetName(key);
  return kNoError;
}

// Reads up to `capacity` entries of a letter. Calls EndAccess, also if it throws.
Status CLetterEntryView::FillAndEndAccess(char letter, std::int32_t capacity) {
  struct AccessEnd {
    ~AccessEnd() { view.EndAccess(); }
    CEntryView& view;
  };
  const AccessEnd end{*this};
  AttachPage(page, capacity);
  return page.Fill({}, LetterFilter(letter), 1);
}

// Reads the letter of a row. Returns false for a row out of range and for a failed read.
bool CLetterEntryView::LoadRow(std::int32_t row) {
  const PageBoundary* boundary = boundaries.At(row);
  if (boundary == nullptr) return false;
  BeginAccess();
  const Status status = FillAndEndAccess(boundary->letter, boundary->count);
  return HasDelivered(status);
}

// Moves the cursor, and returns the entry there or null.
CEmailEntry* CLetterEntryView::MoveTo(std::int32_t index) {
  cursor = index;
  return page.At(index);
}

CEmailEntry* CLetterEntryView::Seek(std::string_view key, std::int32_t exact) {
  if (LoadBoundaries(0) != kNoError) return nullptr;
  lastSearch = key;  // a copy: the key may be in the page that is replaced
  const char letter = lastSearch.empty() ? '\0' : lastSearch.front();
  const PageBoundary* loaded = boundaries.At(letterIndex);
  if (loaded != nullptr && loaded->letter == letter) {
    CEmailEntry* found = Locate(lastSearch, exact);
    if (found != nullptr) return found;
  }
  const auto* boundary =
      std::find_if(boundaries.begin(), boundaries.end(), [letter](const PageBoundary& each) {
        return static_cast<signed char>(each.letter) >= static_cast<signed char>(letter);
      });
  if (boundary == boundaries.end()) return nullptr;
  BeginAccess();
  const Status status = FillAndEndAccess(letter, boundary->count);
  CEmailEntry* found = HasDelivered(status) ? Locate(lastSearch, exact) : nullptr;
  if (found != nullptr) letterIndex = static_cast<std::int32_t>(boundary - boundaries.begin());
  return found;
}

// Moves the cursor to the matching entry and returns it, or returns null.
CEmailEntry* CLetterEntryView::Locate(std::string_view key, std::int32_t exact) {
  if (page.IsEmpty() || page.Locate(key, &cursor, exact) != 0) return nullptr;
  return page.At(cursor);
}

// Returns the entry of this name, or null, without moving the cursor.
CEmailEntry* CLetterEntryView::FindInPage(std::string_view name) {
  std::int32_t index = 0;
  return page.Locate(name, &index, 1) == 0 ? page.At(index) : nullptr;
}

}  // namespace quillkit
