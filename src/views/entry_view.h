// A view: walks and searches an e-mail book of any size with a few entries in memory. The book
// creates one of three kinds when it is opened, and forwards its entry operations to it:
//
//   CSlidingEntryView   three pages that slide over the book
//   CLetterEntryView    one page with the entries of one first letter
//   CFullEntryView      a whole small book, up to 512 entries
//
// This base class has what they share: the book, the letter census and the search key. Its own
// operations are those of a view of no entries.
//
// Invariants:
//   1. The census is read once and then kept: a view does not see later changes of the book in it.
//      Its rows are in the book's order, with counts from 0 to 200,000.
//   2. An entry is valid until the next operation on the view.
//   3. If the server fails (a status other than 0, 21 and 4), navigation returns null; the status
//      is the agent's last error. Reads return 21 if more entries follow, and 4 if there are none.
//   4. If the memory for a page or the census cannot be allocated, navigation and the reads of the
//      census throw std::bad_alloc: null would mean the end of the book. The view stays usable.
//
// Without a book, operations return null, 0 or -1 and make no server call. Operations that list no
// server calls make no server call. `exact` compares whole names if it is 1, otherwise the
// beginnings of names.

#ifndef QUILLKIT_VIEWS_ENTRY_VIEW_H_
#define QUILLKIT_VIEWS_ENTRY_VIEW_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "base/entry_block.h"
#include "views/entry_page.h"
#include "views/entry_source.h"

namespace quillkit {

class CEntryView {
 public:
  explicit CEntryView(std::int32_t size) : pageSize(size) {}
  CEntryView(const CEntryView&) = delete;
  CEntryView& operator=(const CEntryView&) = delete;

  // --- Virtual operations, in this order in every view ---
  //
  // Each view describes the results and server calls that differ from these. The view owns the
  // entries that it returns.

  virtual ~CEntryView() = default;

  // Stores the book, which must outlive the view; null changes nothing. Returns 1 if there is a
  // book, otherwise 0. The full view loads the book here, with its server calls.
  virtual int AttachBook(EntrySource* newBook);

  // Step through the book's order, or go to an index in it, which starts at 0. Return null if there
  // is no entry.
  virtual CEmailEntry* First() { return nullptr; }
  virtual CEmailEntry* Last() { return nullptr; }
  virtual CEmailEntry* Next() { return nullptr; }
  virtual CEmailEntry* Prev() { return nullptr; }
  virtual CEmailEntry* GetAt(std::int32_t /*index*/) { return nullptr; }

  // Change the book on the server, or the entries of the view, depending on the flag: see each
  // view. Here they do nothing and return 0.
  virtual Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) { return kNoError; }
  virtual Status Remove(CEmailEntry* /*entry*/, std::int32_t /*flag*/) { return kNoError; }
  virtual std::int32_t RemoveAt(std::int32_t /*index*/) { return 0; }

  // Search by name. FindNext, FindPrev and FindNextPrefix use the key of the latest search. Return
  // the entry, or null.
  virtual CEmailEntry* Find(std::string_view /*key*/, std::int32_t /*flag*/) { return nullptr; }
  virtual CEmailEntry* FindLetter(char /*letter*/) { return nullptr; }
  virtual CEmailEntry* FindNext(std::int32_t /*exact*/) { return nullptr; }
  virtual CEmailEntry* FindPrev(std::int32_t /*exact*/) { return nullptr; }
  virtual CEmailEntry* FindPrefix(std::string_view /*key*/) { return nullptr; }
  virtual CEmailEntry* FindNextPrefix() { return nullptr; }

  // Replace an entry: see each view. Here they do nothing and return 0.
  virtual Status Modify(CEmailEntry* /*entry*/, std::int32_t /*flag*/) { return kNoError; }
  virtual Status ModifyByKey(std::string_view /*key*/, CEmailEntry* /*entry*/,
                             std::int32_t /*flag*/) {
    return kNoError;
  }

