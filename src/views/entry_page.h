// A page: a block of e-mail entries that one read of a book fills.
//
// Invariants:
//   1. The records are in one block (base/entry_block.h). After a short read backwards, Skip()
//      unused records precede Data() in it.
//   2. Between Allocate and Fill, Count() is the capacity, and all entries are blank or, after
//      AttachToRead, from an earlier read. Fill asks the server for that number. A page that was
//      read empty has no capacity: attach it again before the next Fill.
//
// A pointer to an entry is valid until the next non-const call. Only Fill makes a server call.

#ifndef QUILLKIT_VIEWS_ENTRY_PAGE_H_
#define QUILLKIT_VIEWS_ENTRY_PAGE_H_

#include <cstdint>
#include <optional>
#include <string_view>

#include "appliance/book_access.h"
#include "base/entry_block.h"

namespace quillkit {

class CEntryPage {
 public:
  CEntryPage() = default;
  virtual ~CEntryPage() = default;
  CEntryPage(const CEntryPage&) = delete;
  CEntryPage& operator=(const CEntryPage&) = delete;

  // Stores the access to the book's entries, whose agent must outlive the page, and allocates.
  // Throws std::bad_alloc if a capacity above 0 cannot be allocated.
  void Attach(std::int32_t capacity, const BookAccess<CEmailEntry>& newBook);

  // The same for a Fill that follows at once: the entries stay what they were.
  void AttachToRead(std::int32_t capacity, const BookAccess<CEmailEntry>& newBook);

  // --- The block: as EntryBlock ---

  bool Allocate(std::int32_t capacity) { return entries.Allocate(capacity); }
  bool Resize(std::int32_t count) { return entries.Resize(count); }
  bool Shrink(std::int32_t count, std::int32_t direction) {
    return entries.Shrink(count, direction);
  }
  void Free() { entries.Free(); }
  void Clear() { entries.Clear(); }

  std::int32_t Count() const { return entries.count(); }
  std::int32_t Skip() const { return entries.skip(); }
  bool IsEmpty() const { return entries.IsEmpty(); }
  CEmailEntry* Data() { return entries.data(); }

  // Returns null for an index out of range.
  CEmailEntry* At(std::int32_t index) { return entries.At(index); }
  const CEmailEntry* At(std::int32_t index) const { return entries.At(index); }

  // Returns the new count, or -1 without memory.
  std::int32_t Append(const CEmailEntry& entry) { return entries.Append(entry); }

  // Return 1, or 0 for an index out of range. UpdateAt copies name and address and clears the
  // flags; it also returns 0 if a text of `entry` is not terminated in its field. RemoveAt keeps
  // the size of the block.
  int UpdateAt(std::int32_t index, const CEmailEntry& entry);
  int RemoveAt(std::int32_t index) { return entries.RemoveAt(index) ? 1 : 0; }

  // --- The page's own walk ---

  // Return null on an empty page. Last does not move the position. Next and Prev move it, also past
  // the ends; the same number of steps leads back.
  CEmailEntry* First();
  CEmailEntry* Last() { return At(Count() - 1); }
  CEmailEntry* Next() { return Step(1); }
  CEmailEntry* Prev() { return Step(-1); }

  // --- Search by name ---

  // Returns the index of the first entry with exactly this name, or -1.
  std::int32_t FindName(std::string_view name) const;

  // Searches from `start` for the first entry that matches: the whole name if `exact` is 1,
  // otherwise its beginning. Returns 1 and stores the index in `*index`; or returns 0.
  int LinearFind(std::string_view key, std::int32_t start, std::int32_t* index,
                 std::int32_t exact) const;

  // Searches a page that is in the order of names. Matches as LinearFind; prefers a match at either
  // edge to one inside. Returns
  //    0  found, index in `*index`; also on an empty page, with `*index` unchanged
  //    1  the key is after the page
  //   -1  the key is before the page, or within its range and absent
  int Locate(std::string_view key, std::int32_t* index, std::int32_t exact) const;

  // --- Server ---

  // Reads Count() entries that match `filter`, in `direction` (1: forward from after `key`, 0:
  // backward from before it). `key` and `filter` are truncated to 31 bytes. The page then holds
  // what was delivered, and nothing if the status is 4. If a failed call leaves the count
  // and the entries unchanged, the page holds blank entries. Returns the status. Returns -1 and
  // makes no server call if Count() is 0 or the page was never attached. Server calls: IMSPReadAB.
  Status Fill(std::string_view key, std::string_view filter, std::int32_t direction);

 protected:
  EntryBlock<CEmailEntry> entries;

 private:
  CEmailEntry* Step(std::int32_t by);

  std::optional<BookAccess<CEmailEntry>> book;
  std::int32_t position = 0;  // of First, Next and Prev
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_ENTRY_PAGE_H_
