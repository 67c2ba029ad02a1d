// A block of records in memory, for soft keys, user lists, entry pages, fax entries and lists.
//
// Invariants:
//   1. data() is block() plus skip() records; both are null without a block.
//   2. count() records from data() on are live, and are inside the block.
//   3. Records are trivially copyable and are moved bytewise. The block comes from the C allocator,
//      so that it can be resized in place. New records are zero in a new block and after Resize().
//      In a reused block, Allocate() calls Blank(), which may leave bytes of an earlier record
//      after the NUL of a text. AllocateToRead() leaves the records of earlier reads: one that the
//      server counts and does not write is blank or an earlier record, perhaps of another list.
//   4. Records from `dirty` on are blank, except one that was written beyond the count of a read.
//   5. A record with a password is wiped as soon as it is not live, and in the memory that it was
//      moved from.
//
// Every call that is not const may move or overwrite records: addresses from data() and At() are
// valid until then.

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
    std::swap(capacity, other.capacity);
    std::swap(dirty, other.dirty);
    std::swap(live, other.live);
    std::swap(skipped, other.skipped);
  }

  // Releases the block. All counts are 0 afterwards.
  void Free() {
    Wipe(data(), live);
    std::free(storage);
    storage = nullptr;
    capacity = 0;
    dirty = 0;
    live = 0;
    skipped = 0;
  }

  // Replaces the records by `count` blank ones. Reuses the block if they fit and fill at least half
  // of it. Returns false and leaves no block if `count` is not above 0 or the allocation fails.
  bool Allocate(std::int32_t count) {
    if (!Renew(count)) return false;
    BlankAll();
    dirty = 0;
    return true;
  }

  // Like Allocate(), for records that a read overwrites: in a reused block all keep what they held,
  // except the first and the last. After the read, call KeepDelivered().
  bool AllocateToRead(std::int32_t count) {
    static_assert(!HoldsPassword<Record>, "the records are not wiped");
    if (!Renew(count)) return false;
    Blank(begin(), begin() + 1);
    Blank(end() - 1, end());
    return true;
  }

  // After a read into the records, keeps the `count` that it delivered, as Shrink(), and zeroes the
  // others that may not be blank.
  bool KeepDelivered(std::int32_t count, std::int32_t direction) {
    if (!Keep(count, direction)) return false;
    Zero(storage, std::min(skipped, dirty));
    if (dirty > skipped + live) Zero(data() + live, dirty - skipped - live);
    dirty = skipped + live;
    return true;
  }

  // Makes all live records blank.
  void BlankAll() { Blank(begin(), end()); }

  // Changes the number of live records to `count`; keeps skip() and the records that fit. Returns
  // false and changes nothing if `count` is not above 0 or the allocation fails.
  bool Resize(std::int32_t count) {
    if (!Fits(count) || count > INT32_MAX - skipped || !Fits(skipped + count)) return false;
    const bool hasRoom = count > live && skipped + count <= capacity;
    if (!hasRoom && !Reallocate(skipped + count)) return false;
    if (count > live) Zero(data() + live, count - live);
    live = count;
    dirty = DirtyOrLive();
    return true;
  }

  // Keeps `count` of the live records. Direction 1 keeps the first ones and sets skip() to 0. Any
  // other direction keeps the last ones: it moves data() forward. The block stays, for the next
  // read. Returns false and changes nothing for a count below 0 or above count().
  bool Shrink(std::int32_t count, std::int32_t direction) {
    dirty = DirtyOrLive();
    return Keep(count, direction);
  }

  // Takes over the block of `other`, which then has none, for the next Allocate(). Leaves no live
  // records.
  void TakeBlock(EntryBlock& other) {
    Swap(other);
    other.Free();
    Clear();
  }

  // Leaves no live records. Keeps the block.
  void Clear() { Shrink(0, 1); }

  // Appends a copy of `record`, which may be inside the block. Returns the new count, or -1 if the
  // allocation fails.
  std::int32_t Append(const Record& record) {
    const Wiped<Record> copy(record);
    if (skipped + live == capacity) Grow();
    if (!Resize(live + 1)) return -1;
    const Record& appended = copy;
    std::memcpy(Raw(data() + live - 1), &appended, sizeof appended);
    return live;
  }

  // Removes the record at `index` and moves the later ones down; the block keeps its size. Returns
  // false and changes nothing for an index out of range.
  bool RemoveAt(std::int32_t index) {
    if (!Holds(index)) return false;
    dirty = DirtyOrLive();
    Record* slot = data() + index;
    std::memmove(Raw(slot), slot + 1, Bytes(live - index - 1));
    --live;
    Wipe(data() + live, 1);
    return true;
  }

  // Returns the record at `index`, or null for an index out of range.
  Record* At(std::int32_t index) { return Holds(index) ? storage + (skipped + index) : nullptr; }
  const Record* At(std::int32_t index) const {
    return Holds(index) ? storage + (skipped + index) : nullptr;
  }

  // One comparison: as an unsigned number, a negative index is above every count.
  bool Holds(std::int32_t index) const {
    return static_cast<std::uint32_t>(index) < static_cast<std::uint32_t>(live);
  }
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

  // Returns whether `count` records fit and fill at least half of the block.
  bool CanReuse(std::int32_t count) const {
    return count > 0 && count <= capacity && count >= capacity - capacity / 2;
  }

  // Makes `count` records live. Those before `dirty` may not be blank.
  bool Renew(std::int32_t count) {
    if (!CanReuse(count)) return AllocateNew(count);
    dirty = DirtyOrLive();
    if (dirty > count) Blank(storage + count, storage + dirty);
    dirty = std::min(dirty, count);
    skipped = 0;
    live = count;
    return true;
  }

  bool AllocateNew(std::int32_t count) {
    Free();
    if (!Fits(count)) return false;
    storage = static_cast<Record*>(std::calloc(static_cast<std::size_t>(count), sizeof(Record)));
    if (storage != nullptr) capacity = live = count;
    return storage != nullptr;
  }

  // `dirty` does not count live records that were blank when Allocate() or AllocateToRead() made
  // them. Every other call counts all live records, because they may have been written since.
  std::int32_t DirtyOrLive() const { return std::max(dirty, skipped + live); }

  bool Keep(std::int32_t count, std::int32_t direction) {
    if (count < 0 || count > live) return false;
    if (count == live) return true;
    const std::int32_t surplus = live - count;
    if (count != 0 && direction == 1) {
      if (skipped != 0) std::memmove(Raw(storage), data(), Bytes(count));
      Wipe(storage + count, skipped + surplus);
      skipped = 0;
    } else {
      Wipe(data(), surplus);
      if (count != 0) skipped += surplus;
    }
    live = count;
    return true;
  }

  static void Zero(Record* records, std::int32_t count) {
    if (count > 0) std::memset(Raw(records), 0, Bytes(count));
  }

  static void Blank(Record* first, Record* last) {
    std::for_each(first, last, [](Record& each) { each.Blank(); });
  }

  static void Wipe(Record* records, std::int32_t count) {
    if constexpr (HoldsPassword<Record>) {
      std::for_each(records, records + count, [](Record& each) { each.WipePassword(); });
    }
  }

  // Converts to void*: compilers warn about memmove of a type that has constructors.
  static void* Raw(Record* records) { return records; }

  static bool Fits(std::int32_t count) {
    return count > 0 && static_cast<std::size_t>(count) <= PTRDIFF_MAX / sizeof(Record);
  }

  // Makes room for half as many records again, if it can, so that additions one by one copy few
  // records.
  void Grow() {
    const std::int64_t records = std::int64_t{capacity} + capacity / 2 + 1;
    if (records <= INT32_MAX && Fits(static_cast<std::int32_t>(records))) {
      Reallocate(static_cast<std::int32_t>(records));
    }
  }

  bool Reallocate(std::int32_t records) {
    void* moved =
        HoldsPassword<Record> ? MoveTo(records) : std::realloc(Raw(storage), Bytes(records));
    if (moved == nullptr) return false;
    storage = static_cast<Record*>(moved);
    capacity = records;
    const std::int32_t kept = std::min(records, skipped + live);
    std::memset(Raw(storage + kept), 0, Bytes(records - kept));
    dirty = kept;
    return true;
  }

  // Like realloc, but wipes the records in the old block.
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
  std::int32_t capacity = 0;  // of the block, in records
  std::int32_t dirty = 0;     // records from the start of the block that may not be blank
  std::int32_t live = 0;
  std::int32_t skipped = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_ENTRY_BLOCK_H_
