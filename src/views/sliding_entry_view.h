// The view of a book of any size: a span of three consecutive pages that slides over the book. A
// step inside the span makes no server call. A step past either end reads a new span in the
// direction of travel. A jump reads the span around its target, so that entries on both sides are
// in memory.
//
// Invariants:
//   1. In the order low, middle, high, the pages hold consecutive entries of the book in ascending
//      order. Any page may be empty.
//   2. The position is an index in one of the pages; before the first load there is none. It may be
//      an index without an entry. In a page with entries it is then next to them, and a step
//      continues from there. In an empty page, Next and Prev return null until First, GetAt,
//      FindLetter, Find or FindPrefix.
//
// At the ends: a step past the book's last entry, or before its first, reads from the server, finds
// nothing and loses the span. If the page after the current one is empty, Next moves to it, returns
// null and makes no server call. In both cases, stepping back does not recover the position.
//
// Invariant 1 assumes a correct server. Of the reads of one load, only the last status is returned;
// if an earlier read fails, only its page shows it.
//
// Operations that list no server calls make no server call.

#ifndef QUILLKIT_VIEWS_SLIDING_ENTRY_VIEW_H_
#define QUILLKIT_VIEWS_SLIDING_ENTRY_VIEW_H_

#include <cstdint>
#include <string_view>

#include "views/entry_page.h"
#include "views/entry_view.h"

namespace quillkit {

class CSlidingEntryView : public CEntryView {
 public:
  // `size` is the number of entries of a page, and of a read. With a size of 0 or less the view
  // finds nothing.
  explicit CSlidingEntryView(std::int32_t size) : CEntryView(size) {}

  // Reads the span from the beginning and returns the first entry, or null if there is none.
  // Server calls: at most three IMSPReadAB.
  CEmailEntry* First() override;

  // GetAt of the last index; null for an empty book.
  // Server calls: IMSPSizeofAB, then those of GetAt.
  CEmailEntry* Last() override;

  // Make no server call inside the span. If the reads past its ends fail, Next stays after the
  // span's last entry, and Prev before its first.
  // Server calls: at most three IMSPReadAB past the ends.
  CEmailEntry* Next() override;
  CEmailEntry* Prev() override;

  // Returns null for an index outside the book. Returns the entry at the old position if the census
  // or the read has no entry at this index, or if this call reads a census of over 128 letters.
  // Server calls: IMSPSizeofAB, IMSPReadPageBoundaries the first time, one IMSPReadAB for the name
  // at the index, and at most three for the span around it.
  CEmailEntry* GetAt(std::int32_t index) override;

  // Return -1 and make no server call.
  Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) override { return kRefused; }
  std::int32_t RemoveAt(std::int32_t /*index*/) override { return -1; }

  // Flag 0: searches for the entry with Find and removes it from the span only. Returns 0, or 4 if
  // it was not found. Steps then go to its neighbours. If it was alone in its page, as the book's
  // first and last entries can be, the position is in an empty page.
  // Any other flag: deletes the entry on the server only. Returns the status.
  // Returns -1 without a book.
  // Server calls: at most three IMSPReadAB (flag 0) or IMSPDeleteEntry.
  Status Remove(CEmailEntry* entry, std::int32_t flag) override;

  // Search the span, then read the span around the key and search again. Find with a flag of 1
  // always reads. The position moves on a hit only. Names with a common prefix are neighbours:
  // FindNext, FindPrev and FindNextPrefix make one step, hit or not, and return the entry if it
  // matches. Without a hit they all return null.
  // Server calls: at most three IMSPReadAB.
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override;
  CEmailEntry* FindPrefix(std::string_view key) override;
  CEmailEntry* FindNext(std::int32_t exact) override;
  CEmailEntry* FindPrev(std::int32_t exact) override;
  CEmailEntry* FindNextPrefix() override { return FindNext(0); }

  // Reads only the letter's entries into the span; later steps past its ends leave the letter.
  // Returns null, with an empty span, if the book has no such letter. NUL means any letter.
  // Server calls: at most three IMSPReadAB.
  CEmailEntry* FindLetter(char letter) override;

  // With a flag of 1 they change the server first; if that fails, they return its status. Otherwise
  // they return 0. If the span has an entry of the name of `entry`, they change it and move the
  // position to it: Modify copies name and address and clears the flags; ModifyByKey renames it to
  // `key`. Server calls: IMSPModifyEntry with a flag of 1.
  Status Modify(CEmailEntry* entry, std::int32_t flag) override;
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override;

  // Empties the pages and keeps the position.
  void Reset() override;

  // Returns the size that was passed to the constructor.
  std::int32_t GetPageSize() const override { return pageSize; }

  // Allocates three pages of `size` blank entries and returns `size`; or returns 0 for a size of 0
  // or less. The size is not stored: the next load uses the old one.
  std::int32_t SetPageSize(std::int32_t size) override;

 protected:
  CEntryPage lowPage;
  CEntryPage midPage;
  CEntryPage highPage;
  CEntryPage* currentPage = nullptr;  // one of the three
  std::int32_t currentIndex = 0;

 private:
  template <class Read>
  Status LoadSpan(Read read);
  Status LoadUp(EntryKey key, std::string_view filter);
  Status LoadDown(EntryKey key);
  Status LoadAround(EntryKey key, bool* endsAtKey);
  static Status ReadOnward(CEntryPage& first, CEntryPage& second, CEntryPage& third,
                           const EntryKey& key, std::string_view filter, std::int32_t direction);
  Status ReadAround(std::string_view key, bool* endsAtKey);

  Status PositionAt(std::int32_t index);
  CEmailEntry* Seek(std::string_view key, std::int32_t exact);
  CEmailEntry* SearchPages(std::string_view key, std::int32_t exact);
  CEmailEntry* NextPage();
  CEmailEntry* MoveTo(CEntryPage& page, std::int32_t index);
  CEmailEntry* MoveToEnd(CEntryPage& page);
  CEmailEntry* Current() const;
  bool IsSpanEmpty() const;
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_SLIDING_ENTRY_VIEW_H_
