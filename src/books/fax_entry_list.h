// The entries of the fax book, in one block inside a CFaxAB: in the server's order, followed by
// those that were appended.
//
// A pointer to an entry is valid until the next operation that changes the list. Searches compare
// bytes and return the lowest index. Makes no server call.

#ifndef QUILLKIT_BOOKS_FAX_ENTRY_LIST_H_
#define QUILLKIT_BOOKS_FAX_ENTRY_LIST_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "base/name_search.h"
#include "bridge/address_entries.h"

namespace quillkit {

class Archive;
class CFaxAB;

// The capacity of a read, and the limit of Append.
inline constexpr std::int32_t FaxReadCapacity = 2048;

class CFaxEntryList {
 public:
  CFaxEntryList() = default;
  virtual ~CFaxEntryList() = default;
  CFaxEntryList(const CFaxEntryList&) = delete;
  CFaxEntryList& operator=(const CFaxEntryList&) = delete;

  // Stores the owner and allocates `capacity` blank entries, which all count as entries. Keeps the
  // positions of walk and search. Returns 1, or 0 if the allocation fails; 0 and no change for a
  // null owner.
  int Init(std::int32_t capacity, CFaxAB* newOwner);

  CFaxAB* Owner() const { return owner; }

  // The block: as EntryBlock.
  bool Allocate(std::int32_t count) { return items.Allocate(count); }
  bool Grow(std::int32_t count) { return items.Resize(count); }
  bool Shrink(std::int32_t count, std::int32_t direction) { return items.Shrink(count, direction); }
  bool KeepDelivered(std::int32_t count, std::int32_t direction) {
    return items.KeepDelivered(count, direction);
  }
  void Free() { items.Free(); }
  void Clear() { items.Clear(); }
  std::int32_t Count() const { return items.count(); }
  bool IsEmpty() const { return items.IsEmpty(); }
  CFaxEntry* Data() { return items.data(); }

  // Returns null for an index out of range.
  CFaxEntry* At(std::int32_t index) { return items.At(index); }
  const CFaxEntry* At(std::int32_t index) const { return items.At(index); }

  // Returns the new count; or -1 if the list has 2048 entries or the allocation fails.
  std::int32_t Append(const CFaxEntry& entry);

  // Return 0 for an index out of range; otherwise RemoveAt returns 1, and SetAt the result of
  // CFaxEntry::Set.
  int RemoveAt(std::int32_t index) { return items.RemoveAt(index) ? 1 : 0; }
  int SetAt(std::int32_t index, const CFaxEntry& entry);

  // Walk through the list. A step can move the position past an end; the same number of steps back
  // returns to the same entry. Return null outside the list.
  CFaxEntry* FirstEntry();
  CFaxEntry* NextEntry() { return Step(walkCursor < INT32_MAX ? 1 : 0); }
  CFaxEntry* PrevEntry() { return Step(walkCursor > INT32_MIN ? -1 : 0); }

  // Search by name: the whole name if `mode` is 1, otherwise its beginning. Return the index or -1.
  // FindNextEntry continues as NameCursor does; after a FindEntryIndex without a hit it starts at
  // index 1.
  std::int32_t Lookup(std::string_view pattern, std::int32_t start, std::int32_t mode) const;
  std::int32_t FindEntryIndex(std::string_view name);
  std::int32_t FindFirstEntry(const std::string& pattern, std::int32_t mode);
  std::int32_t FindNextEntry(std::int32_t mode);

  // Binary search in a list that is sorted by name. The initial bounds are `low` and `low` +
  // Count() - 1; indexes outside the list are skipped. Returns the index or -1.
  std::int32_t BinaryLookup(std::string_view pattern, std::int32_t low, std::int32_t mode) const;

  // The position of the walk as a 32-bit value, then that number of entries: to store a whole list,
  // first walk to the position after its last entry. Blank entries replace missing ones. Loading
  // restores the position, and replaces the entries if it is greater than 0. If the stream cannot
  // hold that number of entries, loading leaves none, sets the position to 0 and fails the archive.
  void Serialize(Archive& archive);

 private:
  CFaxEntry* Step(std::int32_t by) { return items.At(walkCursor += by); }
  auto Names() const {
    return [this](std::int32_t index) { return items.At(index)->name.View(); };
  }

  CFaxAB* owner = nullptr;
  EntryBlock<CFaxEntry> items;
  std::int32_t walkCursor = 0;
  NameCursor search;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_FAX_ENTRY_LIST_H_
