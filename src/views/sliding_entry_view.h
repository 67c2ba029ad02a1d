// The view of a book of any size: a span of three consecutive pages that slides over the book.
// Steps inside the span cost nothing; a step off either end reads the span anew in the direction of
// travel, and a jump reads it around its target, so that there is context on both sides.
//
// Invariants:
//   1. In the order low, middle, high the pages hold consecutive entries of the book in ascending
//      order. Any of them may be empty.
//   2. The position is an index in one of the pages, or there is none before the first load. It may
//      stand where no entry is. In a page with entries it is then beside them, and a step goes on
//      from there; in an empty page the view has run off, and Next and Prev give null until First,
//      GetAt, FindLetter, Find or FindPrefix.
//
// How the ends look: a step behind the book's last entry, or before its first, is tried on the
// server, finds nothing and loses the span. Where a page behind the current one is empty, Next
// moves onto it and gives null with no call. Neither is recovered by stepping back.
//
// Invariant 1 holds for an honest server. Of the reads of one load only the last one's status
// counts; an earlier one that fails shows in its page alone.

#ifndef QUILLKIT_VIEWS_SLIDING_ENTRY_VIEW_H_
#define QUILLKIT_VIEWS_SLIDING_ENTRY_VIEW_H_

#include <cstdint>
#include <string_view>

#include "views/entry_page.h"
#include "views/entry_view.h"

namespace quillkit {

class CSlidingEntryView : public CEntryView {
 public:
  // `size` is the entries of one page, and of one read. A size that is not above 0 finds nothing.
  explicit CSlidingEntryView(std::int32_t size) : CEntryView(size) {}

  // Three reads at most, ascending from the beginning.
  CEmailEntry* First() override;

  // IMSPSizeofAB, and then GetAt of the last index.
  CEmailEntry* Last() override;

  // No call inside the span, at most three reads off its ends. Where that fails Next stays behind
  // the span's last entry, and Prev before its first.
  CEmailEntry* Next() override;
  CEmailEntry* Prev() override;

  // IMSPSizeofAB, the census the first time, one read to learn the name at the index, and at most
  // three for the span around it. Where the census, or the server at that index, knows less than
  // the size says, and for a census of 128 letters that has more, the entry at the position is
  // given as it was.
  CEmailEntry* GetAt(std::int32_t index) override;

  // Always -1.
  Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) override { return kRefused; }
  std::int32_t RemoveAt(std::int32_t /*index*/) override { return -1; }

  // Flag 0: finds the entry, asking the server, and takes it out of the span: 0, or 4 for a miss.
  // The steps then go to its neighbours; where it was alone in its page, as the book's first and
  // last entries are, the view has run off. Any other flag: deletes it on the server alone, and
  // gives that status. -1 without a book.
  Status Remove(CEmailEntry* entry, std::int32_t flag) override;

  // Look in the span and, for a miss, read the span around the key and look again; Find with a flag
  // of 1 does so at once. The position moves on a hit alone. Equal prefixes are neighbours, so the
  // Next forms take one step and give it when it matches: the position has moved in either case.
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override;
  CEmailEntry* FindPrefix(std::string_view key) override;
  CEmailEntry* FindNext(std::int32_t exact) override;
  CEmailEntry* FindPrev(std::int32_t exact) override;
  CEmailEntry* FindNextPrefix() override { return FindNext(0); }

  // Reads the letter's entries alone into the span; stepping on later leaves the letter. For a
  // letter that the book lacks null, with an empty span. NUL and '*' stand for every letter.
  CEmailEntry* FindLetter(char letter) override;

  // With a flag of 1 the server is changed first, and a failure is the result. Else 0, after the
  // span's entry of the name was changed, and the position moved to it, if it is in the span.
  // Modify stores name and address and clears the flags. ModifyByKey looks for the entry's own name
  // and gives what it finds the name `key`.
  Status Modify(CEmailEntry* entry, std::int32_t flag) override;
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override;

  // Empties the pages; the position stays.
  void Reset() override;

  std::int32_t GetPageSize() const override { return pageSize; }

  // `size`, with three pages of so many blank entries, or 0 for a size that is not above 0. The
  // size is not stored: the next load has pages of the old one.
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
  void AttachPages(std::int32_t capacity);

  Status PositionAt(std::int32_t index);
  CEmailEntry* Seek(std::string_view key, std::int32_t exact);
  CEmailEntry* SearchPages(std::string_view key, std::int32_t exact);
  CEmailEntry* StandAt(CEntryPage& page, std::int32_t index);
  CEmailEntry* StandAtEnd(CEntryPage& page);
  CEmailEntry* Current() const;
  bool IsSpanEmpty() const;
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_SLIDING_ENTRY_VIEW_H_
