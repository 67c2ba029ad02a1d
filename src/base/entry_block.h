// The allocated run of records behind soft keys, user lists, entry pages, fax entries and list
// members.
//
// Invariants:
//   1. data() is block() plus skip() records; both are null when there is no block.
//   2. count() records from data() on are live, and lie inside the block.
//   3. Records are trivially copyable: they are moved by block copies, and the block comes from the
//      C allocator so that it grows and shrinks in place. Records that come into being are blank,
//      so that what a server claims to have delivered and did not is blank, too: zeroed, or of a
//      type with a Blank() what that leaves.
//   4. A record with a password is wiped as soon as it is not live, and where it was moved from.
//
// Any call that is not const moves or overwrites records: addresses from data() and At() are good
// only until then.

#ifndef QUILLKIT_BASE_ENTRY_BLOCK_H_
#define QUILLKIT_BASE_ENTRY_BLOCK_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <type_traits>
#include <utility>

#include "base/language.h"
#include "base/secret.h"

namespace quillkit {

template <class Record>
class EntryBlock {
  static_assert(std::is_trivially_copyable_v<Record>);

 public:
  EntryBlock() = default;
  ~EntryBlock() { Free(); }

  EntryBlock(EntryBlock&& other) noexcept { Swap(other); }
  EntryBlock& operator=(EntryBlock&& other) noexcept {
    EntryBlock(std::move(other)).Swap(*this);
    return *this;
  }
  EntryBlock(const EntryBlock&) = delete;
  EntryBlock& operator=(const EntryBlock&) = delete;

  void Swap(EntryBlock& other) noexcept {
    std::swap(storage, other.storage);
    std::swap(live, other.live);
    std::swap(skipped, other.skipped);
  }

  // Releases the block; everything is 0 afterwards.
  void Free() {
    Wipe(data(), live);
    std::free(storage);
    storage = nullptr;
    live = 0;
    skipped = 0;
  }

  // Replaces the block by one of `count` blank records, all of them live. False, and no block,
  // when `count` is not above 0 or the memory is refused.
  bool Allocate(std::int32_t count) {
    Free();
    if (!Fits(count)) return false;
    storage = static_cast<Record*>(NewRecords(count));
    if (storage != nullptr) live = count;
    return storage != nullptr;
  }

  // Makes `count` records live, keeping skip() and the records that fit. False, and no change, when
  // `count` is not above 0 or the memory is refused.
  bool Resize(std::int32_t count) {
    if (!Fits(count) || count > INT32_MAX - skipped || !Fits(skipped + count)) return false;
    if (!Reallocate(skipped + count)) return false;
    if (count > live) std::memset(Raw(data() + live), 0, Bytes(count - live));
    live = count;
    return true;
  }

  // After a read that filled a part of the run: keeps `count` records. Direction 1 keeps the front
  // and cuts the block to size, with skip() 0; any other keeps the back, moves data() forward and
  // keeps the block. 0 empties the run and keeps the block. False, and no change, below 0 or above
  // count().
  bool Shrink(std::int32_t count, std::int32_t direction) {
    if (count < 0 || count > live) return false;
    if (count == live) return true;
    if (count != 0 && direction == 1) {
      if (skipped != 0) std::memmove(Raw(storage), data(), Bytes(count));
      Wipe(storage + count, skipped + live - count);
      skipped = 0;
      live = count;
      // A block that will not move to a smaller one stays as it is: the records are all there.
      Reallocate(count);
      return true;
    }
    Wipe(data(), live - count);
    if (count != 0) skipped += live - count;
    live = count;
    return true;
  }

  // Empties the run; the block stays.
  void Clear() {
    Wipe(data(), live);
    live = 0;
  }

  // Copies `record` behind the last one and returns the new count, or -1 when memory is refused.
  // `record` may lie inside the block.
  std::int32_t Append(const Record& record) {
    const Wiped<Record> copy(record);
    if (!Resize(live + 1)) return -1;
    std::memcpy(Raw(data() + live - 1), &copy, sizeof(Record));
    return live;
  }

  // Moves the later records down by one. False, and no change, for an index out of range. The block
  // keeps its size.
  bool RemoveAt(std::int32_t index) {
    if (!Holds(index)) return false;
    Record* slot = data() + index;
    std::memmove(Raw(slot), slot + 1, Bytes(live - index - 1));
    --live;
    Wipe(data() + live, 1);
    return true;
  }

  // The record at `index`, or null out of range.
  Record* At(std::int32_t index) { return Holds(index) ? data() + index : nullptr; }
  const Record* At(std::int32_t index) const { return Holds(index) ? data() + index : nullptr; }

  bool Holds(std::int32_t index) const { return index >= 0 && index < live; }
  bool IsEmpty() const { return live == 0; }
  std::int32_t count() const { return live; }
  std::int32_t skip() const { return skipped; }
  Record* block() { return storage; }
  Record* data() { return storage != nullptr ? storage + skipped : nullptr; }
  const Record* data() const { return storage != nullptr ? storage + skipped : nullptr; }

  Record* begin() { return data(); }
  Record* end() { return data() + live; }
  const Record* begin() const { return data(); }
  const Record* end() const { return data() + live; }

 private:
  static std::size_t Bytes(std::int32_t count) {
    return static_cast<std::size_t>(count) * sizeof(Record);
  }

  // A server fills most blocks a moment later: a whole block of zeroes would be written twice.
  static void* NewRecords(std::int32_t count) {
    if constexpr (requires(Record record) { record.Blank(); }) {
      auto* const records = static_cast<Record*>(std::malloc(Bytes(count)));
      for (std::int32_t i = 0; records != nullptr && i < count; ++i) records[i].Blank();
      return records;
    } else {
      return std::calloc(static_cast<std::size_t>(count), sizeof(Record));
    }
  }

  static void Wipe(Record* records, std::int32_t count) {
    if constexpr (HoldsPassword<Record>) {
      std::for_each(records, records + count, [](Record& each) { each.WipePassword(); });
    }
  }

  // The block functions take records that have constructors as the bytes they are.
  static void* Raw(Record* records) { return records; }

  static bool Fits(std::int32_t count) {
    return count > 0 && static_cast<std::size_t>(count) <= PTRDIFF_MAX / sizeof(Record);
  }

  bool Reallocate(std::int32_t records) {
    void* moved =
        HoldsPassword<Record> ? MoveTo(records) : std::realloc(Raw(storage), Bytes(records));
    if (moved == nullptr) return false;
    storage = static_cast<Record*>(moved);
    return true;
  }

  // What realloc does, which would leave the records in a block that it frees.
  void* MoveTo(std::int32_t records) {
    void* const moved = std::malloc(Bytes(records));
    const std::int32_t kept = std::min(records, skipped + live);
    if (moved == nullptr || storage == nullptr) return moved;
    std::memcpy(moved, Raw(storage), Bytes(kept));
    Wipe(data(), live);
    std::free(storage);
    return moved;
  }

  Record* storage = nullptr;
  std::int32_t live = 0;
  std::int32_t skipped = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_ENTRY_BLOCK_H_
