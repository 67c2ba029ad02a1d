#include "views/full_entry_view.h"

#include "appliance/after_change.h"
#include "base/name_search.h"

namespace quillkit {

int CFullEntryView::AttachBook(EntrySource* newBook) {
  if (CEntryView::AttachBook(newBook) == 0) return 0;
  const Status status = Load();
  return status == kNoError || status == kDataNotFound ? 1 : 0;
}

Status CFullEntryView::Load() {
  cursor = 0;
  entries.AllocateToRead(MaxFullEntries);
  KeyRange range;
  auto delivered = static_cast<std::uint32_t>(entries.count());
  const Status status = book->ReadEntries(&range, entries.data(), &delivered, 1);
  if (delivered == 0 || status == kDataNotFound) {
    entries.KeepDelivered(0, 1);
  } else if (status == kNoError || status == kMoreData) {
    entries.KeepDelivered(static_cast<std::int32_t>(delivered), 1);
  } else {
    entries.Allocate(MaxFullEntries);  // discards what was written
  }
  return status;
}

// Moves the cursor to `index` and returns its entry, or returns null. If removals left the cursor
// beyond the end, it can step back through indexes without an entry.
CEmailEntry* CFullEntryView::MoveTo(std::int32_t index) {
  if (entries.IsEmpty() || index < 0 || (index > cursor && index >= entries.count()))
    return nullptr;
  cursor = index;
  return entries.At(index);
}

CEmailEntry* CFullEntryView::FindLetter(char letter) {
  for (std::int32_t i = 0; i < entries.count(); ++i) {
    if (*entries.At(i)->Name() == letter) return MoveTo(i);
  }
  return Last();
}

CEmailEntry* CFullEntryView::Find(std::string_view key, std::int32_t exact) {
  cursor = -1;
  CEmailEntry* nearest = FindLetter(key.empty() ? '\0' : key.front());
  const std::int32_t hit = IndexOf(key, exact != 0);
  if (hit < 0) return nearest;
  lastSearch = key;
  cursor = hit;
  return entries.At(hit);
}

Status CFullEntryView::Add(CEmailEntry* entry, std::int32_t reload) {
  if (book == nullptr || entries.count() >= MaxFullEntries) return kRefused;
  return ReloadAfter(book->AddEntry(entry), reload);
}

Status CFullEntryView::Remove(CEmailEntry* entry, std::int32_t reload) {
  return book != nullptr ? ReloadAfter(book->DeleteEntry(entry), reload) : kRefused;
}

Status CFullEntryView::Modify(CEmailEntry* entry, std::int32_t reload) {
  return book != nullptr ? ReloadAfter(book->ModifyEntry(entry), reload) : kRefused;
}

Status CFullEntryView::ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t reload) {
  return book != nullptr ? ReloadAfter(book->RenameEntry(key, entry), reload) : kRefused;
}

Status CFullEntryView::ReloadAfter(Status changed, std::int32_t reload) {
  return AfterChange(changed, reload, [this] { return Load(); });
}

std::int32_t CFullEntryView::RemoveAt(std::int32_t index) {
  if (!entries.RemoveAt(index)) return -1;
  if (entries.IsEmpty()) {
    entries.Free();
  } else {
    entries.Resize(entries.count());
  }
  return entries.count();
}

std::int32_t CFullEntryView::AddLocal(CEmailEntry* entry) {
  return Add(entry, 0) == kNoError ? entries.Append(*entry) : -1;
}

std::int32_t CFullEntryView::RemoveLocal(CEmailEntry* entry) {
  if (book == nullptr || book->DeleteEntry(entry) != kNoError) return -1;
  return RemoveAt(IndexOf(entry->name.View(), true));
}

std::int32_t CFullEntryView::ModifyLocal(CEmailEntry* entry) {
  return Overwrite(Modify(entry, 0), entry->name.View(), *entry);
}

std::int32_t CFullEntryView::ModifyLocalByKey(std::string_view key, CEmailEntry* entry) {
  return Overwrite(ModifyByKey(key, entry, 0), key, *entry);
}

// After a successful change, replaces the entry of this name. Returns 1 or 0.
std::int32_t CFullEntryView::Overwrite(Status changed, std::string_view name,
                                       const CEmailEntry& entry) {
  CEmailEntry* slot = changed == kNoError ? entries.At(IndexOf(name, true)) : nullptr;
  if (slot == nullptr) return 0;
  *slot = entry;
  return 1;
}

// Returns the index of the first entry that matches, or -1.
std::int32_t CFullEntryView::IndexOf(std::string_view name, bool wholeName) const {
  return FindName(0, entries.count(), name, wholeName,
                  [&](std::int32_t i) { return entries.At(i)->name.View(); });
}

}  // namespace quillkit