  // Change the server and then the view's entries: see CFullEntryView. Other views do nothing and
  // return 0 (AddLocal) or 1.
  virtual std::int32_t AddLocal(CEmailEntry* /*entry*/) { return 0; }
  virtual std::int32_t ModifyLocal(CEmailEntry* /*entry*/) { return 1; }
  virtual std::int32_t ModifyLocalByKey(std::string_view /*key*/, CEmailEntry* /*entry*/) {
    return 1;
  }
  virtual std::int32_t RemoveLocal(CEmailEntry* /*entry*/) { return 1; }

  // Discards the entries, so that the next search reads from the server.
  virtual void Reset() {}

  // Return 0, except in a CSlidingEntryView.
  virtual std::int32_t GetPageSize() const { return 0; }
  virtual std::int32_t SetPageSize(std::int32_t /*size*/) { return 0; }

  // Called before and after the reads of one step: call those of the book.
  virtual void BeginAccess();
  virtual void EndAccess();

  // --- Census ---

  // Reads the census, of at most 128 letters, unless it is present and `force` is 0. An empty
  // census counts as present. Returns 0 if it is present; otherwise the status of the call, with 21
  // if the book has more letters. A status other than 0 and 21 discards the census. Returns -1
  // without a book. Server calls: IMSPReadPageBoundaries.
  Status LoadBoundaries(std::int32_t force);

  // The four operations below load the census. Server calls: those of LoadBoundaries(0).

  // Returns 0 for an empty census.
  char FirstLetter();

  // Returns the letter after `letter`; the last letter of the book if `letter` is the last one or
  // absent; 0 for an empty census.
  char NextLetter(char letter);

  // Returns the index of the letter's first entry, or -1 if the book has no such letter.
  std::int32_t LetterStart(char letter);

  // Stores in `*letter` the first letter whose entries end at or after `index`, and returns the
  // index of its first entry: for an index where a letter starts, that is the letter before it.
  // Returns -1, with `*letter` unchanged, for an index beyond the census.
  std::int32_t LetterOfIndex(std::int32_t index, char* letter);

  // Returns the census without loading it, and stores the number of its rows in `*count`. Owned by
  // the view; valid until the census is read again. Before it was read: null, and a count of 128.
  const PageBoundary* GetBoundaries(std::int32_t* count) const;

  // Stores the number of entries on the server in `*size`. Returns the status, or -1 without a
  // book. Server calls: IMSPSizeofAB.
  Status BookSize(std::uint32_t* size) const;

  EntrySource* Book() const { return book; }

 protected:
  // Returns whether the status of a read is 0, 21 or 4.
  static bool HasDelivered(Status status);

  // Returns the filter that matches the names starting with a letter.
  static std::string LetterFilter(char letter) { return {letter, '*'}; }

  // Attaches a page to the book, if there is one, for a Fill that follows.
  void AttachPage(CEntryPage& page, std::int32_t capacity) const {
    if (book != nullptr) page.AttachToRead(capacity, book->Entries());
  }

  // Returns the row of exactly this letter, or -1.
  std::int32_t RowOfLetter(char letter) const;

  // Returns the first row at which the sum of the counts reaches `total`, and stores the sum before
  // it in `*start`; -1 if the census ends before.
  std::int32_t RowReaching(std::int64_t total, std::int32_t* start) const;

  // The same for an entry's index: returns the row of its letter.
  std::int32_t RowOfEntry(std::int32_t index, std::int32_t* start) const {
    return RowReaching(std::int64_t{index} + 1, start);
  }

  // Returns `entry` if its name matches the key of the latest search, otherwise null.
  CEmailEntry* IfMatches(CEmailEntry* entry, std::int32_t exact) const;

  std::int32_t pageSize;
  EntryBlock<PageBoundary> boundaries;
  EntrySource* book = nullptr;  // not owned
  std::uint32_t bookSize = 0;
  std::string lastSearch;
  std::int32_t cursor = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_ENTRY_VIEW_H_
