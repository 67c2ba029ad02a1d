#include "views/sliding_entry_view.h"

#include <algorithm>

namespace quillkit {

CEmailEntry* CSlidingEntryView::First() {
  if (book == nullptr || !HasDelivered(LoadUp({}, {}))) return nullptr;
  return MoveTo(lowPage, 0);
}

CEmailEntry* CSlidingEntryView::Last() {
  std::uint32_t size = 0;
  if (BookSize(&size) != kNoError || size == 0) return nullptr;
  return GetAt(static_cast<std::int32_t>(size - 1));
}

CEmailEntry* CSlidingEntryView::Next() {
  if (currentPage != nullptr && currentIndex + 1 < currentPage->Count()) {
    return currentPage->At(++currentIndex);
  }
  return NextPage();
}

// Steps from the end of a page. Inlined, it would slow down a step inside a page.
[[gnu::noinline]] CEmailEntry* CSlidingEntryView::NextPage() {
  if (book != nullptr && IsSpanEmpty()) return nullptr;
  if (currentPage == nullptr || currentPage->IsEmpty()) {
    currentIndex = 0;
    return nullptr;
  }
  ++currentIndex;
  if (currentPage == &lowPage) return MoveTo(midPage, 0);
  if (currentPage == &midPage) return MoveTo(highPage, 0);
  const EntryKey last(highPage.Last()->name.View());
  return HasDelivered(LoadUp(last, {})) ? MoveTo(lowPage, 0) : nullptr;
}

CEmailEntry* CSlidingEntryView::Prev() {
  if (book == nullptr) return nullptr;
  if (currentPage == nullptr || currentPage->IsEmpty()) {
    currentIndex = 0;
    return nullptr;
  }
  const CEmailEntry* left = Current();
  if (--currentIndex >= 0) return Current();
  if (currentPage == &highPage) return MoveToEnd(midPage.IsEmpty() ? lowPage : midPage);
  if (currentPage == &midPage) return MoveToEnd(lowPage);
  const EntryKey name(left != nullptr ? left->name.View() : std::string_view());
  if (!HasDelivered(LoadDown(name))) return nullptr;
  return MoveToEnd(highPage.IsEmpty() ? midPage : highPage);
}

CEmailEntry* CSlidingEntryView::GetAt(std::int32_t index) {
  if (BookSize(&bookSize) != kNoError) return nullptr;
  if (index < 0 || static_cast<std::uint32_t>(index) >= bookSize) return nullptr;
  return HasDelivered(PositionAt(index)) ? Current() : nullptr;
}

// Reads the name at the index, then the span around it.
Status CSlidingEntryView::PositionAt(std::int32_t index) {
  Status status = LoadBoundaries(0);
  if (status != kNoError) return status;
  std::int32_t start = 0;
  const std::int32_t row = RowOfEntry(index, &start);
  if (row < 0) return kNoError;
  KeyRange range({}, LetterFilter(boundaries.At(row)->letter), index - start);
  CEmailEntry entry;
  std::uint32_t count = 1;
  status = book->ReadEntries(&range, &entry, &count, 1);
  if (status != kNoError && status != kMoreData) return status;
  bool endsAtKey = false;
  status = LoadAround(EntryKey(entry.name.View()), &endsAtKey);
  if (!HasDelivered(status)) return status;
  endsAtKey ? MoveToEnd(lowPage) : MoveTo(midPage, 0);
  return kNoError;
}

Status CSlidingEntryView::Remove(CEmailEntry* entry, std::int32_t flag) {
  if (book == nullptr) return kRefused;
  if (flag != 0) return book->DeleteEntry(entry);
  if (Find(entry->name.View(), 1) == nullptr) return kDataNotFound;
  currentPage->RemoveAt(currentIndex);
  return kNoError;
}

CEmailEntry* CSlidingEntryView::Find(std::string_view key, std::int32_t flag) {
  if (book == nullptr) return nullptr;
  if (flag == 1) Reset();
  return Seek(key, 1);
}

CEmailEntry* CSlidingEntryView::FindPrefix(std::string_view key) {
  return book != nullptr ? Seek(key, 0) : nullptr;
}

CEmailEntry* CSlidingEntryView::FindNext(std::int32_t exact) {
  return book != nullptr ? IfMatches(Next(), exact) : nullptr;
}

CEmailEntry* CSlidingEntryView::FindPrev(std::int32_t exact) {
  return IfMatches(Prev(), exact);
}

CEmailEntry* CSlidingEntryView::FindLetter(char letter) {
  if (book == nullptr) return nullptr;
  currentIndex = -1;
  if (!HasDelivered(LoadUp({}, LetterFilter(letter))) || lowPage.IsEmpty()) return nullptr;
  return MoveTo(lowPage, 0);
}

Status CSlidingEntryView::Modify(CEmailEntry* entry, std::int32_t flag) {
  if (book == nullptr) return kNoError;
  const Status status = flag == 1 ? book->ModifyEntry(entry) : kNoError;
  if (status != kNoError) return status;
  CEmailEntry* found = SearchPages(entry->name.View(), 1);
  if (found != nullptr) found->SetFrom(*entry);
  return kNoError;
}

Status CSlidingEntryView::ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) {
  if (book == nullptr) return kNoError;
  const Status status = flag == 1 ? book->RenameEntry(key, entry) : kNoError;
  if (status != kNoError) return status;
  CEmailEntry* found = SearchPages(entry->name.View(), 1);
  if (found != nullptr) found->SetName(key);
  return kNoError;
}

