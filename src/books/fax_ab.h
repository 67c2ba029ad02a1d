// The fax book of one appliance: its entries and its distribution lists, both held in memory.
//
// Two families change them:
//   plain  changes the server, then reads the entries or lists again if `reload` is set; returns 1
//          or 0, and 0 too if the change succeeded and the reload failed
//   Fast   changes the server, then the memory; returns a count or -1, or 1 or 0; also fails if the
//          changed entry is not in memory
// In both, if the server refuses the change, the memory stays unchanged. Nothing is rolled back.
//
// Without a scanner every operation that needs the server fails and makes no server call, except
// DeleteAllLists, which sets the time-out through TheAgent. Operations that list no server calls
// make no server call.
//
// Limits: with 2048 entries in memory, or 512 lists on the server, an addition records code 24 with
// the agent and fails.

#ifndef QUILLKIT_BOOKS_FAX_AB_H_
#define QUILLKIT_BOOKS_FAX_AB_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "base/root_object.h"
#include "books/fax_entry_list.h"
#include "books/public_list_book.h"
#include "bridge/the_agent.h"
#include "lists/pub_fax_dl.h"

namespace quillkit {

// The most lists of the book.
inline constexpr std::uint32_t MaxFaxLists = MaxPublicLists;

// The number of entries in memory at which an addition fails.
inline constexpr std::int32_t MaxFaxEntries = 2048;

extern template class PublicListBook<CFaxAB, CPubFaxDL>;

class CFaxAB : public RootObject, public PublicListBook<CFaxAB, CPubFaxDL> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The entries as CFaxEntryList, then the lists as objects. Loading replaces both; it keeps the
  // entries if the stream has none.
  void Serialize(Archive& archive) override;

  // Stores the scanner, which must outlive the book. Returns the result of LoadEntries if `load` is
  // set, otherwise 1; 0 for a null scanner. Server calls: those of LoadEntries if `load` is set.
  int Attach(CScanner* newScanner, std::int32_t load);

  // --- The whole book ---

  // Reads up to 2048 entries. Returns 1 if the status is 0 or 4 (no entries), otherwise 0. A book
  // of more entries (21) returns 0 and leaves 2048 entries. Any other failure leaves the entries
  // that were delivered, or 2048 blank ones if the server left the count unchanged.
  // Server calls: IMSPReadAB.
  int LoadEntries();

  // Stores the number of entries on the server in `*count`. Returns the status.
  // Server calls: IMSPSizeofAB.
  Status SizeofBook(std::uint32_t* count) const { return Scanner().SizeofFax(count); }

  // Empties the book on the server and reads it again, even if that fails. Returns the status of
  // CScanner::ClearFaxBook; -1 and no change without a scanner.
  // Server calls: those of CScanner::ClearFaxBook, then those of LoadEntries.
  Status ClearBook();

  // --- Entries: see the two families above ---
  //
  // FastAddEntry and FastDeleteEntry return the new count or -1, the others 1 or 0. The caller
  // keeps `entry`.
  // Server calls: IMSPCreateEntry, IMSPReadEntryProperties, IMSPModifyEntry (modify and rename) or
  // IMSPDeleteEntry; then those of LoadEntries if `reload` is set.

  int AddEntry(CFaxEntry* entry, std::int32_t reload);
  int ReadEntry(CFaxEntry* entry, std::int32_t reload);
  int ModifyEntry(CFaxEntry* entry, std::int32_t reload);
  int RenameEntry(std::string_view oldName, CFaxEntry* entry, std::int32_t reload);
  int DeleteEntry(CFaxEntry* entry, std::int32_t reload);

  std::int32_t FastAddEntry(CFaxEntry* entry);
  int FastModifyEntry(CFaxEntry* entry);
  int FastRenameEntry(std::string_view oldName, CFaxEntry* entry);
  std::int32_t FastDeleteEntry(CFaxEntry* entry);

  // --- Entries in memory: as CFaxEntryList ---

  std::int32_t EntryCount() const { return entries.Count(); }
  bool IsEmpty() const { return entries.IsEmpty(); }
  CFaxEntry* EntryAt(std::int32_t index) { return entries.At(index); }
  CFaxEntry* FirstEntry() { return entries.FirstEntry(); }
  CFaxEntry* NextEntry() { return entries.NextEntry(); }
  CFaxEntry* PrevEntry() { return entries.PrevEntry(); }

