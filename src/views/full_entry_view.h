// The view that holds a whole small book: up to 512 entries, read when the book is attached. It is
// the only view that can add entries. Two families change them:
//
//   Add, Remove, Modify, ModifyByKey   change the server, then read the book again if `reload` is
//                                      set; return a Status
//   ...Local                           change the server, then update the entries in place
//
// In both, if the server refuses the change, the entries stay unchanged. Nothing is rolled back.
//
// Invariants:
//   1. Entries are in the server's order, followed by those that AddLocal appended.
//   2. Navigation and search make no server call. On an empty view they return null.
//   3. The cursor is the index of the current entry, or -1 after a Find without a hit. After
//      removals it may be beyond the last entry.

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

  // Stores the book and reads it. Returns 1 if the status is 0 or 4, otherwise 0. For a book of
  // more than 512 entries it returns 0 and holds the first 512. After any other failure the view
  // holds 512 blank entries, or none if the server set the count to 0. Server calls: IMSPReadAB.
  int AttachBook(EntrySource* newBook) override;

  // Return null outside the view. Last and GetAt do not move the cursor.
  CEmailEntry* First() override { return MoveTo(0); }
  CEmailEntry* Last() override { return entries.At(entries.count() - 1); }
  CEmailEntry* Next() override { return MoveTo(cursor + 1); }
  CEmailEntry* Prev() override { return MoveTo(cursor - 1); }
  CEmailEntry* GetAt(std::int32_t index) override { return entries.At(index); }

  // Returns the first entry whose name starts with this byte. Without a hit it returns the view's
  // last entry and does not move the cursor.
  CEmailEntry* FindLetter(char letter) override;

  // Compare whole names unless `exact` is 0. Without a hit they return the first entry of the key's
  // letter and move the cursor to it, or the view's last entry and set the cursor to -1: compare
  // the name. FindNext, FindPrev and FindNextPrefix return null and do not move the cursor.
  CEmailEntry* Find(std::string_view key, std::int32_t exact) override;
  CEmailEntry* FindPrefix(std::string_view key) override { return Find(key, 0); }

  // Return the status of the change; with `reload`, after a 0, that of the read, which may be 4 or
  // 21. Return -1 without a book. Add returns -1 and makes no server call if the view holds 512
  // entries.
  // Server calls: those of EntrySource's AddEntry, DeleteEntry, ModifyEntry or RenameEntry; then
  // IMSPReadAB if `reload` is set.
  Status Add(CEmailEntry* entry, std::int32_t reload) override;
  Status Remove(CEmailEntry* entry, std::int32_t reload) override;
  Status Modify(CEmailEntry* entry, std::int32_t reload) override;
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t reload) override;

  // Removes an entry from the view only. Returns the new count, or -1 for an index out of range.
  // Makes no server call.
  std::int32_t RemoveAt(std::int32_t index) override;

  // AddLocal appends the entry. Return the new count; or -1 if the server refuses, the view holds
  // 512 entries (AddLocal), or the removed entry is not in the view (RemoveLocal).
  // Server calls: those of EntrySource's AddEntry or DeleteEntry.
  std::int32_t AddLocal(CEmailEntry* entry) override;
  std::int32_t RemoveLocal(CEmailEntry* entry) override;

  // Replace the entry of that name, including its name. Return 1; or 0 if the server refuses or the
  // changed entry is not in the view. Server calls: IMSPModifyEntry.
  std::int32_t ModifyLocal(CEmailEntry* entry) override;
  std::int32_t ModifyLocalByKey(std::string_view key, CEmailEntry* entry) override;

 protected:
  EntryBlock<CEmailEntry> entries;

 private:
  Status Load();
  Status ReloadAfter(Status changed, std::int32_t reload);
  std::int32_t Overwrite(Status changed, std::string_view name, const CEmailEntry& entry);
  CEmailEntry* MoveTo(std::int32_t index);
  std::int32_t IndexOf(std::string_view name, bool wholeName) const;
};

}  // namespace quillkit

#endif  // QUILLKIT_VIEWS_FULL_ENTRY_VIEW_H_
