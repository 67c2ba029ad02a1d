// The view that holds a small book whole: up to 512 entries, read when the book is attached. It is
// the only view that adds entries, and it changes them in two families:
//
//   Add, Remove, Modify, ModifyByKey   change the server and, if asked, read the book anew; a
//   Status
//   ...Local                           change the server and then patch the entries in place
//
// The server comes first in both: a refusal leaves the entries as they were, and nothing is undone.
//
// Invariants:
//   1. Entries stand in the server's order, followed by what AddLocal appended.
//   2. Navigation and search make no call. On an empty view they give null.
//   3. The cursor is the index of the entry that the walk stands on, or -1 behind a Find that
//      missed. It may lie behind entries that were removed: there is none at it then.

#ifndef QUILLKIT_VIEWS_FULL_ENTRY_VIEW_H_
#define QUILLKIT_VIEWS_FULL_ENTRY_VIEW_H_

#include <cstdint>
#include <string_view>

#include "base/entry_block.h"
#include "views/entry_view.h"

namespace quillkit {

// The most entries of a full view: the capacity of a read, and the limit of an addition.
inline constexpr std::int32_t MaxFullEntries = 512;

class CFullEntryView : public CEntryView {
 public:
  CFullEntryView() : CEntryView(0) {}

  // Stores the book and reads it: one IMSPReadAB. 1 when that gave 0 or 4, else 0. A book of more
  // than 512 entries gives 0, with the first 512 in the view. A failed read leaves 512 blank
  // entries, or none where the server said so.
  int AttachBook(CEmailAB* newBook) override;

  // Last and GetAt leave the cursor where it is.
  CEmailEntry* First() override { return MoveTo(0); }
  CEmailEntry* Last() override { return entries.At(entries.count() - 1); }
  CEmailEntry* Next() override { return MoveTo(cursor + 1); }
  CEmailEntry* Prev() override { return MoveTo(cursor - 1); }
  CEmailEntry* GetAt(std::int32_t index) override { return entries.At(index); }

  // The first entry whose name begins with this byte; on a miss the view's last entry, with the
  // cursor left alone.
  CEmailEntry* FindLetter(char letter) override;

  // Compares whole names unless `exact` is 0. On a miss the first entry of the key's letter, with
  // the cursor on it, or the view's last entry, with the cursor at -1: look at the name. FindNext,
  // FindPrev and FindNextPrefix find nothing and stay where they are.
  CEmailEntry* Find(std::string_view key, std::int32_t exact) override;
  CEmailEntry* FindPrefix(std::string_view key) override { return Find(key, 0); }

  // The server's status; with `reload`, after a 0, that of the read, which may be 4 or 21. -1
  // without a book. Add: the book's AddEntry, and -1 with no call when the view holds 512.
  Status Add(CEmailEntry* entry, std::int32_t reload) override;
  Status Remove(CEmailEntry* entry, std::int32_t reload) override;
  Status Modify(CEmailEntry* entry, std::int32_t reload) override;
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t reload) override;

  // The new count, or -1 for an index out of range. The server is not asked.
  std::int32_t RemoveAt(std::int32_t index) override;

  // Add: the new count, or -1 for a refusal or at 512; the entry goes to the end. Remove: the new
  // count, or -1, also when the server dropped an entry that the view lacks.
  std::int32_t AddLocal(CEmailEntry* entry) override;
  std::int32_t RemoveLocal(CEmailEntry* entry) override;

  // 1 after the entry of that name was overwritten whole, name included; or 0, also when the server
  // changed an entry that the view lacks.
  std::int32_t ModifyLocal(CEmailEntry* entry) override;
  std::int32_t ModifyLocalByKey(std::string_view key, CEmailEntry* entry) override;

 protected:
  EntryBlock<CEmailEntry> entries;

 private:
  Status Load();
  Status Reload(Status changed, std::int32_t reload);
  std::int32_t Overwrite(Status changed, std::string_view name, const CEmailEntry& entry);
  CEmailEntry* MoveTo(std::int32_t index);
  std::int32_t IndexOf(std::string_view name, bool wholeName) const;
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_FULL_ENTRY_VIEW_H_