  // Removes an entry in memory only. Returns 0 for an index out of range; with `reload` the result
  // of LoadEntries; otherwise 1. Server calls: those of LoadEntries if `reload` is set.
  int RemoveEntryAt(std::int32_t index, std::int32_t reload);

  // Returns -1 also without a scanner.
  std::int32_t FindEntryIndex(std::string_view name);
  std::int32_t FindFirstEntry(const std::string& pattern, std::int32_t mode) {
    return entries.FindFirstEntry(pattern, mode);
  }
  std::int32_t FindNextEntry(std::int32_t mode) { return entries.FindNextEntry(mode); }

  // --- Lists: more in PublicListBook and ListSet ---

  // Create the list and its members on the server; a member that the server refuses is not
  // reported. AddList, with `reload`, then calls LoadLists(1), and returns 1 if both returned 0,
  // otherwise 0. FastAddList then adds the object at the end of the lists and owns it. It returns
  // the new count; or -1, and the caller keeps the list.
  // REQUIRES: the list is not in the book already.
  // Server calls: IMSPListAB for the count, IMSPCreateAB, IMSPCreateEntry for each member; then
  // those of LoadLists(1) if `reload` is set.
  int AddList(const CPubFaxDL& list, std::int32_t reload) { return Create(list, reload) ? 1 : 0; }
  std::int32_t FastAddList(CPubFaxDL* list) { return CreateAndAdd(list); }

  // Delete a list on the server. DeleteList, with `reload`, then calls LoadLists(1), and returns 1
  // if both returned 0, otherwise 0. FastDeleteList also deletes the first list of this name in
  // memory. It returns the count, also if there was no such list in memory; or -1.
  // Server calls: IMSPDeleteAB; then those of LoadLists(1) if `reload` is set.
  int DeleteList(std::string_view name, std::int32_t reload) {
    return Delete(name, reload) ? 1 : 0;
  }
  std::int32_t FastDeleteList(std::string_view name) { return DeleteAndRemove(name); }

  // Read the members of `source` from the server, at most 512, and add a list of the new name with
  // those that were delivered, with AddList or FastAddList. Return 1 or 0. If the members cannot be
  // read, they add nothing and return 0. A list that the server does not know (status 4 for its
  // size) is copied as an empty one.
  // Server calls: IMSPSizeofAB, then IMSPReadAB unless the size is 0; then those of AddList or
  // FastAddList.
  int DuplicateList(const CPubFaxDL& source, std::string_view newName, std::int32_t reload);
  int FastDuplicateList(const CPubFaxDL& source, std::string_view newName);

  // Store the number of lists, or of the members of one list, in `*count`. Return the status.
  // Server calls: IMSPListAB or IMSPSizeofAB.
  Status ServerListCount(std::uint32_t* count) const { return Scanner().CountFaxLists(count); }
  Status ListEntryCount(std::string_view list, std::uint32_t* count) const {
    return Scanner().SizeofFaxList(std::string(list), count);
  }

  // The time-out of server calls: as CAgent::SetServerTimeout. Server calls: IMSPIOCtl 2 and 1.
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const {
    return Scanner().SetServerTimeout(seconds, old);
  }

  // --- For the lists of the book: as CScanner::FaxList and ListFaxLists, and as ListEntryCount ---

  BookAccess<CFaxEntry> MembersOf(std::string_view list) const { return Scanner().FaxList(list); }
  Status EnumerateLists(ABIdent* rows, std::uint32_t* count) const {
    return Scanner().ListFaxLists(rows, count);
  }
  Status ServerListSize(std::string_view list, std::uint32_t* count) const {
    return ListEntryCount(list, count);
  }
  static CAgent* Agent() { return &TheAgent; }

 private:
  const CScanner& Scanner() const { return ScannerOrUnbound(scanner); }
  BookAccess<CFaxEntry> ServerEntries() const { return Scanner().FaxEntries(); }
  int ReloadAfter(Status changed, std::int32_t reload);
  bool RecordIfFull() const;

  CScanner* scanner = nullptr;
  CFaxEntryList entries;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_FAX_AB_H_
