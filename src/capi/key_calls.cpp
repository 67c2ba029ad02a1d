// The book of soft keys, and one key with its items.

#include "capi/call_frame.h"

using namespace quillkit;
using namespace quillkit::capi;

namespace {

// Returns the cached key with the name of `key`, or null.
CSoftKey* FindCachedKey(CTopLevelAB* book, CSoftKey* key) {
  return GetKeyAt(book, FindSoftKeyIndex(book, GetKeyName(key)));
}

std::int32_t RemoveKey(CTopLevelAB* book, CSoftKey* key) {
  const CSoftKey* removed = FindCachedKey(book, key);
  const std::int32_t count = FastKeyRemove(book, key);
  if (count >= 0) Handles().End(removed);
  return count;
}

std::int32_t WriteKey(CTopLevelAB* book, CSoftKey* key) {
  // Otherwise items would move from a key of another book into this one.
  if (!Handles().IsChild(key, book)) return QUILL_E_OWNER;
  const CSoftKey* written = FindCachedKey(book, key);
  ScopeExit end([=] {
    Handles().EndBelow(written);
    Handles().EndBelow(key);
  });
  const std::int32_t result = FastKeyModify(book, key);
  if (result == 0 || written == key) end.Release();
  return result;
}

std::int32_t MakeKey(const HandleResult& result, const std::string& name, CTopLevelAB* book) {
  CSoftKey* key = nullptr;
  const std::int32_t made = CreateSoftKey(name, book, &key);
  result.StoreForApplication(key, DestroySoftKey);
  return made != 0 ? 1 : 0;
}

}  // namespace

int32_t quill_get_count(quill_handle book) {
  return InTurn(GetCount, BookArgument(book));
}

int32_t quill_load_top_level_abook(quill_handle book, int32_t with_items) {
  return InTurn(
      [=](CTopLevelAB* loaded) {
        ScopeExit end([=] { Handles().EndBelow(loaded); });
        return LoadTopLevelAbook(loaded, with_items);
      },
      BookArgument(book));
}

int32_t quill_add_key(quill_handle book, const char* name, int32_t reload) {
  return InTurn(kInvalidateOnReload<AddKey>, reload, BookArgument(book), TextArgument(name));
}

int32_t quill_delete_key(quill_handle book, const char* name, int32_t reload) {
  return InTurn(kInvalidateOnReload<DeleteKey>, reload, BookArgument(book), TextArgument(name));
}

int32_t quill_modify_key(quill_handle book, quill_handle key, int32_t reload) {
  return InTurn(kInvalidateOnReload<ModifyKey>, reload, BookArgument(book), KeyArgument(key));
}

int32_t quill_rename_soft_key(quill_handle book, const char* old_name, quill_handle key) {
  return InTurn(RenameSoftKey, BookArgument(book), TextArgument(old_name), KeyArgument(key));
}

int32_t quill_get_key_at(quill_handle book, int32_t index, quill_handle* key) {
  return InTurn(kStoreResult<GetKeyAt>, HandleResult(key, book), BookArgument(book), index);
}

int32_t quill_find_soft_key_index(quill_handle book, const char* name) {
  return InTurn(FindSoftKeyIndex, BookArgument(book), TextArgument(name));
}

int32_t quill_fast_key_add(quill_handle book, quill_handle key, int32_t* error) {
  return InTurnReporting(error, -1, FastKeyAdd, BookArgument(book), KeyArgument(key));
}

int32_t quill_fast_key_remove(quill_handle book, quill_handle key, int32_t* error) {
  return InTurnReporting(error, -1, RemoveKey, BookArgument(book), KeyArgument(key));
}

int32_t quill_fast_key_modify(quill_handle book, quill_handle key, int32_t* error) {
  return InTurnReporting(error, 0, WriteKey, BookArgument(book), KeyArgument(key));
}

int32_t quill_fast_key_rename(quill_handle book, const char* old_name, quill_handle key,
                              int32_t* error) {
  return InTurnReporting(error, 0, FastKeyRename, BookArgument(book), TextArgument(old_name),
                         KeyArgument(key));
}

int32_t quill_create_soft_key(const char* name, quill_handle book, quill_handle* key) {
  using BookOrNoneArgument = ObjectArgument<CTopLevelAB, Need::kAliveOrNone>;
  return InTurn(MakeKey, HandleResult(key, book), TextArgument(name), BookOrNoneArgument(book));
}

