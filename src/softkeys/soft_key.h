// One soft key: a named button with an ordered list of up to 512 menu items, cached in one block.
//
// On the server a key is an entry of the top-level book (CTopLevelAB), and a book under the key's
// name whose entries are the items. Two families change items:
//   plain  changes the server, then reloads the whole key if `reload` is set; returns a Status
//   Fast   changes the server, then updates the cache in place; returns a count or -1, or 1 or 0
// In both, if the server refuses the change, the cache stays unchanged. Nothing is rolled back.
// SetItemAt and RemoveItemAt change only the cache. Operations that list no server calls make no
// server call.
//
// Invariants:
//   1. Items are in the server's order, followed by those that FastItemAdd appended.
//   2. A pointer to an item is valid until the next operation that changes the key.
//   3. A text of an item that the server delivered may lack its NUL until ItemAt is called for the
//      item. That saves a pass over all items at each load.
//   4. Without an owner, every server operation except GetDBItemCount returns -1 or 0 and makes no
//      server call.

#ifndef QUILLKIT_SOFTKEYS_SOFT_KEY_H_
#define QUILLKIT_SOFTKEYS_SOFT_KEY_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "base/name_search.h"
#include "bridge/records.h"

namespace quillkit {

class Archive;
class CTopLevelAB;

// The most items of a key: the capacity of a read, and the limit of FastItemAdd.
inline constexpr std::int32_t MaxKeyItems = 512;

class CSoftKey {
 public:
  // Sets the name (of any length) and the owner, and allocates `capacity` blank items. These count
  // as items: a new key of capacity 512 has 512 items until it is loaded. Returns 1; 0 if the
  // allocation fails; 0 and no change for a null owner.
  int Init(const std::string& name, std::int32_t capacity, CTopLevelAB* newOwner);

  // Reads up to 512 items of the key `name`, starting after `firstName`. Returns the status of the
  // read. A missing or empty book, or a failure that delivers nothing, returns 0 and leaves no
  // items. After 21 the key holds the first 512 items. After any other failure it holds what was
  // delivered, or 512 blank items if the server changed neither the count nor the last item. An
  // item that it counts but does not write is blank or an earlier one, perhaps of another key.
  // Returns -1 and makes no server call without an owner (no change), without memory (name and
  // owner are set, the items are released), and without a scanner (512 blank items).
  // Server calls: IMSPReadAB.
  Status Load(const std::string& name, CTopLevelAB* newOwner, std::string_view firstName,
              std::int32_t direction);

  // Moves the items of `other` into this key and copies its name. Sets the owner to `newOwner`, not
  // to the owner of `other`, which may be destroyed earlier. `other` keeps its name and owner, and
  // has no items.
  void MoveFrom(CSoftKey& other, CTopLevelAB* newOwner);

  // Takes over the block of `other`, which then has no items, for the next Load.
  void TakeBlock(CSoftKey& other) { items.TakeBlock(other.items); }

  // Returns 1, or 0 and no change for a name of 32 or more bytes.
  int SetKeyName(std::string_view name);

  const std::string& KeyName() const { return keyName; }

  // --- The cache ---

  std::int32_t ItemCount() const { return items.count(); }
  bool IsEmpty() const { return items.IsEmpty(); }

  // Returns the item at `index`, or null for an index out of range. The key owns it.
  CMenuItem* ItemAt(std::int32_t index) {
    CMenuItem* item = items.At(index);
    if (item != nullptr) item->Terminate();
    return item;
  }

  // Copies the fields of `item` with CMenuItem::SetAll and returns its result; if it refuses a
  // text, the fields before it are changed. Returns 0 for an index out of range.
  int SetItemAt(std::int32_t index, const CMenuItem& item);

  // Returns 1, or 0 for an index out of range.
  int RemoveItemAt(std::int32_t index);

  // Search by name: the whole name if `wholeName` is set, otherwise its beginning. Return the index
  // of the hit, or -1. FindNextItem continues as NameCursor does; after a Load it starts at index
  // 1.
  std::int32_t FindFirstItem(const std::string& pattern, bool wholeName);
  std::int32_t FindNextItem(bool wholeName);

  // Returns the index of the first item with the same name, or -1.
  std::int32_t FindMenuItemIndex(const CMenuItem& item) const;

  // --- Plain family: return the status of the change, or of the reload ---
  //
  // Here and below, a name of 32 or more bytes is sent as the empty name, so that no entry with the
  // truncated name is changed instead.
  // Server calls: IMSPCreateEntry, IMSPModifyEntry or IMSPDeleteEntry; then IMSPReadAB if `reload`
  // is set.

  Status AddMenuItem(CMenuItem* item, bool reload);
  Status ModifyMenuItem(CMenuItem* item, bool reload);
  Status RenameMenuItem(const std::string& oldName, CMenuItem* item, bool reload);
  Status DeleteMenuItem(const std::string& name, bool reload);

  // --- Fast family ---

  // Server calls: IMSPCreateEntry, IMSPDeleteEntry or IMSPModifyEntry.

  // Returns the new count, or -1. At 512 cached items, records code 24 and makes no server call.
  std::int32_t FastItemAdd(CMenuItem* item);

  // Returns the new count, or -1; also -1 if the server deleted an item that was not cached.
  std::int32_t FastItemRemove(CMenuItem* item);

  // Return 1, or 0; also 0 if the server changed an item that was not cached.
  std::int32_t FastItemModify(CMenuItem* item);
  std::int32_t FastItemRename(const std::string& oldName, CMenuItem* item);

  // --- More ---

  // Stores the number of items on the server in `*count`. Returns the status. Works without an
  // owner too.
  // Server calls: IMSPSizeofAB.
  Status GetDBItemCount(std::uint32_t* count) const;

  // Sends every cached item as a modification, regardless of failures. Returns the last status, or
  // -1 for an empty key. Server calls: IMSPModifyEntry for each item.
  Status SaveAllItems();

  // The count, the search pattern and the items. First releases the cached items, also when it
  // stores: storing always writes a count of 0 and the pattern. Name and owner are not stored and
  // stay unchanged. Loading needs no owner.
  void Serialize(Archive& archive);

 private:
  // Sets name and owner. Returns false and changes nothing for a null owner.
  bool Adopt(const std::string& name, CTopLevelAB* newOwner);
  Status Reload() { return Load(keyName, owner, {}, 1); }
  auto ItemName() const {
    return [this](std::int32_t i) {
      const auto& name = items.At(i)->name;
      return name.View().substr(0, name.kMaxLength);
    };
  }

  CTopLevelAB* owner = nullptr;
  EntryBlock<CMenuItem> items;
  NameCursor findCursor;
  std::string keyName;
};

}  // namespace quillkit

#endif  // QUILLKIT_SOFTKEYS_SOFT_KEY_H_
