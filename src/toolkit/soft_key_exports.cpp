// One soft key and its items.

#include <memory>

#include "softkeys/soft_key.h"
#include "toolkit/call_frame.h"
#include "toolkit/quillkit.h"

namespace quillkit {

std::int32_t CreateSoftKey(const std::string& name, CTopLevelAB* book, CSoftKey** key) {
  return InFrame(
      [&](const std::string& copy) {
        auto made = std::make_unique<CSoftKey>();
        const int result = made->Init(copy, MaxKeyItems, book);
        *key = made.release();
        return result;
      },
      name);
}

void DestroySoftKey(CSoftKey* key) {
  InFrame([&] { delete key; });
}

const char* GetKeyName(CSoftKey* key) {
  return InFrame([&] { return key->KeyName().c_str(); });
}

std::int32_t IsSoftKeyEmpty(CSoftKey* key) {
  return InFrame([&] { return key->IsEmpty() ? 1 : 0; });
}

std::int32_t GetItemCount(CSoftKey* key) {
  return InFrame([&] { return key->ItemCount(); });
}

std::int32_t GetDBItemCount(CSoftKey* key, std::uint32_t* count) {
  return InFrame([&] { return key->GetDBItemCount(count); });
}

CMenuItem* GetItemAt(CSoftKey* key, std::int32_t index) {
  return InFrame([&] { return key->ItemAt(index); });
}

std::int32_t SetItemAt(CSoftKey* key, std::int32_t index, CMenuItem* item) {
  return InFrame([&] { return key->SetItemAt(index, *item); });
}

std::int32_t RemoveItemAt(CSoftKey* key, std::int32_t index) {
  return InFrame([&] { return key->RemoveItemAt(index); });
}

std::int32_t FindFirstItem(CSoftKey* key, const std::string& pattern, std::int32_t wholeName) {
  return InFrame([&](const std::string& copy) { return key->FindFirstItem(copy, wholeName != 0); },
                 pattern);
}

std::int32_t FindNextItem(CSoftKey* key, std::int32_t wholeName) {
  return InFrame([&] { return key->FindNextItem(wholeName != 0); });
}

std::int32_t FindMenuItemIndex(CSoftKey* key, CMenuItem* item) {
  return InFrame([&] { return key->FindMenuItemIndex(*item); });
}

std::int32_t AddMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload) {
  return InFrame([&] { return key->AddMenuItem(item, reload != 0); });
}

std::int32_t ModifyMenuItem(CSoftKey* key, CMenuItem* item, std::int32_t reload) {
  return InFrame([&] { return key->ModifyMenuItem(item, reload != 0); });
}

std::int32_t RenameMenuItem(CSoftKey* key, const std::string& oldName, CMenuItem* item,
                            std::int32_t reload) {
  return InFrame(
      [&](const std::string& copy) { return key->RenameMenuItem(copy, item, reload != 0); },
      oldName);
}

std::int32_t DeleteMenuItem(CSoftKey* key, const std::string& name, std::int32_t reload) {
  return InFrame([&](const std::string& copy) { return key->DeleteMenuItem(copy, reload != 0); },
                 name);
}

std::int32_t FastItemAdd(CSoftKey* key, CMenuItem* item) {
  return InFrame([&] { return key->FastItemAdd(item); });
}

std::int32_t FastItemRemove(CSoftKey* key, CMenuItem* item) {
  return InFrame([&] { return key->FastItemRemove(item); });
}

std::int32_t FastItemModify(CSoftKey* key, CMenuItem* item) {
  return InFrame([&] { return key->FastItemModify(item); });
}

std::int32_t FastItemRename(CSoftKey* key, const std::string& oldName, CMenuItem* item) {
  return InFrame([&](const std::string& copy) { return key->FastItemRename(copy, item); }, oldName);
}

}  // namespace quillkit
