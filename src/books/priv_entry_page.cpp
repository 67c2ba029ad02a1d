#include "books/priv_entry_page.h"

#include "appliance/after_change.h"
#include "base/archive.h"
#include "books/priv_email_ab.h"
#include "books/session_route.h"

namespace quillkit {

void CPrivEntryPage::Attach(std::int32_t capacity, CPrivEmailAB* newBook) {
  if (newBook == nullptr) return;
  privateBook = newBook;
  Allocate(capacity);
}

void CPrivEntryPage::Reset() {
  Free();
  search = NameCursor(-1);
  loaded = 0;
}

Status CPrivEntryPage::Load(std::string_view startKey, std::int32_t direction) {
  loaded = 0;
  if (Count() <= 0 || privateBook == nullptr) return kRefused;
  KeyRange range(startKey, {});
  auto count = static_cast<std::uint32_t>(Count());
  const Status status = privateBook->ReadEntries(&range, Data(), &count, direction);
  loaded = 1;
  if (status != kNoError) count = 0;
  entries.KeepDelivered(static_cast<std::int32_t>(count), direction);
  return status;
}

auto CPrivEntryPage::Names() const {
  return [this](std::int32_t index) { return At(index)->name.View(); };
}

std::int32_t CPrivEntryPage::SearchFirst(const std::string& key, std::int32_t exact) {
  return search.FindFirst(Count(), key, exact == 1, Names());
}

std::int32_t CPrivEntryPage::SearchNext(std::int32_t exact) {
  return search.FindNext(Count(), exact == 1, Names());
}

std::int32_t CPrivEntryPage::Search(std::string_view key, std::int32_t start,
                                    std::int32_t exact) const {
  return start >= 0 ? quillkit::FindName(start, Count(), key, exact == 1, Names()) : -1;
}

Status CPrivEntryPage::Add(CEmailEntry* entry, std::int32_t reload) {
  if (Count() >= MaxPrivateEntries) return kBookFull;
  return privateBook != nullptr ? ReloadAfter(privateBook->CreateServerEntry(entry), reload)
                                : kRefused;
}

Status CPrivEntryPage::Read(CEmailEntry* entry, std::int32_t reload) {
  return privateBook != nullptr ? ReloadAfter(privateBook->ReadEntry(entry), reload) : kRefused;
}

Status CPrivEntryPage::Modify(CEmailEntry* entry, std::int32_t reload) {
  return privateBook != nullptr ? ReloadAfter(privateBook->ModifyEntry(entry), reload) : kRefused;
}

Status CPrivEntryPage::ModifyByKey(const std::string& key, CEmailEntry* entry,
                                   std::int32_t reload) {
  return privateBook != nullptr ? ReloadAfter(privateBook->RenameEntry(key, entry), reload)
                                : kRefused;
}

Status CPrivEntryPage::Remove(CEmailEntry* entry, std::int32_t reload) {
  if (privateBook == nullptr) return kRefused;
  return LoadAfterChange(privateBook->DeleteEntry(entry), reload, [this] { LoadAll(); });
}

Status CPrivEntryPage::LoadAll() {
  entries.AllocateToRead(MaxPrivateEntries);
  return Load({}, 1);
}

Status CPrivEntryPage::ReloadAfter(Status changed, std::int32_t reload) {
  return AfterChange(changed, reload, [this] { return LoadAll(); });
}

std::int32_t CPrivEntryPage::AddLocal(CEmailEntry* entry) {
  if (Count() >= MaxPrivateEntries) return kBookFull;
  if (privateBook == nullptr || privateBook->CreateServerEntry(entry) != kNoError) return -1;
  return Append(*entry);
}

std::int32_t CPrivEntryPage::ModifyLocal(CEmailEntry* entry) {
  if (privateBook == nullptr) return 0;
  return Overwrite(privateBook->ModifyEntry(entry), entry->name.View(), *entry);
}

std::int32_t CPrivEntryPage::ModifyLocalByKey(const std::string& key, CEmailEntry* entry) {
  if (privateBook == nullptr) return 0;
  return Overwrite(privateBook->RenameEntry(key, entry), key, *entry);
}

std::int32_t CPrivEntryPage::Overwrite(Status status, std::string_view key,
                                       const CEmailEntry& entry) {
  if (status != kNoError) return 0;
  CEmailEntry* found = At(Search(key, 0, 1));
  if (found == nullptr) return 0;
  *found = entry;
  return 1;
}

std::int32_t CPrivEntryPage::RemoveLocal(CEmailEntry* entry) {
  if (privateBook == nullptr || privateBook->DeleteEntry(entry) != kNoError) return -1;
  return RemoveAt(Search(entry->name.View(), 0, 1)) != 0 ? Count() : -1;
}

Status CPrivEntryPage::SendAll() {
  Status status = kNoError;
  for (std::int32_t i = 0; i < Count(); ++i) {
    status = privateBook != nullptr ? privateBook->CreateServerEntry(At(i))
                                    : SessionRoute().PrivateEntries().Create(At(i));
  }
  return status;
}

void CPrivEntryPage::Serialize(Archive& archive) {
  auto count = static_cast<std::uint32_t>(Count());
  archive.Exchange(count);
  if (!archive.IsStoring() && !archive.Prepare(entries, count)) return;
  for (CEmailEntry& each : entries) each.Serialize(archive);
}

}  // namespace quillkit
