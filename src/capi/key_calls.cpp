// Soft keys: the book of them, and one key with its items.

#include "capi/call_frame.h"

using namespace quillkit;

namespace {

// The key in memory that has the name of `key`, or null.
CSoftKey* NamesakeOf(CTopLevelAB* book, CSoftKey* key) {
  return GetKeyAt(book, FindSoftKeyIndex(book, GetKeyName(key)));
}

std::int32_t RemoveKey(CTopLevelAB* book, CSoftKey* key) {
  const CSoftKey* removed = NamesakeOf(book, key);
  const std::int32_t count = FastKeyRemove(book, key);
  if (count >= 0) Handles().End(removed);
  return count;
}

std::int32_t WriteKey(CTopLevelAB* book, CSoftKey* key) {
  // The key in memory takes over the book of `key` too, and would be left with it.
  if (!Handles().IsUnder(key, book)) return QUILL_E_OWNER;
  const CSoftKey* written = NamesakeOf(book, key);
  AtEnd end([=] {
    Handles().EndBelow(written);
    Handles().EndBelow(key);
  });
  const std::int32_t result = FastKeyModify(book, key);
  if (result == 0 || written == key) end.CallOff();
  return result;
}

std::int32_t MakeKey(const HandleResult& result, const std::string& name, CTopLevelAB* book) {
  CSoftKey* key = nullptr;
  const std::int32_t made = CreateSoftKey(name, book, &key);
  result.TakeForApplication(key, DestroySoftKey);
  return made != 0 ? 1 : 0;
}

}  // namespace

int32_t quill_get_count(quill_handle book) {
  return InFrame(GetCount, Book(book));
}

int32_t quill_load_top_level_abook(quill_handle book, int32_t with_items) {
  return InFrame(
      [=](CTopLevelAB* loaded) {
        AtEnd end([=] { Handles().EndBelow(loaded); });
        return LoadTopLevelAbook(loaded, with_items);
      },
      Book(book));
}

int32_t quill_add_key(quill_handle book, const char* name, int32_t reload) {
  return InFrame(kReload<AddKey>, reload, Book(book), Text(name));
}

int32_t quill_delete_key(quill_handle book, const char* name, int32_t reload) {
  return InFrame(kReload<DeleteKey>, reload, Book(book), Text(name));
}

int32_t quill_modify_key(quill_handle book, quill_handle key, int32_t reload) {
  return InFrame(kReload<ModifyKey>, reload, Book(book), Key(key));
}

int32_t quill_rename_soft_key(quill_handle book, const char* old_name, quill_handle key) {
  return InFrame(RenameSoftKey, Book(book), Text(old_name), Key(key));
}

int32_t quill_get_key_at(quill_handle book, int32_t index, quill_handle* key) {
  return InFrame(kGive<GetKeyAt>, HandleResult(key, book), Book(book), index);
}

int32_t quill_find_soft_key_index(quill_handle book, const char* name) {
  return InFrame(FindSoftKeyIndex, Book(book), Text(name));
}

int32_t quill_fast_key_add(quill_handle book, quill_handle key) {
  return InFrame(FastKeyAdd, Book(book), Key(key));
}

int32_t quill_fast_key_remove(quill_handle book, quill_handle key) {
  return InFrame(RemoveKey, Book(book), Key(key));
}

int32_t quill_fast_key_modify(quill_handle book, quill_handle key) {
  return InFrame(WriteKey, Book(book), Key(key));
}

int32_t quill_fast_key_rename(quill_handle book, const char* old_name, quill_handle key) {
  return InFrame(FastKeyRename, Book(book), Text(old_name), Key(key));
}

int32_t quill_create_soft_key(const char* name, quill_handle book, quill_handle* key) {
  using BookOrNone = ObjectArgument<CTopLevelAB, Need::kAliveOrNone>;
  return InFrame(MakeKey, HandleResult(key, book), Text(name), BookOrNone(book));
}

int32_t quill_destroy_soft_key(quill_handle key) {
  return InFrame(kDestroy<DestroySoftKey>, ObjectArgument<CSoftKey, Need::kOwnership>(key));
}

int32_t quill_load_items(quill_handle book, const char* name, quill_handle* key) {
  return InFrame(kGive<LoadItems>, HandleResult(key, book), Book(book), Text(name));
}

int32_t quill_get_key_name(quill_handle key, char* buffer, uint32_t* size) {
  return InFrame(kGive<GetKeyName>, TextResult(buffer, size), Key(key));
}

int32_t quill_is_soft_key_empty(quill_handle key) {
  return InFrame(IsSoftKeyEmpty, Key(key));
}

int32_t quill_get_item_count(quill_handle key) {
  return InFrame(GetItemCount, Key(key));
}

int32_t quill_get_db_item_count(quill_handle key, uint32_t* count) {
  return InFrame([](const NumberResult& result,
                    CSoftKey* counted) { return GetDBItemCount(counted, result.number()); },
                 NumberResult(count), KeyOnServer(key));
}

int32_t quill_get_item_at(quill_handle key, int32_t index, quill_handle* item) {
  return InFrame(kGive<GetItemAt>, HandleResult(item, key), Key(key), index);
}

int32_t quill_set_item_at(quill_handle key, int32_t index, quill_handle item) {
  return InFrame(kChange<SetItemAt, 0>, Key(key), index, Item(item));
}

int32_t quill_remove_item_at(quill_handle key, int32_t index) {
  return InFrame(kChange<RemoveItemAt, 0>, Key(key), index);
}

int32_t quill_find_first_item(quill_handle key, const char* pattern, int32_t whole_name) {
  return InFrame(FindFirstItem, Key(key), Text(pattern), whole_name);
}

int32_t quill_find_next_item(quill_handle key, int32_t whole_name) {
  return InFrame(FindNextItem, Key(key), whole_name);
}

int32_t quill_find_menu_item_index(quill_handle key, quill_handle item) {
  return InFrame(FindMenuItemIndex, Key(key), Item(item));
}

int32_t quill_add_menu_item(quill_handle key, quill_handle item, int32_t reload) {
  return InFrame(kReload<AddMenuItem>, reload, KeyOnServer(key), Item(item));
}

int32_t quill_modify_menu_item(quill_handle key, quill_handle item, int32_t reload) {
  return InFrame(kReload<ModifyMenuItem>, reload, KeyOnServer(key), Item(item));
}

int32_t quill_rename_menu_item(quill_handle key, const char* old_name, quill_handle item,
                               int32_t reload) {
  return InFrame(kReload<RenameMenuItem>, reload, KeyOnServer(key), Text(old_name), Item(item));
}

int32_t quill_delete_menu_item(quill_handle key, const char* name, int32_t reload) {
  return InFrame(kReload<DeleteMenuItem>, reload, KeyOnServer(key), Text(name));
}

int32_t quill_fast_item_add(quill_handle key, quill_handle item) {
  return InFrame(kChange<FastItemAdd, -1>, KeyOnServer(key), Item(item));
}

int32_t quill_fast_item_remove(quill_handle key, quill_handle item) {
  return InFrame(kChange<FastItemRemove, -1>, KeyOnServer(key), Item(item));
}

int32_t quill_fast_item_modify(quill_handle key, quill_handle item) {
  return InFrame(kChange<FastItemModify, 0>, KeyOnServer(key), Item(item));
}

int32_t quill_fast_item_rename(quill_handle key, const char* old_name, quill_handle item) {
  return InFrame(kChange<FastItemRename, 0>, KeyOnServer(key), Text(old_name), Item(item));
}
