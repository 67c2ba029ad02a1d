#include "books/fax_ab.h"

#include "appliance/after_change.h"

namespace quillkit {

template class ServerList<CFaxEntry, CFaxAB, BookKind::kFaxList>;
template class PublicList<CFaxEntry, CFaxAB, BookKind::kFaxList>;
template class PublicListBook<CFaxAB, CPubFaxDL>;

const ClassRecord CFaxAB::kClass = {"CFaxAB", sizeof(CFaxAB), 1, CreateObject<CFaxAB>, nullptr};

void CFaxAB::Serialize(Archive& archive) {
  entries.Serialize(archive);
  SerializeLists(archive);
}

int CFaxAB::Attach(CScanner* newScanner, std::int32_t load) {
  if (newScanner == nullptr) return 0;
  scanner = newScanner;
  return load != 0 ? LoadEntries() : 1;
}

int CFaxAB::LoadEntries() {
  if (scanner == nullptr || entries.Init(FaxReadCapacity, this) == 0) return 0;
  KeyRange range;
  auto count = static_cast<std::uint32_t>(entries.Count());
  const Status status = ServerEntries().Read(&range, entries.Data(), &count, 1);
  if (status == kDataNotFound) count = 0;
  entries.KeepDelivered(static_cast<std::int32_t>(count), 1);
  return status == kNoError || status == kDataNotFound ? 1 : 0;
}

Status CFaxAB::ClearBook() {
  if (scanner == nullptr) return kRefused;
  const Status status = scanner->ClearFaxBook();
  entries.Free();
  LoadEntries();
  return status;
}

int CFaxAB::AddEntry(CFaxEntry* entry, std::int32_t reload) {
  return RecordIfFull() ? 0 : ReloadAfter(ServerEntries().Create(entry), reload);
}

int CFaxAB::ReadEntry(CFaxEntry* entry, std::int32_t reload) {
  return ReloadAfter(ServerEntries().ReadOne(entry), reload);
}

int CFaxAB::ModifyEntry(CFaxEntry* entry, std::int32_t reload) {
  return ReloadAfter(ServerEntries().Modify(entry), reload);
}

int CFaxAB::RenameEntry(std::string_view oldName, CFaxEntry* entry, std::int32_t reload) {
  return ReloadAfter(ServerEntries().Rename(oldName, entry), reload);
}

int CFaxAB::DeleteEntry(CFaxEntry* entry, std::int32_t reload) {
  return ReloadAfter(ServerEntries().Delete(*entry), reload);
}

int CFaxAB::ReloadAfter(Status changed, std::int32_t reload) {
  const auto load = [this] { return LoadEntries() != 0 ? kNoError : kRefused; };
  return AfterChange(changed, reload, load) == kNoError ? 1 : 0;
}

std::int32_t CFaxAB::FastAddEntry(CFaxEntry* entry) {
  if (RecordIfFull() || ServerEntries().Create(entry) != kNoError) return -1;
  return entries.Append(*entry);
}

// Returns whether 2048 entries are in memory. If so, records code 24.
bool CFaxAB::RecordIfFull() const {
  if (entries.Count() < MaxFaxEntries) return false;
  TheAgent.SetError(kBookFull);
  return true;
}

int CFaxAB::FastModifyEntry(CFaxEntry* entry) {
  if (ServerEntries().Modify(entry) != kNoError) return 0;
  const std::int32_t index = FindEntryIndex(entry->name.View());
  if (index < 0) return 0;
  entries.SetAt(index, *entry);
  return 1;
}

int CFaxAB::FastRenameEntry(std::string_view oldName, CFaxEntry* entry) {
  if (ServerEntries().Rename(oldName, entry) != kNoError) return 0;
  CFaxEntry* held = entries.At(FindEntryIndex(oldName));
  if (held == nullptr) return 0;
  *held = *entry;
  held->Terminate();
  return 1;
}

std::int32_t CFaxAB::FastDeleteEntry(CFaxEntry* entry) {
  if (ServerEntries().Delete(*entry) != kNoError) return -1;
  return entries.RemoveAt(FindEntryIndex(entry->name.View())) != 0 ? entries.Count() : -1;
}

int CFaxAB::RemoveEntryAt(std::int32_t index, std::int32_t reload) {
  return entries.RemoveAt(index) != 0 ? ReloadAfter(kNoError, reload) : 0;
}

std::int32_t CFaxAB::FindEntryIndex(std::string_view name) {
  return scanner != nullptr ? entries.FindEntryIndex(name) : -1;
}

int CFaxAB::DuplicateList(const CPubFaxDL& source, std::string_view newName, std::int32_t reload) {
  const std::unique_ptr<CPubFaxDL> copy = Copy(source, newName);
  return copy != nullptr ? AddList(*copy, reload) : 0;
}

int CFaxAB::FastDuplicateList(const CPubFaxDL& source, std::string_view newName) {
  std::unique_ptr<CPubFaxDL> copy = Copy(source, newName);
  if (copy == nullptr || FastAddList(copy.get()) < 0) return 0;
  static_cast<void>(copy.release());
  return 1;
}

}  // namespace quillkit
