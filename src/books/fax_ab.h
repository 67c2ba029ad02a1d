// The fax book of one appliance: its entries and its distribution lists, both held whole.
//
// Plain operations change the server and, with `reload`, read the entries or the lists anew: 1 or
// 0, and 0 too when the change stands and the reload failed. Fast ones change the server and then
// what is held: a count or -1, or 1 or 0, and the failing value too when the server changed what is
// not held. The server comes first and nothing is undone. Without a scanner every operation that
// needs the server gives its failing value and makes no call, but for DeleteAllLists, whose
// time-outs go to TheAgent.
//
// The limits record code 24 with the agent and make no call: 2048 entries held, 512 lists on the
// server.

#ifndef QUILLKIT_BOOKS_FAX_AB_H_
#define QUILLKIT_BOOKS_FAX_AB_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "appliance/book_access.h"
#include "base/root_object.h"
#include "books/fax_entry_list.h"
#include "books/public_list_book.h"
#include "bridge/records.h"
#include "lists/pub_fax_dl.h"

namespace quillkit {

class CAgent;
class CScanner;

// The most lists of the book.
inline constexpr std::uint32_t MaxFaxLists = MaxPublicLists;

// How many entries are held where an addition is refused.
inline constexpr std::int32_t MaxFaxEntries = 2048;

extern template class PublicListBook<CFaxAB, CPubFaxDL>;

class CFaxAB : public RootObject, public PublicListBook<CFaxAB, CPubFaxDL> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The entries as CFaxEntryList, and the lists as objects. Loading replaces both, but for entries
  // in the place of which the stream has none.
  void Serialize(Archive& archive) override;

  // Stores the scanner, which must outlive the book, and with `load` gives what LoadEntries gives;
  // else 1. 0 without a scanner.
  int Attach(CScanner* newScanner, std::int32_t load);

  // --- The whole book ---

  // Reads the entries: one IMSPReadAB of up to 2048. 1 for the status 0 or 4 (no entries), else 0:
  // a book that holds more (21) is a failure although 2048 entries are then held, and a failure
  // that delivers nothing leaves as many blank ones.
  int LoadEntries();

  // IMSPSizeofAB.
  Status SizeofBook(std::uint32_t* count) const;

  // Empties the book on the server (CScanner::ClearFaxBook, whose status it gives) and reads it
  // anew.
  Status ClearBook();

  // --- Entries: IMSPCreateEntry, IMSPReadEntryProperties, IMSPModifyEntry (twice), IMSPDeleteEntry
  // ---

  int AddEntry(CFaxEntry* entry, std::int32_t reload);
  int ReadEntry(CFaxEntry* entry, std::int32_t reload);
  int ModifyEntry(CFaxEntry* entry, std::int32_t reload);
  int RenameEntry(std::string_view oldName, CFaxEntry* entry, std::int32_t reload);
  int DeleteEntry(CFaxEntry* entry, std::int32_t reload);

  std::int32_t FastAddEntry(CFaxEntry* entry);
  int FastModifyEntry(CFaxEntry* entry);
  int FastRenameEntry(std::string_view oldName, CFaxEntry* entry);
  std::int32_t FastDeleteEntry(CFaxEntry* entry);

  // --- Entries held: as CFaxEntryList ---

  std::int32_t EntryCount() const { return entries.Count(); }
  bool IsEmpty() const { return entries.IsEmpty(); }
  CFaxEntry* EntryAt(std::int32_t index) { return entries.At(index); }
  CFaxEntry* FirstEntry() { return entries.FirstEntry(); }
  CFaxEntry* NextEntry() { return entries.NextEntry(); }
  CFaxEntry* PrevEntry() { return entries.PrevEntry(); }

  // Removes an entry here alone: 1, or 0 out of range. With `reload` what LoadEntries gives.
  int RemoveEntryAt(std::int32_t index, std::int32_t reload);

  // -1 also without a scanner.
  std::int32_t FindEntryIndex(std::string_view name);
  std::int32_t FindFirstEntry(const std::string& pattern, std::int32_t mode) {
    return entries.FindFirstEntry(pattern, mode);
  }
  std::int32_t FindNextEntry(std::int32_t mode) { return entries.FindNextEntry(mode); }

  // --- Lists: the rest stands in PublicListBook and ListSet ---

  // Creates the list and its members on the server, whose refusals go unnoticed. The Fast form
  // takes the object over at the end of the lists held and gives the new count; on -1 it stays the
  // caller's. REQUIRES: the list is not held here already.
  int AddList(const CPubFaxDL& list, std::int32_t reload) { return Create(list, reload) ? 1 : 0; }
  std::int32_t FastAddList(CPubFaxDL* list) { return Keep(list); }

  // The Fast form gives the count also for a list that was not held.
  int DeleteList(std::string_view name, std::int32_t reload) {
    return Delete(name, reload) ? 1 : 0;
  }
  std::int32_t FastDeleteList(std::string_view name) { return Drop(name); }

  // Read the source's members from the server, at most 512, and add those that were delivered under
  // a new name: 1 or 0. 0, and nothing added, also when the members cannot be read. A list that the
  // server does not know (4 for its size) is copied as an empty one.
  int DuplicateList(const CPubFaxDL& source, std::string_view newName, std::int32_t reload);
  int FastDuplicateList(const CPubFaxDL& source, std::string_view newName);

  // IMSPListAB for the number; IMSPSizeofAB of one list.
  Status ServerListCount(std::uint32_t* count) const;
  Status ListEntryCount(std::string_view list, std::uint32_t* count) const;

  // --- What the lists ask of their book ---

  BookAccess<CFaxEntry> MembersOf(std::string_view list) const;
  Status EnumerateLists(ABIdent* rows, std::uint32_t* count) const;
  Status ServerListSize(std::string_view list, std::uint32_t* count) const {
    return ListEntryCount(list, count);
  }
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const;
  static CAgent* Agent();

 private:
  BookAccess<CFaxEntry> ServerEntries() const;
  int Finish(Status changed, std::int32_t reload);
  bool IsFull() const;

  CScanner* scanner = nullptr;
  CFaxEntryList entries;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_FAX_AB_H_
