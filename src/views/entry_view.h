// A view: the way by which an e-mail book of any size is walked and searched with a few entries in
// memory. The book makes one of three kinds when it is opened and passes its entry operations on:
//
//   CSlidingEntryView   three pages that slide over the book
//   CLetterEntryView    one page with the entries of one first letter
//   CFullEntryView      a small book whole, up to 512 entries
//
// This base holds what they share: the book, the letter census, and the search key. Its own
// operations are those of a view of nothing.
//
// Invariants:
//   1. The census is read once and kept as it was: a view does not see in it what is added to or
//      removed from the book later. Rows stand in the book's order, with counts from 0 to 200,000.
//   2. An entry handed out is good until the view's next operation.
//   3. Where the server fails (a status other than 0, 21 and 4) navigation gives null; the status
//      stays in the agent's last error. 21 and 4 are what reads give that stop short of the book's
//      end or find nothing.
//
// A view without a book gives null, 0 or -1 and makes no call. `exact` compares whole names where
// it is 1, else as many characters as the key has.

#ifndef QUILLKIT_VIEWS_ENTRY_VIEW_H_
#define QUILLKIT_VIEWS_ENTRY_VIEW_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "bridge/records.h"

namespace quillkit {

class CEmailAB;

class CEntryView {
 public:
  explicit CEntryView(std::int32_t size) : pageSize(size) {}
  CEntryView(const CEntryView&) = delete;
  CEntryView& operator=(const CEntryView&) = delete;

  // --- Slots, in this order in every view ---

  virtual ~CEntryView() = default;

  // Stores the book, which must outlive the view; null changes nothing. Whether there is a book: 1
  // or 0. The full view loads the book here.
  virtual int AttachBook(CEmailAB* newBook);

  // Step through the book's order, or go to an index in it. Null where there is no entry.
  virtual CEmailEntry* First() { return nullptr; }
  virtual CEmailEntry* Last() { return nullptr; }
  virtual CEmailEntry* Next() { return nullptr; }
  virtual CEmailEntry* Prev() { return nullptr; }
  virtual CEmailEntry* GetAt(std::int32_t /*index*/) { return nullptr; }

  // Change the book on the server, or what the view shows of it, as the flag says: see each view.
  virtual Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) { return kNoError; }
  virtual Status Remove(CEmailEntry* /*entry*/, std::int32_t /*flag*/) { return kNoError; }
  virtual std::int32_t RemoveAt(std::int32_t /*index*/) { return 0; }

  // Search by name. FindNext, FindPrev and FindNextPrefix go on with the key of the last search.
  virtual CEmailEntry* Find(std::string_view /*key*/, std::int32_t /*flag*/) { return nullptr; }
  virtual CEmailEntry* FindLetter(char /*letter*/) { return nullptr; }
  virtual CEmailEntry* FindNext(std::int32_t /*exact*/) { return nullptr; }
  virtual CEmailEntry* FindPrev(std::int32_t /*exact*/) { return nullptr; }
  virtual CEmailEntry* FindPrefix(std::string_view /*key*/) { return nullptr; }
  virtual CEmailEntry* FindNextPrefix() { return nullptr; }

  virtual Status Modify(CEmailEntry* /*entry*/, std::int32_t /*flag*/) { return kNoError; }
  virtual Status ModifyByKey(std::string_view /*key*/, CEmailEntry* /*entry*/,
                             std::int32_t /*flag*/) {
    return kNoError;
  }

  // Change the server and then the view's entries: see CFullEntryView. Other views do nothing.
  virtual std::int32_t AddLocal(CEmailEntry* /*entry*/) { return 0; }
  virtual std::int32_t ModifyLocal(CEmailEntry* /*entry*/) { return 1; }
  virtual std::int32_t ModifyLocalByKey(std::string_view /*key*/, CEmailEntry* /*entry*/) {
    return 1;
  }
  virtual std::int32_t RemoveLocal(CEmailEntry* /*entry*/) { return 1; }

  // Forgets the entries, so that a search has to ask the server.
  virtual void Reset() {}

  virtual std::int32_t GetPageSize() const { return 0; }
  virtual std::int32_t SetPageSize(std::int32_t /*size*/) { return 0; }

  // Bracket the reads of one step: the book's operations of the same names.
  virtual void BeginAccess();
  virtual void EndAccess();

  // --- Census ---

  // Reads the census unless it is there and `force` is 0: IMSPReadPageBoundaries, for at most 128
  // letters. 0 when it is there; else the call's status, 21 when the book has more letters, which
  // the next call no longer tells. The census is gone where that is neither 0 nor 21. -1 without a
  // book or memory. An empty census counts as read.
  Status LoadBoundaries(std::int32_t force);

  // The four below load the census.

  // 0 where there is none.
  char FirstLetter();

  // The letter behind `letter`. The last letter of the book for itself, and for a letter that the
  // book lacks; 0 for an empty census.
  char NextLetter(char letter);

  // The index of the letter's first entry, or -1 for a letter that the book lacks.
  std::int32_t LetterStart(char letter);

  // Stores the letter whose entries end at or behind the index, and gives the index of its first
  // entry; -1 beyond the census. An index where a letter begins thus gives the letter before it.
  std::int32_t LetterOfIndex(std::int32_t index, char* letter);

  // The census as it stands, with no load: null, and a count of 128, before it was read.
  const PageBoundary* GetBoundaries(std::int32_t* count) const;

  // The server's number of entries: IMSPSizeofAB. -1 without a book.
  Status BookSize(std::uint32_t* size) const;

  CEmailAB* Book() const { return book; }

 protected:
  // 0, 21 and 4, with which a read is good.
  static bool IsGoodRead(Status status);

  // The filter that takes the names beginning with a letter.
  static std::string LetterFilter(char letter) { return {letter, '*'}; }

  // The census's row of exactly this letter, or -1.
  std::int32_t RowOfLetter(char letter) const;

  // The first row with which the sum of the counts reaches `total`, and in `*start` the sum before
  // it; -1 beyond the census.
  std::int32_t RowReaching(std::int64_t total, std::int32_t* start) const;

  // The same for the entry at an index: the row of its letter.
  std::int32_t RowOfEntry(std::int32_t index, std::int32_t* start) const {
    return RowReaching(std::int64_t{index} + 1, start);
  }

  // `entry`, if its name is what the last search looked for; else null.
  CEmailEntry* IfMatches(CEmailEntry* entry, std::int32_t exact) const;

  std::int32_t pageSize;
  EntryBlock<PageBoundary> boundaries;
  CEmailAB* book = nullptr;  // not owned
  std::uint32_t bookSize = 0;
  std::string lastSearch;
  std::int32_t cursor = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_ENTRY_VIEW_H_
