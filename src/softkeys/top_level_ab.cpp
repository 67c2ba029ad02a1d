#include "softkeys/top_level_ab.h"

#include "appliance/scanner.h"
#include "base/name_search.h"

namespace quillkit {
namespace {

// A key's entry in the top-level book: its name and nothing else.
CMenuItem KeyRecord(std::string_view name) {
  CMenuItem record;
  record.SetName(name);
  return record;
}

}  // namespace

const ClassRecord CTopLevelAB::kClass = {"CTopLevelAB", sizeof(CTopLevelAB), 1,
                                         CreateObject<CTopLevelAB>, nullptr};

int CTopLevelAB::Attach(CScanner* newScanner, std::int32_t load) {
  scanner = newScanner;
  if (load != 0) Load(1);
  return 1;
}

Status CTopLevelAB::Load(std::int32_t withItems) {
  Clear();
  if (scanner == nullptr) return kRefused;
  EntryKey names[MaxSoftKeys];
  std::uint32_t count = MaxSoftKeys;
  const Status status = scanner->ListKeys(names, &count);
  if (status == kDataNotFound) return kNoError;
  if (status != kNoError) return status;
  keys.reserve(MaxSoftKeys);
  for (std::uint32_t i = 0; i < count; ++i) {
    auto key = std::make_unique<CSoftKey>();
    key->SetKeyName(names[i].name.View());
    if (withItems != 0) key->Load(key->KeyName(), this, {}, 1);
    keys.push_back(std::move(key));
  }
  return kNoError;
}

CSoftKey* CTopLevelAB::KeyAt(std::int32_t index) const {
  return index >= 0 && index < Count() ? keys[static_cast<std::size_t>(index)].get() : nullptr;
}

std::int32_t CTopLevelAB::Find(std::string_view name) const {
  return IndexOf(name, 0, true);
}

std::int32_t CTopLevelAB::FindFirstKey(const std::string& pattern, bool wholeName) {
  findCursor = IndexOf(pattern, 0, wholeName);
  if (findCursor >= 0) findPattern = pattern;
  return findCursor;
}

std::int32_t CTopLevelAB::FindNextKey(bool wholeName) {
  const std::int32_t hit = IndexOf(findPattern, findCursor + 1, wholeName);
  if (hit >= 0) findCursor = hit;
  return findCursor;
}

std::int32_t CTopLevelAB::IndexOf(std::string_view name, std::int32_t start, bool wholeName) const {
  return FindName(start, Count(), name, wholeName, [&](std::int32_t i) -> std::string_view {
    return keys[static_cast<std::size_t>(i)]->KeyName();
  });
}

CSoftKey* CTopLevelAB::LoadItems(const std::string& name) {
  CSoftKey read;
  return read.Load(name, this, {}, 1) == kNoError ? KeyAt(Find(name)) : nullptr;
}

Status CTopLevelAB::AddKey(const std::string& name, bool reload) {
  CMenuItem record = KeyRecord(name);
  return AddKey(&record, reload);
}

Status CTopLevelAB::AddKey(CMenuItem* record, bool reload) {
  if (Count() >= MaxSoftKeys) return kBookFull;
  return Reload(CreateKeyEntry(record), reload);
}

Status CTopLevelAB::DeleteKey(const std::string& name, bool reload) {
  return Reload(DeleteKeyBook(name), reload);
}

Status CTopLevelAB::ModifyKey(const CSoftKey& key, bool reload) {
  CMenuItem record = KeyRecord(key.KeyName());
  return Reload(ModifyKeyEntry(key.KeyName(), &record), reload);
}

Status CTopLevelAB::RenameSoftKey(const std::string& oldName, const CSoftKey& key) {
  CMenuItem record = KeyRecord(key.KeyName());
  return ModifyKeyEntry(oldName, &record);
}

Status CTopLevelAB::RenameSoftKeyByName(const std::string& oldName, const std::string& newName) {
  const CSoftKey* key = KeyAt(Find(newName));
  return key != nullptr ? RenameSoftKey(oldName, *key) : kRefused;
}

// What a plain change ends in: its own status, or that of loading the keys anew with items.
Status CTopLevelAB::Reload(Status changed, bool reload) {
  return changed == kNoError && reload ? Load(1) : changed;
}

std::int32_t CTopLevelAB::FastKeyAdd(const CSoftKey& key) {
  CMenuItem record = KeyRecord(key.KeyName());
  if (Count() >= MaxSoftKeys || CreateKeyEntry(&record) != kNoError) return -1;
  auto added = std::make_unique<CSoftKey>();
  added->Init(key.KeyName(), 0, this);
  keys.push_back(std::move(added));
  return Count();
}

std::int32_t CTopLevelAB::FastKeyRemove(const CSoftKey& key) {
  if (DeleteKeyBook(key.KeyName()) != kNoError) return -1;
  const std::int32_t index = Find(key.KeyName());
  if (index < 0) return -1;
  keys.erase(keys.begin() + index);
  return Count();
}

std::int32_t CTopLevelAB::FastKeyModify(CSoftKey* key) {
  CMenuItem record = KeyRecord(key->KeyName());
  if (ModifyKeyEntry(key->KeyName(), &record) != kNoError) return 0;
  CSoftKey* cached = KeyAt(Find(key->KeyName()));
  if (cached == nullptr) return 0;
  cached->TakeOver(*key, this);
  return 1;
}

std::int32_t CTopLevelAB::FastKeyRename(const std::string& oldName, const CSoftKey& key) {
  CMenuItem record = KeyRecord(key.KeyName());
  if (ModifyKeyEntry(oldName, &record) != kNoError) return 0;
  CSoftKey* cached = KeyAt(Find(oldName));
  if (cached == nullptr) return 0;
  cached->SetKeyName(record.name.View());
  return 1;
}

Status CTopLevelAB::SizeofTop(std::uint32_t* count) const {
  return scanner != nullptr ? scanner->SizeofTop(count) : kRefused;
}

Status CTopLevelAB::ClearAll() {
  if (scanner == nullptr) return kRefused;
  const Status status = scanner->ClearTopBook();
  Load(1);
  return status;
}

Status CTopLevelAB::ReadKeyItems(std::string_view key, KeyRange* range, CMenuItem* items,
                                 std::uint32_t* count, std::int32_t direction) const {
  if (scanner == nullptr) return kRefused;
  return scanner->ReadKeyItems(key, range, items, count, direction);
}

Status CTopLevelAB::CreateKeyItem(std::string_view key, CMenuItem* item) const {
  return scanner != nullptr ? scanner->CreateKeyItem(key, item) : kRefused;
}

Status CTopLevelAB::ModifyKeyItem(std::string_view key, CMenuItem* item) const {
  return scanner != nullptr ? scanner->ModifyKeyItem(key, item) : kRefused;
}

Status CTopLevelAB::RenameKeyItem(std::string_view key, std::string_view oldName,
                                  CMenuItem* item) const {
  return scanner != nullptr ? scanner->RenameKeyItem(key, oldName, item) : kRefused;
}

Status CTopLevelAB::DeleteKeyItem(std::string_view key, const CMenuItem& item) const {
  return scanner != nullptr ? scanner->DeleteKeyItem(key, item) : kRefused;
}

Status CTopLevelAB::SizeofKey(const std::string& key, std::uint32_t* count) const {
  return scanner != nullptr ? scanner->SizeofKey(key, count) : kRefused;
}

Status CTopLevelAB::CreateKeyEntry(CMenuItem* record) const {
  return scanner != nullptr ? scanner->CreateKeyEntry(record) : kRefused;
}

Status CTopLevelAB::ModifyKeyEntry(std::string_view name, CMenuItem* record) const {
  return scanner != nullptr ? scanner->ModifyKeyEntry(name, record) : kRefused;
}

Status CTopLevelAB::DeleteKeyBook(std::string_view name) const {
  return scanner != nullptr ? scanner->DeleteKeyBook(name) : kRefused;
}

}  // namespace quillkit
