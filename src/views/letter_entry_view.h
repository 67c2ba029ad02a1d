// The view that holds the entries of one first letter, read whole at the number that the census
// gives, and moves from letter to letter. Its memory is the largest letter.
//
// Invariants:
//   1. The page holds the entries of one letter, or of none before the first load. The position is
//      the cursor in it.
//   2. letterIndex is the census's row of that letter, or the number of rows behind the book's last
//      letter, with the page still there. Last and a seek that misses leave it at the letter
//      before.
//
// The census is read when first needed. Where that gives another status than 0 the operation gives
// null: a book of more than 128 letters does so once, and shows its first 128 from then on. A
// letter for which the census counts none gives null with no call: FindLetter leaves the page, the
// others empty it.

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

  // First and FindLetter load a letter and stand on its first entry. The others give null until a
  // letter has been loaded.
  CEmailEntry* First() override;

  // The last entry of the book's last letter. The step across a letter that comes next goes from
  // the letter where the view stood before.
  CEmailEntry* Last() override;

  // No call inside the letter, one read at its ends. Behind the book's last letter, or before its
  // first, null: the page stands and the cursor is 0, so that Next gives the letter's second entry.
  // Prev from behind the last letter reads that letter anew and stands on its last entry.
  CEmailEntry* Next() override;
  CEmailEntry* Prev() override;

  // IMSPSizeofAB, and one read of the index's letter.
  CEmailEntry* GetAt(std::int32_t index) override;

  // Always -1.
  Status Add(CEmailEntry* /*entry*/, std::int32_t /*reload*/) override { return kRefused; }
  std::int32_t RemoveAt(std::int32_t /*index*/) override { return -1; }

  // Removes nothing: -1, after a search for the entry that asks the server, and a step off it when
  // it was found. 0 and nothing done on an empty page. Delete through another view.
  Status Remove(CEmailEntry* entry, std::int32_t flag) override;

  // Look in the page, if it holds the key's letter, and else read that letter; Find with a flag of
  // 1 reads at once. The room of that read is what the census gives for the first letter that is
  // not below the key's, compared as signed bytes. A seek that misses leaves the new page in place.
  CEmailEntry* Find(std::string_view key, std::int32_t flag) override;
  CEmailEntry* FindPrefix(std::string_view key) override;
  CEmailEntry* FindLetter(char letter) override;

  // One step, which they give when it matches.
  CEmailEntry* FindNext(std::int32_t exact) override { return IfMatches(Next(), exact); }
  CEmailEntry* FindPrev(std::int32_t exact) override { return IfMatches(Prev(), exact); }
  CEmailEntry* FindNextPrefix() override { return FindNext(0); }

  // With a flag of 1 the server is changed first, and a failure is the result. Else 0. Modify shows
  // no new address before the letter is read again: in the page it only clears the entry's flags.
  // ModifyByKey looks for the entry's own name and gives what it finds the name `key`. 0 and
  // nothing done on an empty page.
  Status Modify(CEmailEntry* entry, std::int32_t flag) override;
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) override;

  // Empties the page.
  void Reset() override { page.Clear(); }

 protected:
  std::int32_t letterIndex = 0;
  CEntryPage page;

 private:
  bool HasEntries() const { return book != nullptr && !page.IsEmpty(); }
  Status Fill(char letter, std::int32_t capacity);
  bool LoadRow(std::int32_t row);
  CEmailEntry* StandAt(std::int32_t index);
  CEmailEntry* Seek(std::string_view key, std::int32_t exact);
  CEmailEntry* Locate(std::string_view key, std::int32_t exact);
  CEmailEntry* InPage(std::string_view name);
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_LETTER_ENTRY_VIEW_H_
