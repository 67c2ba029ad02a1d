// A page: the counted block of e-mail entries that one read of a book fills.
//
// Invariants:
//   1. The records stand in one block (base/entry_block.h). After a short read backwards, Skip() of
//      them stand in it ahead of Data().
//   2. Between Allocate and Fill the page counts its capacity, in blank entries: it is what Fill
//      asks the server for. A page that was read empty has none, and must be attached anew before
//      the next Fill.
//
// Any call that is not const moves or overwrites entries: addresses that were handed out are good
// only until then.

#ifndef QUILLKIT_VIEWS_ENTRY_PAGE_H_
#define QUILLKIT_VIEWS_ENTRY_PAGE_H_

#include <cstdint>
#include <string_view>

#include "base/entry_block.h"
#include "bridge/address_entries.h"
#include "bridge/status.h"

namespace quillkit {

class CEmailAB;

class CEntryPage {
 public:
  CEntryPage() = default;
  virtual ~CEntryPage() = default;
  CEntryPage(const CEntryPage&) = delete;
  CEntryPage& operator=(const CEntryPage&) = delete;

  // Stores the book, which must outlive the page, and allocates. A null book is ignored.
  void Attach(std::int32_t capacity, CEmailAB* newBook);

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

  // Null for an index out of range.
  CEmailEntry* At(std::int32_t index) { return entries.At(index); }
  const CEmailEntry* At(std::int32_t index) const { return entries.At(index); }

  // The new count, or -1 when memory is refused.
  std::int32_t Append(const CEmailEntry& entry) { return entries.Append(entry); }

  // 1, or 0 for an index out of range. UpdateAt stores name and address and clears the flags; 0
  // also for an entry whose texts do not end in their fields. The block keeps its size.
  int UpdateAt(std::int32_t index, const CEmailEntry& entry);
  int RemoveAt(std::int32_t index) { return entries.RemoveAt(index) ? 1 : 0; }

  // --- The page's own walk ---

  // Null on an empty page. Last does not move the position. Next and Prev move it, also past the
  // ends, from where as many steps lead back.
  CEmailEntry* First();
  CEmailEntry* Last() { return At(Count() - 1); }
  CEmailEntry* Next() { return Step(1); }
  CEmailEntry* Prev() { return Step(-1); }

  // --- Search by name ---

  // The first entry of exactly this name, or -1.
  std::int32_t FindName(std::string_view name) const;

  // The first entry from `start` on that matches: by its whole name where `exact` is 1, else by as
  // many characters as the key has. 1, and its index in `*index`; or 0.
  int LinearFind(std::string_view key, std::int32_t start, std::int32_t* index,
                 std::int32_t exact) const;

  // Where the key lies to a page in the order of names, matching as LinearFind. 0: it is here, and
  // its index in `*index`. 1: beyond the page. -1: before the page, or within it and absent. An
  // entry at either edge that matches goes before one inside. 0 on an empty page, with nothing
  // stored.
  int Locate(std::string_view key, std::int32_t* index, std::int32_t exact) const;

  // --- Server ---

  // Reads as many entries as the page counts, from `key` on in `direction` (1: forward, 0: back),
  // of those that `filter` takes: one IMSPReadAB. Its status; the page holds what was delivered,
  // and nothing where the status is 4. Where a failed call leaves the count as it came in, the page
  // holds blank entries. -1, with no call, on a page that counts none or has no book. Texts are cut
  // at 31 characters.
  Status Fill(std::string_view key, std::string_view filter, std::int32_t direction);

 protected:
  EntryBlock<CEmailEntry> entries;

 private:
  CEmailEntry* Step(std::int32_t by);

  CEmailAB* book = nullptr;   // not owned
  std::int32_t position = 0;  // of First, Next and Prev
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_ENTRY_PAGE_H_
