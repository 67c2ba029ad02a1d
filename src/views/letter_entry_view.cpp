#include "views/letter_entry_view.h"

#include <algorithm>
#include <string>

#include "books/email_ab.h"

namespace quillkit {

CEmailEntry* CLetterEntryView::First() {
  if (LoadBoundaries(0) != kNoError || !LoadRow(0)) return nullptr;
  letterIndex = 0;
  return page.IsEmpty() ? nullptr : StandAt(0);
}

CEmailEntry* CLetterEntryView::FindLetter(char letter) {
  if (LoadBoundaries(0) != kNoError) return nullptr;
  const std::int32_t row = RowOfLetter(letter);
  if (row < 0) return nullptr;
  letterIndex = row;
  if (boundaries.At(row)->count == 0) return nullptr;
  return LoadRow(row) && !page.IsEmpty() ? StandAt(0) : nullptr;
}

CEmailEntry* CLetterEntryView::Last() {
  if (!HasEntries() || LoadBoundaries(0) != kNoError) return nullptr;
  if (!LoadRow(boundaries.count() - 1) || page.IsEmpty()) return nullptr;
  return StandAt(page.Count() - 1);
}

CEmailEntry* CLetterEntryView::Next() {
  if (!HasEntries() || LoadBoundaries(0) != kNoError) return nullptr;
  if (++cursor < page.Count()) return page.At(cursor);
  if (++letterIndex >= boundaries.count()) {
    letterIndex = boundaries.count();
    cursor = 0;
    return nullptr;
  }
  return LoadRow(letterIndex) ? StandAt(0) : nullptr;
}

CEmailEntry* CLetterEntryView::Prev() {
  if (!HasEntries()) return nullptr;
  if (--cursor >= 0) return page.At(cursor);
  cursor = 0;
  if (--letterIndex < 0) {
    letterIndex = 0;
    return nullptr;
  }
  return LoadRow(letterIndex) ? StandAt(std::max(page.Count() - 1, std::int32_t{0})) : nullptr;
}

CEmailEntry* CLetterEntryView::GetAt(std::int32_t index) {
  std::uint32_t size = 0;
  if (!HasEntries() || BookSize(&size) != kNoError) return nullptr;
  if (index < 0 || static_cast<std::uint32_t>(index) >= size) return nullptr;
  if (LoadBoundaries(0) != kNoError) return nullptr;
  BeginAccess();
  std::int32_t start = 0;
  const std::int32_t row = RowOfEntry(index, &start);
  if (row < 0) return nullptr;  // the book's lock, if it has one, is not released
  cursor = index - start;
  const Status status = Fill(boundaries.At(row)->letter, boundaries.At(row)->count);
  EndAccess();
  if (!IsGoodRead(status)) return nullptr;
  if (page.IsEmpty()) return StandAt(0);
  letterIndex = row;
  return page.At(cursor);
}

// An entry goes when it matches the one that was found by its name, and two of one name never match
// (CEmailEntry::Matches): the walk through that name ends, and nothing has gone.
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
  CEmailEntry* found = InPage(entry->name.View());
  if (found != nullptr) found->SetFrom(*found);
  return kNoError;
}

Status CLetterEntryView::ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) {
  if (!HasEntries()) return kNoError;
  const Status status = flag == 1 ? book->RenameEntry(key, entry) : kNoError;
  if (status != kNoError) return status;
  CEmailEntry* found = InPage(entry->name.View());
  if (found != nullptr) found->SetName(key);
  return kNoError;
}

// Reads the entries of a letter, with room for so many.
Status CLetterEntryView::Fill(char letter, std::int32_t capacity) {
  page.Attach(capacity, book);
  return page.Fill({}, LetterFilter(letter), 1);
}

// Reads the letter of a row. False for a row that the census lacks and for a failed read.
bool CLetterEntryView::LoadRow(std::int32_t row) {
  const PageBoundary* boundary = boundaries.At(row);
  if (boundary == nullptr) return false;
  BeginAccess();
  const Status status = Fill(boundary->letter, boundary->count);
  EndAccess();
  return IsGoodRead(status);
}

// Null, with the cursor there all the same, where there is no entry.
CEmailEntry* CLetterEntryView::StandAt(std::int32_t index) {
  cursor = index;
  return page.At(index);
}

CEmailEntry* CLetterEntryView::Seek(std::string_view key, std::int32_t exact) {
  if (LoadBoundaries(0) != kNoError) return nullptr;
  lastSearch = key;  // which may lie in the page that goes
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
  const Status status = Fill(letter, boundary->count);
  EndAccess();
  CEmailEntry* found = IsGoodRead(status) ? Locate(lastSearch, exact) : nullptr;
  if (found != nullptr) letterIndex = static_cast<std::int32_t>(boundary - boundaries.begin());
  return found;
}

// Moves the cursor to the entry that matches, if the page holds it.
CEmailEntry* CLetterEntryView::Locate(std::string_view key, std::int32_t exact) {
  if (page.IsEmpty() || page.Locate(key, &cursor, exact) != 0) return nullptr;
  return page.At(cursor);
}

// The entry of this name, if the page holds it; the cursor stays.
CEmailEntry* CLetterEntryView::InPage(std::string_view name) {
  std::int32_t index = 0;
  return page.Locate(name, &index, 1) == 0 ? page.At(index) : nullptr;
}

}  // namespace quillkit
