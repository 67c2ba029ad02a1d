// The accounts of one appliance, held whole in one block inside a CUserAB, in the server's order.
//
// A record's address is good until the next operation that changes the list.

#ifndef QUILLKIT_BOOKS_USER_LIST_H_
#define QUILLKIT_BOOKS_USER_LIST_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "bridge/records.h"

namespace quillkit {

class Archive;
class CUserAB;

// The most accounts of an appliance: the capacity of a read, and the limit of an addition.
inline constexpr std::int32_t MaxUsers = 4096;

class CUserList {
 public:
  // Stores the owner, through which the server is reached and which must outlive the list, and
  // allocates `capacity` blank records, all of which count. Nothing happens without an owner.
  void Init(std::int32_t capacity, CUserAB* newOwner);

  // Replace the records by `count` blank ones; make `count` of them live; keep `count` of them, the
  // front ones for direction 1 and the back ones for any other, as base/entry_block.h tells. A
  // Shrink to 0 frees the block.
  bool Allocate(std::int32_t count) { return records.Allocate(count); }
  bool Grow(std::int32_t count) { return records.Resize(count); }
  bool Shrink(std::int32_t count, std::int32_t direction);

  std::int32_t Count() const { return records.count(); }
  bool IsEmpty() const { return records.IsEmpty(); }
  const CUserEntry* Data() const { return records.data(); }

  // The record at `index`: out of range the one gives a blank record, the other null.
  const CUserEntry& GetAt(std::int32_t index) const;
  CUserEntry* PointerAt(std::int32_t index) { return records.At(index); }

  // Copies the record over the slot: 1, or 0 out of range.
  int SetAt(std::int32_t index, const CUserEntry& record);

  // 1, or 0 out of range. Removing the last record frees the block; no other removal gives memory
  // back.
  int RemoveAt(std::int32_t index);

  // The new count. 0 at 4096 records, with code 24 recorded, and when memory is refused.
  std::int32_t Append(const CUserEntry& record);

  // Frees the block.
  void Clear();

  // Reads as many accounts as records count, from behind `startKey`: IMSPReadAB. 0 and 21 keep what
  // was delivered; any other status leaves none. -1 and no call for an empty list.
  Status Load(std::string_view startKey, std::int32_t direction);

  // Writes every record to the server in turn: IMSPModifyEntry. The first status that is not 0 ends
  // it. -1, and no call, for an empty list and for one without an owner.
  Status SaveAll();

  // Searches by name, in list order: the whole name where `exact` is 1, else as many characters as
  // the pattern has. The index or -1. FindNext goes on behind the last hit with the pattern of the
  // latest FindFirst that hit.
  std::int32_t Find(const CUserEntry& record);
  std::int32_t FindFirst(const std::string& searched, std::int32_t exact);
  std::int32_t FindNext(std::int32_t exact);

  // The count and each record. A count that the stream cannot hold loads none and fails the
  // archive.
  void Serialize(Archive& archive);

 private:
  std::int32_t IndexOf(std::string_view name, std::int32_t start, std::int32_t exact) const;

  CUserAB* owner = nullptr;
  EntryBlock<CUserEntry> records;
  std::int32_t cursor = 0;
  std::string pattern;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_USER_LIST_H_
