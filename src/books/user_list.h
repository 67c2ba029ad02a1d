// The accounts of one appliance, in one block inside a CUserAB, in the server's order.
//
// A pointer to a record is valid until the next operation that changes the list. Only Load and
// SaveAll make server calls.

#ifndef QUILLKIT_BOOKS_USER_LIST_H_
#define QUILLKIT_BOOKS_USER_LIST_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "base/name_search.h"
#include "bridge/records.h"

namespace quillkit {

class Archive;
class CUserAB;

// The most accounts of an appliance: the capacity of a read, and the limit of an addition.
inline constexpr std::int32_t MaxUsers = 4096;

class CUserList {
 public:
  // Stores the owner, which sends the calls and must outlive the list, and allocates `capacity`
  // blank records, which all count as accounts. Does nothing for a null owner.
  void Init(std::int32_t capacity, CUserAB* newOwner);

  // The block: as EntryBlock, with Grow for Resize. A Shrink to 0 frees the block.
  bool Allocate(std::int32_t count) { return records.Allocate(count); }
  bool Grow(std::int32_t count) { return records.Resize(count); }
  bool Shrink(std::int32_t count, std::int32_t direction);

  std::int32_t Count() const { return records.count(); }
  bool IsEmpty() const { return records.IsEmpty(); }
  const CUserEntry* Data() const { return records.data(); }

  // For an index out of range GetAt returns a blank record, and PointerAt null.
  const CUserEntry& GetAt(std::int32_t index) const;
  CUserEntry* PointerAt(std::int32_t index) { return records.At(index); }

  // Replaces a record. Returns 1, or 0 for an index out of range.
  int SetAt(std::int32_t index, const CUserEntry& record);

  // Returns 1, or 0 for an index out of range. Frees the block when no record remains.
  int RemoveAt(std::int32_t index);

  // Returns the new count, or 0 on failure: if the allocation fails, or if the list has 4096
  // accounts, when it also records code 24.
  std::int32_t Append(const CUserEntry& record);

  // Frees the block.
  void Clear();

  // Reads as many accounts as there are records, starting after `startKey`. Keeps what was
  // delivered if the status is 0 or 21; any other leaves none. Returns the status; or -1 and makes
  // no server call for an empty list or without an owner. Server calls: IMSPReadAB.
  Status Load(std::string_view startKey, std::int32_t direction);

  // Writes every record to the server in turn. Stops at the first status that is not 0 and returns
  // it. Returns -1 and makes no server call for an empty list or without an owner.
  // Server calls: IMSPModifyEntry for each record.
  Status SaveAll();

  // Search by name: the whole name if `exact` is 1, otherwise its beginning. Return the index or
  // -1. FindNext continues as NameCursor does. A hit of Find moves the position of the search too.
  std::int32_t Find(const CUserEntry& record);
  std::int32_t FindFirst(const std::string& searched, std::int32_t exact);
  std::int32_t FindNext(std::int32_t exact);

  // The count and each record. If the stream cannot hold that count, loading leaves no records and
  // fails the archive.
  void Serialize(Archive& archive);

 private:
  auto Names() const;

  CUserAB* owner = nullptr;
  EntryBlock<CUserEntry> records;
  NameCursor search;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_USER_LIST_H_
