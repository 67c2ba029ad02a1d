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
    std::swap(block_, other.block_);
    std::swap(count_, other.count_);
    std::swap(skip_, other.skip_);
  }

  // Releases the block; everything is 0 afterwards.
  void Free() {
    Wipe(data(), count_);
    std::free(block_);
    block_ = nullptr;
    count_ = 0;
    skip_ = 0;
  }

  // Replaces the block by one of `count` blank records, all of them live. False, and no block,
  // when `count` is not above 0 or the memory is refused.
  bool Allocate(std::int32_t count) {
    Free();
    if (!Fits(count)) return false;
    block_ = static_cast<Record*>(NewRecords(count));
    if (block_ != nullptr) count_ = count;
    return block_ != nullptr;
  }

  // Makes `count` records live, keeping skip() and the records that fit. False, and no change, when
  // `count` is not above 0 or the memory is refused.
  bool Resize(std::int32_t count) {
    if (!Fits(count) || count > INT32_MAX - skip_ || !Fits(skip_ + count)) return false;
    if (!Reallocate(skip_ + count)) return false;
    if (count > count_) std::memset(Raw(data() + count_), 0, Bytes(count - count_));
    count_ = count;
    return true;
  }

  // After a read that filled a part of the run: keeps `count` records. Direction 1 keeps the front
  // and cuts the block to size, with skip() 0; any other keeps the back, moves data() forward and
  // keeps the block. 0 empties the run and keeps the block. False, and no change, below 0 or above
  // count().
  bool Shrink(std::int32_t count, std::int32_t direction) {
    if (count < 0 || count > count_) return false;
    if (count == count_) return true;
    if (count != 0 && direction == 1) {
      if (skip_ != 0) std::memmove(Raw(block_), data(), Bytes(count));
      Wipe(block_ + count, skip_ + count_ - count);
      skip_ = 0;
      count_ = count;
      // A block that will not move to a smaller one stays as it is: the records are all there.
      Reallocate(count);
      return true;
    }
    Wipe(data(), count_ - count);
    if (count != 0) skip_ += count_ - count;
    count_ = count;
    return true;
  }

  // Empties the run; the block stays.
  void Clear() {
    Wipe(data(), count_);
    count_ = 0;
  }

  // Copies `record` behind the last one and returns the new count, or -1 when memory is refused.
  // `record` may lie inside the block.
  std::int32_t Append(const Record& record) {
    const Wiped<Record> copy(record);
    if (!Resize(count_ + 1)) return -1;
    std::memcpy(Raw(data() + count_ - 1), &copy, sizeof(Record));
    return count_;
  }

  // Moves the later records down by one. False, and no change, for an index out of range. The block
  // keeps its size.
  bool RemoveAt(std::int32_t index) {
    if (!Holds(index)) return false;
    Record* slot = data() + index;
    std::memmove(Raw(slot), slot + 1, Bytes(count_ - index - 1));
    --count_;
    Wipe(data() + count_, 1);
    return true;
  }

  // The record at `index`, or null out of range.
  Record* At(std::int32_t index) { return Holds(index) ? data() + index : nullptr; }
  const Record* At(std::int32_t index) const { return Holds(index) ? data() + index : nullptr; }

  bool Holds(std::int32_t index) const { return index >= 0 && index < count_; }
  bool IsEmpty() const { return count_ == 0; }
  std::int32_t count() const { return count_; }
  std::int32_t skip() const { return skip_; }
  Record* block() { return block_; }
  Record* data() { return block_ != nullptr ? block_ + skip_ : nullptr; }
  const Record* data() const { return block_ != nullptr ? block_ + skip_ : nullptr; }

  Record* begin() { return data(); }
  Record* end() { return data() + count_; }
  const Record* begin() const { return data(); }
  const Record* end() const { return data() + count_; }

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
        HoldsPassword<Record> ? MoveTo(records) : std::realloc(Raw(block_), Bytes(records));
    if (moved == nullptr) return false;
    block_ = static_cast<Record*>(moved);
    return true;
  }

  // What realloc does, which would leave the records in a block that it frees.
  void* MoveTo(std::int32_t records) {
    void* const moved = std::malloc(Bytes(records));
    const std::int32_t kept = std::min(records, skip_ + count_);
    if (moved == nullptr || block_ == nullptr) return moved;
    std::memcpy(moved, Raw(block_), Bytes(kept));
    Wipe(data(), count_);
    std::free(block_);
    return moved;
  }

  Record* block_ = nullptr;
  std::int32_t count_ = 0;
  std::int32_t skip_ = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BASE_ENTRY_BLOCK_H_