int32_t quill_destroy_soft_key(quill_handle key) {
  return InTurn(kDestroy<DestroySoftKey>, ObjectArgument<CSoftKey, Need::kOwnership>(key));
}

int32_t quill_load_items(quill_handle book, const char* name, quill_handle* key, int32_t* error) {
  return InTurnReporting(error, 0, kStoreResult<LoadItems>, HandleResult(key, book),
                         BookArgument(book), TextArgument(name));
}

int32_t quill_get_key_name(quill_handle key, char* buffer, uint32_t* size) {
  return InTurn(kStoreResult<GetKeyName>, TextResult(buffer, size), KeyArgument(key));
}

int32_t quill_is_soft_key_empty(quill_handle key) {
  return InTurn(IsSoftKeyEmpty, KeyArgument(key));
}

int32_t quill_get_item_count(quill_handle key) {
  return InTurn(GetItemCount, KeyArgument(key));
}

int32_t quill_get_db_item_count(quill_handle key, uint32_t* count) {
  return InTurn([](const NumberResult& result,
                   CSoftKey* counted) { return GetDBItemCount(counted, result.Target()); },
                NumberResult(count), KeyOnServerArgument(key));
}

int32_t quill_get_item_at(quill_handle key, int32_t index, quill_handle* item) {
  return InTurn(kStoreResult<GetItemAt>, HandleResult(item, key), KeyArgument(key), index);
}

int32_t quill_set_item_at(quill_handle key, int32_t index, quill_handle item) {
  return InTurn(kInvalidateOnChange<SetItemAt, 0>, KeyArgument(key), index, ItemArgument(item));
}

int32_t quill_remove_item_at(quill_handle key, int32_t index) {
  return InTurn(kInvalidateOnChange<RemoveItemAt, 0>, KeyArgument(key), index);
}

int32_t quill_find_first_item(quill_handle key, const char* pattern, int32_t whole_name) {
  return InTurn(FindFirstItem, KeyArgument(key), TextArgument(pattern), whole_name);
}

int32_t quill_find_next_item(quill_handle key, int32_t whole_name) {
  return InTurn(FindNextItem, KeyArgument(key), whole_name);
}

int32_t quill_find_menu_item_index(quill_handle key, quill_handle item) {
  return InTurn(FindMenuItemIndex, KeyArgument(key), ItemArgument(item));
}

int32_t quill_add_menu_item(quill_handle key, quill_handle item, int32_t reload) {
  return InTurn(kInvalidateOnReload<AddMenuItem>, reload, KeyOnServerArgument(key),
                ItemArgument(item));
}

int32_t quill_modify_menu_item(quill_handle key, quill_handle item, int32_t reload) {
  return InTurn(kInvalidateOnReload<ModifyMenuItem>, reload, KeyOnServerArgument(key),
                ItemArgument(item));
}

int32_t quill_rename_menu_item(quill_handle key, const char* old_name, quill_handle item,
                               int32_t reload) {
  return InTurn(kInvalidateOnReload<RenameMenuItem>, reload, KeyOnServerArgument(key),
                TextArgument(old_name), ItemArgument(item));
}

int32_t quill_delete_menu_item(quill_handle key, const char* name, int32_t reload) {
  return InTurn(kInvalidateOnReload<DeleteMenuItem>, reload, KeyOnServerArgument(key),
                TextArgument(name));
}

int32_t quill_fast_item_add(quill_handle key, quill_handle item, int32_t* error) {
  return InTurnReporting(error, -1, kInvalidateOnChange<FastItemAdd, -1>, KeyOnServerArgument(key),
                         ItemArgument(item));
}

int32_t quill_fast_item_remove(quill_handle key, quill_handle item, int32_t* error) {
  return InTurnReporting(error, -1, kInvalidateOnChange<FastItemRemove, -1>,
                         KeyOnServerArgument(key), ItemArgument(item));
}

int32_t quill_fast_item_modify(quill_handle key, quill_handle item, int32_t* error) {
  return InTurnReporting(error, 0, kInvalidateOnChange<FastItemModify, 0>, KeyOnServerArgument(key),
                         ItemArgument(item));
}

int32_t quill_fast_item_rename(quill_handle key, const char* old_name, quill_handle item,
                               int32_t* error) {
  return InTurnReporting(error, 0, kInvalidateOnChange<FastItemRename, 0>, KeyOnServerArgument(key),
                         TextArgument(old_name), ItemArgument(item));
}
