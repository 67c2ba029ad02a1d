#include "softkeys/top_level_ab.h"

#include <utility>

#include "appliance/after_change.h"

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
  const auto replaced = std::exchange(keys, {});
  EntryKey names[MaxSoftKeys];
  std::uint32_t count = MaxSoftKeys;
  const Status status = Scanner().ListKeys(names, &count);
  if (status == kDataNotFound) return kNoError;
  if (status != kNoError) return status;
  keys.reserve(MaxSoftKeys);
  for (std::uint32_t i = 0; i < count; ++i) {
    auto key = std::make_unique<CSoftKey>();
    key->SetKeyName(names[i].name.View());
    if (withItems != 0) {
      if (i < replaced.size()) key->TakeBlock(*replaced[i]);
      key->Load(key->KeyName(), this, {}, 1);
    }
    keys.push_back(std::move(key));
  }
  return kNoError;
}

CSoftKey* CTopLevelAB::KeyAt(std::int32_t index) const {
  return index >= 0 && index < Count() ? keys[static_cast<std::size_t>(index)].get() : nullptr;
}

std::int32_t CTopLevelAB::Find(std::string_view name) const {
  return FindName(0, Count(), name, true, NameOfKey());
}

std::int32_t CTopLevelAB::FindFirstKey(const std::string& pattern, bool wholeName) {
  return findCursor.FindFirst(Count(), pattern, wholeName, NameOfKey());
}

std::int32_t CTopLevelAB::FindNextKey(bool wholeName) {
  findCursor.FindNext(Count(), wholeName, NameOfKey());
  return findCursor.Position();
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
  return AfterChange(CreateKeyEntry(record), reload, [&] { return Load(1); });
}

Status CTopLevelAB::DeleteKey(const std::string& name, bool reload) {
  return AfterChange(DeleteKeyBook(name), reload, [&] { return Load(1); });
}

Status CTopLevelAB::ModifyKey(const CSoftKey& key, bool reload) {
  CMenuItem record = KeyRecord(key.KeyName());
  return AfterChange(ModifyKeyEntry(key.KeyName(), &record), reload, [&] { return Load(1); });
}

Status CTopLevelAB::RenameSoftKey(const std::string& oldName, const CSoftKey& key) {
  CMenuItem record = KeyRecord(key.KeyName());
  return ModifyKeyEntry(oldName, &record);
}

Status CTopLevelAB::RenameSoftKeyByName(const std::string& oldName, const std::string& newName) {
  const CSoftKey* key = KeyAt(Find(newName));
  return key != nullptr ? RenameSoftKey(oldName, *key) : kRefused;
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
  cached->MoveFrom(*key, this);
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

Status CTopLevelAB::ClearAll() {
  if (scanner == nullptr) return kRefused;
  const Status status = scanner->ClearTopBook();
  Load(1);
  return status;
}

}  // namespace quillkit
