// The view that holds the entries of one first letter and moves from letter to letter. It reads a
// letter in one call, with the capacity that the census gives: its memory is that of the largest
// letter.
//
// Invariants:
//   1. The page holds the entries of one letter, or none before the first load. The cursor is the
//      position in the page.
//   2. letterIndex is the census row of that letter, or the number of rows after a step past the
//      book's last letter, which keeps the page. Last, and a search without a hit, leave it at the
//      earlier letter.
//
// The census is read when it is first needed (IMSPReadPageBoundaries), before the reads that a
// contract lists. If that returns a status other than 0, the operation returns null: for a book of
// more than 128 letters this happens once, and later operations work with its first 128. For a
// letter with a count of 0 the operations return null and make no server call; FindLetter keeps the
// page, the others empty it.
//
// Operations that list no server calls make no server call.

#ifndef QUILLKIT_VIEWS_LETTER_ENTRY_VIEW_H_
#define QUILLKIT_VIEWS_LETTER_ENTRY_VIEW_H_

#include <cstdint>
#include <string_view>

#include "views/entry_page.h"
#include "views/entry_view.h"

namespace quillkit {

class CLetterEntryView : public CEntryView {
 public:
  CLetterEntryView() : CEntryView(0) {}

  // First and FindLetter load a letter and go to its first entry. Find and FindPrefix can load one
  // too. While the page is empty, the other operations of navigation return null and make no server
  // call. Server calls: IMSPReadAB.
  CEmailEntry* First() override;

  // Returns the last entry of the book's last letter. The next step to another letter still starts
  // from the letter at which the view was before this call. Server calls: IMSPReadAB.
  CEmailEntry* Last() override;

  // Make no server call inside the letter. Past the book's last letter, or before its first, they
  // return null, keep the page and set the cursor to 0, so that Next returns the letter's second
  // entry. After a step past the last letter, Prev reads that letter again and goes to its last
  // entry.
  // Server calls: IMSPReadAB at a step to another letter.
  CEmailEntry* Next() override;
  CEmailEntry* Prev() override;

  // Loads the letter of the index. Returns null for an index outside the book or its census.
  // Server calls: IMSPSizeofAB, then IMSPReadAB.
  CEmailEntry* GetAt(std::int32_t index) override;

  // Return -1 and make no server call.
  Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) override { return kRefused; }
  std::int32_t RemoveAt(std::int32_t /*index*/) override { return -1; }

  // Removes nothing and returns -1, after it searched for the entry on the server and, on a hit,
  // stepped past it. Returns 0 and does nothing on an empty page. Use another view to delete.
  // Server calls: those of Find with a flag of 1, then those of the steps past the entry.
  Status Remove(CEmailEntry* entry, std::int32_t flag) override;

  // Search the page if it holds the key's letter, then read that letter and search again. Find with
  // a flag of 1 always reads. The capacity of the read is the count of the first census letter that
  // is not below the key's, compared as signed bytes. Without a hit the new page stays. Return the
  // entry, or null. FindLetter reads the letter; if the census lacks it, returns null and makes no
  // server call.
  // Server calls: at most one IMSPReadAB.
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override;
  CEmailEntry* FindPrefix(std::string_view key) override;
  CEmailEntry* FindLetter(char letter) override;

  // Make one step and return the entry if it matches, otherwise null.
  // Server calls: those of the step, Next or Prev.
  CEmailEntry* FindNext(std::int32_t exact) override { return IfMatches(Next(), exact); }
  CEmailEntry* FindPrev(std::int32_t exact) override { return IfMatches(Prev(), exact); }
  CEmailEntry* FindNextPrefix() override { return FindNext(0); }

  // With a flag of 1 they change the server first; if that fails, they return its status. Otherwise
  // they return 0. In the page, Modify only clears the entry's flags: read the letter again to see
  // the new address. ModifyByKey searches the page for the entry's own name and renames that entry
  // to `key`. On an empty page they return 0 and do nothing.
  // Server calls: IMSPModifyEntry with a flag of 1.
  Status Modify(CEmailEntry* entry, std::int32_t flag) override;
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override;

  // Empties the page.
  void Reset() override { page.Clear(); }

 protected:
  std::int32_t letterIndex = 0;
  CEntryPage page;

 private:
  bool HasEntries() const { return book != nullptr && !page.IsEmpty(); }
  Status FillAndEndAccess(char letter, std::int32_t capacity);
  bool LoadRow(std::int32_t row);
  CEmailEntry* MoveTo(std::int32_t index);
  CEmailEntry* Seek(std::string_view key, std::int32_t exact);
  CEmailEntry* Locate(std::string_view key, std::int32_t exact);
  CEmailEntry* FindInPage(std::string_view name);
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_LETTER_ENTRY_VIEW_H_