void CSlidingEntryView::Reset() {
  lowPage.Clear();
  midPage.Clear();
  highPage.Clear();
}

std::int32_t CSlidingEntryView::SetPageSize(std::int32_t size) {
  if (size <= 0) return 0;
  for (CEntryPage* page : {&lowPage, &midPage, &highPage}) {
    if (book != nullptr) page->Attach(size, book->Entries());
  }
  return size;
}

// --- The span ---

// Searches the span, then reads it around the key and searches it again.
CEmailEntry* CSlidingEntryView::Seek(std::string_view key, std::int32_t exact) {
  lastSearch = key;  // a copy: the key may be in a page that is replaced
  CEmailEntry* found = SearchPages(lastSearch, exact);
  if (found != nullptr) return found;
  bool endsAtKey = false;
  if (!HasDelivered(LoadAround(EntryKey(lastSearch), &endsAtKey))) return nullptr;
  return SearchPages(lastSearch, exact);
}

// Moves the position to the matching entry and returns it, or returns null.
CEmailEntry* CSlidingEntryView::SearchPages(std::string_view key, std::int32_t exact) {
  for (CEntryPage* page : {&lowPage, &midPage, &highPage}) {
    if (page->IsEmpty()) continue;
    const int where = page->Locate(key, &currentIndex, exact);
    if (where == 0) return MoveTo(*page, currentIndex);
    if (where < 0) return nullptr;
  }
  return nullptr;
}

CEmailEntry* CSlidingEntryView::MoveTo(CEntryPage& page, std::int32_t index) {
  currentPage = &page;
  currentIndex = index;
  return Current();
}

CEmailEntry* CSlidingEntryView::MoveToEnd(CEntryPage& page) {
  return MoveTo(page, std::max(page.Count() - 1, std::int32_t{0}));
}

// Returns the entry at the position, or null.
CEmailEntry* CSlidingEntryView::Current() const {
  return currentPage != nullptr ? currentPage->At(currentIndex) : nullptr;
}

bool CSlidingEntryView::IsSpanEmpty() const {
  return lowPage.IsEmpty() && midPage.IsEmpty() && highPage.IsEmpty();
}

template <class Read>
Status CSlidingEntryView::LoadSpan(Read read) {
  for (CEntryPage* page : {&lowPage, &midPage, &highPage}) AttachPage(*page, GetPageSize());
  BeginAccess();
  const Status status = read();
  EndAccess();
  return status;
}

// Reads the span upwards from the key.
Status CSlidingEntryView::LoadUp(EntryKey key, std::string_view filter) {
  return LoadSpan([&] { return ReadOnward(lowPage, midPage, highPage, key, filter, 1); });
}

// Reads the span downwards from the key.
Status CSlidingEntryView::LoadDown(EntryKey key) {
  return LoadSpan([&] { return ReadOnward(highPage, midPage, lowPage, key, {}, 0); });
}

// Reads the span around the key. If `*endsAtKey` is set, the low page ends with the key's own entry
// or, if that does not exist, with the entry before it. Otherwise the middle page starts with the
// key's own entry, or is empty.
Status CSlidingEntryView::LoadAround(EntryKey key, bool* endsAtKey) {
  return LoadSpan([&] { return ReadAround(key.name.View(), endsAtKey); });
}

// Fills the pages in turn, each from the end of the page before it in this direction.
Status CSlidingEntryView::ReadOnward(CEntryPage& first, CEntryPage& second, CEntryPage& third,
                                     const EntryKey& key, std::string_view filter,
                                     std::int32_t direction) {
  const auto edge = [direction](CEntryPage& page) {
    return (direction == 1 ? page.Last() : page.At(0))->name.View();
  };
  first.Fill(key.name.View(), filter, direction);
  if (first.IsEmpty()) {
    second.Clear();
    third.Clear();
    return kNoError;
  }
  second.Fill(edge(first), filter, direction);
  if (second.IsEmpty()) {
    third.Clear();
    return kNoError;
  }
  return third.Fill(edge(second), filter, direction);
}

// A read never delivers the key's own entry: a read from its neighbour, in the other direction,
// does.
Status CSlidingEntryView::ReadAround(std::string_view key, bool* endsAtKey) {
  *endsAtKey = false;
  midPage.Fill(key, {}, 1);
  if (!midPage.IsEmpty()) {
    *endsAtKey = true;
    lowPage.Fill(midPage.At(0)->name.View(), {}, 0);
    return highPage.Fill(midPage.Last()->name.View(), {}, 1);
  }
  highPage.Clear();
  lowPage.Fill(key, {}, 0);
  if (!lowPage.IsEmpty()) {
    AttachPage(midPage, GetPageSize());
    return midPage.Fill(lowPage.Last()->name.View(), {}, 1);
  }
  *endsAtKey = true;
  AttachPage(lowPage, GetPageSize());
  return lowPage.Fill({}, {}, 1);
}

}  // namespace quillkit
