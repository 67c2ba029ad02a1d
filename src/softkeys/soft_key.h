// One soft key: a named button with an ordered list of up to 512 menu items, cached in one block.
//
// On the server a key is an entry of the top-level book, which CTopLevelAB looks after, and a book
// of its own under the key's name, whose entries are the items. Two families change items:
//   plain  changes the server and, if asked, reads the whole key anew; a Status, 0 is good
//   Fast   changes the server and then patches the cache in place; a count, or 1, or -1 or 0
// In both the server comes first: a refusal leaves the cache as it was, and nothing is undone.
// SetItemAt and RemoveItemAt change the cache alone.
//
// Invariants:
//   1. Items stand in the server's order, followed by what FastItemAdd appended.
//   2. An item's address is good until the next operation that changes the key.
//   3. Without an owner every server operation but GetDBItemCount fails with -1 (or 0) and no call.

#ifndef QUILLKIT_SOFTKEYS_SOFT_KEY_H_
#define QUILLKIT_SOFTKEYS_SOFT_KEY_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "bridge/records.h"

namespace quillkit {

class Archive;
class CTopLevelAB;

// The most items of a key: the capacity of a read, and the limit of FastItemAdd.
inline constexpr std::int32_t MaxKeyItems = 512;

class CSoftKey {
 public:
  // Takes a name of any length, an owner, and a block of `capacity` zeroed items, all of which
  // count: a new key of capacity 512 holds 512 items until it is loaded. Whether there is a block
  // now; 0 and no change for a null owner.
  int Init(const std::string& name, std::int32_t capacity, CTopLevelAB* newOwner);

  // Reads the key of this name, from behind `firstName`, in one IMSPReadAB of up to 512 items. A
  // missing or empty book gives 0 and no items, and so does a failure that delivers nothing. 21 and
  // any other failing status come with what was delivered: 512 blank items where the count was left
  // as it went out. -1, and no call, without an owner (nothing changes), without memory (name
  // and owner are taken, the items are gone), and without a scanner (512 blank items).
  Status Load(const std::string& name, CTopLevelAB* newOwner, std::string_view firstName,
              std::int32_t direction);

  // Takes over all that `other` holds but its owner, in the place of which comes `newOwner`: its
  // own book may go at any time. `other` keeps its name and owner and no items.
  void TakeOver(CSoftKey& other, CTopLevelAB* newOwner);

  // 1, or 0 and no change for a name of 32 or more characters.
  int SetKeyName(std::string_view name);

  const std::string& KeyName() const { return keyName; }

  // --- The cache ---

  std::int32_t ItemCount() const { return items.count(); }
  bool IsEmpty() const { return items.IsEmpty(); }

  // Null for an index out of range.
  CMenuItem* ItemAt(std::int32_t index) { return items.At(index); }

  // CMenuItem::SetAll on the slot with the item's fields: its result, with the slot half updated
  // when a text is refused. 0 for an index out of range.
  int SetItemAt(std::int32_t index, const CMenuItem& item);

  // 1, or 0 for an index out of range.
  int RemoveItemAt(std::int32_t index);

  // Searches by name: whole, or by as many characters as the pattern has. The index or -1. A hit is
  // what FindNextItem goes on behind, with the pattern of the latest FindFirstItem that hit; a miss
  // of FindFirstItem lets it start at 0, a miss of its own leaves it where it was. After a Load it
  // starts at 1.
  std::int32_t FindFirstItem(const std::string& pattern, bool wholeName);
  std::int32_t FindNextItem(bool wholeName);

  // The first item with the same name, or -1.
  std::int32_t FindMenuItemIndex(const CMenuItem& item) const;

  // --- Plain family: the server's status, or that of the reload ---
  //
  // A name of 32 or more characters goes out as the empty one, here and below: nothing that another
  // name begins with is changed in its place.

  Status AddMenuItem(CMenuItem* item, bool reload);
  Status ModifyMenuItem(CMenuItem* item, bool reload);
  Status RenameMenuItem(const std::string& oldName, CMenuItem* item, bool reload);
  Status DeleteMenuItem(const std::string& name, bool reload);

  // --- Fast family ---

  // The new count, or -1. At 512 cached items code 24 is recorded and no call is made.
  std::int32_t FastItemAdd(CMenuItem* item);

  // The new count, or -1, also when the server dropped an item that was not cached.
  std::int32_t FastItemRemove(CMenuItem* item);

  // 1, or 0, also when the server changed an item that was not cached.
  std::int32_t FastItemModify(CMenuItem* item);
  std::int32_t FastItemRename(const std::string& oldName, CMenuItem* item);

  // --- More ---

  // The server's number of items: IMSPSizeofAB, also on a key without an owner.
  Status GetDBItemCount(std::uint32_t* count) const;

  // Sends every cached item as a modification, whatever the earlier ones gave; the last status, or
  // -1 for an empty key.
  Status SaveAllItems();

  // Both directions begin by dropping the cached items. Loading: the count, the search pattern, the
  // items, also without an owner; name and owner stay. Storing thus writes a count of 0 and the
  // pattern.
  void Serialize(Archive& archive);

 private:
  Status Reload(Status changed, bool reload);
  std::int32_t IndexOf(std::string_view name, std::int32_t start, bool wholeName) const;

  CTopLevelAB* owner = nullptr;
  EntryBlock<CMenuItem> items;
  std::int32_t findCursor = 0;
  std::string findPattern;
  std::string keyName;
};

}  // namespace quillkit

#endif  // QUILLKIT_SOFTKEYS_SOFT_KEY_H_
