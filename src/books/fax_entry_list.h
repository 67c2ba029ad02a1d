// The entries of the fax book, held whole in one block inside a CFaxAB: in the server's order,
// followed by what was appended.
//
// An entry's address is good until the next operation that changes the list. Comparison is of exact
// bytes, and the lowest index wins.

#ifndef QUILLKIT_BOOKS_FAX_ENTRY_LIST_H_
#define QUILLKIT_BOOKS_FAX_ENTRY_LIST_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "bridge/address_entries.h"

namespace quillkit {

class Archive;
class CFaxAB;

// The most entries of a read, and of what Append fills the list to.
inline constexpr std::int32_t FaxReadCapacity = 2048;

class CFaxEntryList {
 public:
  CFaxEntryList() = default;
  virtual ~CFaxEntryList() = default;
  CFaxEntryList(const CFaxEntryList&) = delete;
  CFaxEntryList& operator=(const CFaxEntryList&) = delete;

  // Stores the owner and allocates `capacity` blank entries, all of which count. Whether there is a
  // block; 0 and no change for a null owner. Both cursors stay.
  int Init(std::int32_t capacity, CFaxAB* newOwner);

  CFaxAB* Owner() const { return owner; }

  // The block: as EntryBlock.
  bool Allocate(std::int32_t count) { return items.Allocate(count); }
  bool Grow(std::int32_t count) { return items.Resize(count); }
  bool Shrink(std::int32_t count, std::int32_t direction) { return items.Shrink(count, direction); }
  void Free() { items.Free(); }
  void Clear() { items.Clear(); }
  std::int32_t Count() const { return items.count(); }
  bool IsEmpty() const { return items.IsEmpty(); }
  CFaxEntry* Data() { return items.data(); }

  // Null for an index out of range.
  CFaxEntry* At(std::int32_t index) { return items.At(index); }
  const CFaxEntry* At(std::int32_t index) const { return items.At(index); }

  // The new count, or -1 at 2048 entries and when memory is refused.
  std::int32_t Append(const CFaxEntry& entry);

  // 1, or 0 for an index out of range. SetAt gives what CFaxEntry::Set gives.
  int RemoveAt(std::int32_t index) { return items.RemoveAt(index) ? 1 : 0; }
  int SetAt(std::int32_t index, const CFaxEntry& entry);

  // A walk. A step moves the cursor also past the ends, from where as many steps lead back; null
  // outside the list.
  CFaxEntry* FirstEntry();
  CFaxEntry* NextEntry() { return Step(walkCursor < INT32_MAX ? 1 : 0); }
  CFaxEntry* PrevEntry() { return Step(walkCursor > INT32_MIN ? -1 : 0); }

  // Searches by name: the whole name where `mode` is 1, else as many characters as the pattern has.
  // The index or -1. FindNextEntry goes on behind the last hit with the pattern of the latest
  // FindFirstEntry that hit: from 0 behind a FindFirstEntry that missed, from 1 behind a
  // FindEntryIndex that did.
  std::int32_t Lookup(std::string_view pattern, std::int32_t start, std::int32_t mode) const;
  std::int32_t FindEntryIndex(std::string_view name);
  std::int32_t FindFirstEntry(const std::string& pattern, std::int32_t mode);
  std::int32_t FindNextEntry(std::int32_t mode);

  // Bisection of a list that is sorted by name: between `low` and the last index plus `low`.
  std::int32_t BinaryLookup(std::string_view pattern, std::int32_t low, std::int32_t mode) const;

  // The position of the walk as a 32-bit value, and as many entries as it says: a list whose walk
  // stands at its end is stored whole, and blank entries stand for those that it lacks. Loading
  // puts the walk there, and replaces the entries if that is above 0. A position that the stream
  // cannot hold leaves no entries and fails the archive, with the walk at 0.
  void Serialize(Archive& archive);

 private:
  CFaxEntry* Step(std::int32_t by) { return items.At(walkCursor += by); }

  CFaxAB* owner = nullptr;
  EntryBlock<CFaxEntry> items;
  std::int32_t walkCursor = 0;
  std::int32_t findCursor = 0;
  std::string findPattern;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_FAX_ENTRY_LIST_H_
