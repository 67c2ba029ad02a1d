// The top-level book: the soft keys and their changes.

#include "softkeys/top_level_ab.h"
#include "toolkit/call_frame.h"
#include "toolkit/quillkit.h"

namespace quillkit {

std::int32_t GetCount(CTopLevelAB* book) {
  return InFrame([&] { return book->Count(); });
}

std::int32_t LoadTopLevelAbook(CTopLevelAB* book, std::int32_t withItems) {
  return InFrame([&] { return book->Load(withItems); });
}

std::int32_t AddKey(CTopLevelAB* book, const std::string& name, std::int32_t reload) {
  return InFrame([&](const std::string& copy) { return book->AddKey(copy, reload != 0); }, name);
}

std::int32_t DeleteKey(CTopLevelAB* book, const std::string& name, std::int32_t reload) {
  return InFrame([&](const std::string& copy) { return book->DeleteKey(copy, reload != 0); }, name);
}

std::int32_t ModifyKey(CTopLevelAB* book, CSoftKey* key, std::int32_t reload) {
  return InFrame([&] { return book->ModifyKey(*key, reload != 0); });
}

std::int32_t RenameSoftKey(CTopLevelAB* book, const std::string& oldName, CSoftKey* key) {
  return InFrame([&](const std::string& copy) { return book->RenameSoftKey(copy, *key); }, oldName);
}

CSoftKey* GetKeyAt(CTopLevelAB* book, std::int32_t index) {
  return InFrame([&] { return book->KeyAt(index); });
}

std::int32_t FindSoftKeyIndex(CTopLevelAB* book, const std::string& name) {
  return InFrame([&](const std::string& copy) { return book->Find(copy); }, name);
}

std::int32_t FastKeyAdd(CTopLevelAB* book, CSoftKey* key) {
  return InFrame([&] { return book->FastKeyAdd(*key); });
}

std::int32_t FastKeyRemove(CTopLevelAB* book, CSoftKey* key) {
  return InFrame([&] { return book->FastKeyRemove(*key); });
}

std::int32_t FastKeyModify(CTopLevelAB* book, CSoftKey* key) {
  return InFrame([&] { return book->FastKeyModify(key); });
}

std::int32_t FastKeyRename(CTopLevelAB* book, const std::string& oldName, CSoftKey* key) {
  return InFrame([&](const std::string& copy) { return book->FastKeyRename(copy, *key); }, oldName);
}

CSoftKey* LoadItems(CTopLevelAB* book, const std::string& name) {
  return InFrame([&](const std::string& copy) { return book->LoadItems(copy); }, name);
}

}  // namespace quillkit
