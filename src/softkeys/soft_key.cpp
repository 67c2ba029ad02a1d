#include "softkeys/soft_key.h"

#include "appliance/after_change.h"
#include "appliance/book_access.h"
#include "base/archive.h"
#include "bridge/the_agent.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {

int CSoftKey::Init(const std::string& name, std::int32_t capacity, CTopLevelAB* newOwner) {
  return Adopt(name, newOwner) && items.Allocate(capacity) ? 1 : 0;
}

bool CSoftKey::Adopt(const std::string& name, CTopLevelAB* newOwner) {
  if (newOwner == nullptr) return false;
  findCursor.MoveTo(0);
  owner = newOwner;
  keyName = name;
  return true;
}

Status CSoftKey::Load(const std::string& name, CTopLevelAB* newOwner, std::string_view firstName,
                      std::int32_t direction) {
  KeyRange range(firstName, "*");  // a copy: `firstName` may be in the block, which changes
  if (!Adopt(name, newOwner) || !items.AllocateToRead(MaxKeyItems)) return kRefused;
  auto count = static_cast<std::uint32_t>(items.count());
  const Status status =
      owner->ReadUnterminatedItems(keyName, &range, items.data(), &count, direction);
  if (status == kDataNotFound) count = 0;
  KeepReply(items, status, count, direction);
  return count != 0 ? status : kNoError;
}

void CSoftKey::MoveFrom(CSoftKey& other, CTopLevelAB* newOwner) {
  if (&other == this) return;
  findCursor = other.findCursor;  // the two steps that can fail to allocate come first
  keyName = other.keyName;
  items = std::move(other.items);
  owner = newOwner;
}

int CSoftKey::SetKeyName(std::string_view name) {
  if (name.size() > EntryKey().name.kMaxLength) return 0;
  keyName = name;
  return 1;
}

int CSoftKey::SetItemAt(std::int32_t index, const CMenuItem& item) {
  CMenuItem* slot = items.At(index);
  if (slot == nullptr) return 0;
  return slot->SetAll(item.name.View(), item.path.View(), item.appTag.View(), item.ipAddress.View(),
                      item.settings, item.fileFormat);
}

int CSoftKey::RemoveItemAt(std::int32_t index) {
  return items.RemoveAt(index) ? 1 : 0;
}

std::int32_t CSoftKey::FindFirstItem(const std::string& pattern, bool wholeName) {
  return findCursor.FindFirst(ItemCount(), pattern, wholeName, ItemName());
}

std::int32_t CSoftKey::FindNextItem(bool wholeName) {
  return findCursor.FindNext(ItemCount(), wholeName, ItemName());
}

std::int32_t CSoftKey::FindMenuItemIndex(const CMenuItem& item) const {
  return FindName(0, ItemCount(), item.name.View(), true, ItemName());
}

Status CSoftKey::AddMenuItem(CMenuItem* item, bool reload) {
  if (owner == nullptr) return kRefused;
  return AfterChange(owner->CreateKeyItem(keyName, item), reload, [&] { return Reload(); });
}

Status CSoftKey::ModifyMenuItem(CMenuItem* item, bool reload) {
  if (owner == nullptr) return kRefused;
  return AfterChange(owner->ModifyKeyItem(keyName, item), reload, [&] { return Reload(); });
}

Status CSoftKey::RenameMenuItem(const std::string& oldName, CMenuItem* item, bool reload) {
  if (owner == nullptr) return kRefused;
  return AfterChange(owner->RenameKeyItem(keyName, oldName, item), reload,
                     [&] { return Reload(); });
}

Status CSoftKey::DeleteMenuItem(const std::string& name, bool reload) {
  if (owner == nullptr) return kRefused;
  CMenuItem item;
  item.SetName(name);
  return AfterChange(owner->DeleteKeyItem(keyName, item), reload, [&] { return Reload(); });
}

std::int32_t CSoftKey::FastItemAdd(CMenuItem* item) {
  if (items.count() >= MaxKeyItems) {
    TheAgent.SetError(kBookFull);
    return -1;
  }
  if (owner == nullptr || owner->CreateKeyItem(keyName, item) != kNoError) return -1;
  return items.Append(*item);
}

std::int32_t CSoftKey::FastItemRemove(CMenuItem* item) {
  if (owner == nullptr || owner->DeleteKeyItem(keyName, *item) != kNoError) return -1;
  if (!items.RemoveAt(FindMenuItemIndex(*item))) return -1;
  return items.count();
}

std::int32_t CSoftKey::FastItemModify(CMenuItem* item) {
  if (owner == nullptr || owner->ModifyKeyItem(keyName, item) != kNoError) return 0;
  const std::int32_t index = FindMenuItemIndex(*item);
  if (index < 0) return 0;
  SetItemAt(index, *item);
  return 1;
}

std::int32_t CSoftKey::FastItemRename(const std::string& oldName, CMenuItem* item) {
  if (owner == nullptr || owner->RenameKeyItem(keyName, oldName, item) != kNoError) return 0;
  CMenuItem old;
  old.SetName(oldName);
  CMenuItem* slot = items.At(FindMenuItemIndex(old));
  if (slot == nullptr) return 0;
  *slot = *item;
  return 1;
}

Status CSoftKey::GetDBItemCount(std::uint32_t* count) const {
  if (owner != nullptr) return owner->SizeofKey(keyName, count);
  return BookAccess<CMenuItem>(&TheAgent, BookKind::kKeyItems, keyName).Size(count);
}

Status CSoftKey::SaveAllItems() {
  Status status = kRefused;
  if (owner == nullptr) return status;
  for (std::int32_t i = 0; i < ItemCount(); ++i) status = owner->ModifyKeyItem(keyName, ItemAt(i));
  return status;
}

void CSoftKey::Serialize(Archive& archive) {
  items.Free();
  findCursor.MoveTo(0);
  std::uint32_t count = 0;
  archive.Exchange(count);
  archive.Exchange(findCursor.Pattern());
  if (!archive.Prepare(items, count)) return;
  for (std::int32_t i = 0; i < ItemCount(); ++i) ItemAt(i)->Serialize(archive);
}

}  // namespace quillkit
