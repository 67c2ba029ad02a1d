// One user's private e-mail book: its entries and its distribution lists, both in memory, so that a
// local copy can be read, changed, written to an archive and restored.
//
// A CUserRecord owns the book and decides the route to the server (CUserRecord::Route). A book
// without a user uses the route of the session. These always go through TheAgent: ServerEntryCount,
// ServerListCount, the time-outs, every deletion of the book itself, and the deletions of lists in
// DeleteAllLists and ClearAll.
//
// Plain operations change the server and, with `reload`, read the lists with their members again.
// Local ones change the server and then the copy. Nothing is rolled back. Operations that delete in
// bulk run under the long time-out: IMSPIOCtl 2 and 1 before, IMSPIOCtl 1 after. If the time-out
// cannot be raised, they do nothing. Operations that list no server calls make no server call.

#ifndef QUILLKIT_BOOKS_PRIV_EMAIL_AB_H_
#define QUILLKIT_BOOKS_PRIV_EMAIL_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "base/root_object.h"
#include "books/list_set.h"
#include "books/priv_entry_page.h"
#include "lists/priv_email_dl.h"
#include "lists/pub_email_dl.h"

namespace quillkit {

class CUserRecord;

// The most private lists of one user.
inline constexpr std::int32_t MaxPrivateLists = 100;

class CPrivEmailAB : public RootObject, private ListSet<CPrivEmailDL> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The lists as objects, then the entries. Storing first reads the members of every list that has
  // none, with LoadAllMembers, whose status is not reported. Loading replaces both. Loaded lists
  // have no book until SetBook or Open. Server calls: those of LoadAllMembers, to store.
  void Serialize(Archive& archive) override;

  // Stores the user, who must outlive the book. Returns false and changes nothing for null.
  bool SetUser(CUserRecord* newUser);
  CUserRecord* User() const { return user; }

  // --- The whole book ---

  // Reads the entries, up to 2000, and with `withLists` the lists as LoadLists(1), even if the
  // entries cannot be read. A status other than 0, such as 21 for more than 2000, leaves no
  // entries. Returns 1 if each status is 0 or 4, otherwise 0.
  // Server calls: IMSPReadAB; then those of LoadLists(1) if `withLists` is set.
  int LoadEntries(std::int32_t withLists);

  // Replaces the lists by those of the server, up to 100. With `withMembers` opens each list and
  // ignores its status. Returns the status of the listing: 4 for none, and 21 with the first 100. A
  // status other than 0 and 21 leaves no lists.
  // Server calls: IMSPListAB; then those of CPrivEmailDL::Open for each list if `withMembers` is
  // set.
  Status LoadLists(std::int32_t withMembers);

  // LoadLists. Returns 1 if its status is 0 or 4, otherwise 0. Server calls: those of LoadLists.
  int LoadListsChecked(std::int32_t withMembers);

  // Reads the members of every list that has none. Stops at the first status other than 0 and 4 and
  // returns it; otherwise returns 0. Server calls: those of CPrivEmailDL::Open for each such list.
  Status LoadAllMembers();

  // EntriesLoaded is CPrivEntryPage::IsLoaded. ListsLoaded returns whether a listing has returned 0
  // or 21.
  bool EntriesLoaded() const { return entries.IsLoaded(); }
  bool ListsLoaded() const { return listsLoaded != 0; }

  // Creates the book on the server from the copy: every entry with CPrivEntryPage::SendAll and, if
  // the last entry returned 0, every list with WriteMembers. Stops at the first list that fails.
  // Returns the status of the last entry or of that list, or 0. Lists that were read from an
  // archive have no book: they return 0 even if the server refuses.
  // Server calls: IMSPCreateEntry for each entry, then those of CPrivEmailDL::WriteMembers for each
  // list.
  Status WriteBack();

  // Deletes the lists and the book on the server, and keeps the copy. Deletes no list if the
  // listing does not return 0, as for more than 100 lists. Ignores the statuses of the lists.
  // Returns the status of the book's IMSPDeleteAB, which is 4 or 3 if there is no book, or that of
  // raising the time-out if that fails.
  // Server calls: IMSPIOCtl 2 and 1, IMSPListAB, IMSPDeleteAB for each list, IMSPDeleteAB for the
  // book, IMSPIOCtl 1.
  Status EmptyOnServer();

  // Deletes on the server the lists that the copy has, and the book, and ignores failures. The
  // session's own book keeps its copy as the source of a later WriteBack; any other book drops its
  // copy.
  // Server calls: IMSPIOCtl 2 and 1, those of CPrivEmailDL::DestroyList for each list,
  // IMSPDeleteAB, IMSPIOCtl 1.
  void DeleteAll();

  // Deletes the lists of the copy on the server, ignores failures, and drops them.
  // Server calls: IMSPIOCtl 2 and 1, IMSPDeleteAB for each list, IMSPIOCtl 1.
  void DeleteAllLists();

  // Deletes on the server the lists that the copy has, and the book, and ignores failures. Then
  // drops the lists of the copy and prepares the entries for a load: until the load there are 2000
  // blank entries. Returns the status of restoring the old time-out, or of raising it if that
  // fails.
  // Server calls: IMSPIOCtl 2 and 1, IMSPDeleteAB for each list, IMSPDeleteAB for the book,
  // IMSPIOCtl 1.
  Status ClearAll();

  // Store the number of entries or lists on the server in `*count`. Return the status.
  // Server calls: IMSPSizeofAB or IMSPListAB.
  Status ServerEntryCount(std::uint32_t* count) const;
  Status ServerListCount(std::uint32_t* count) const;

  // --- Lists ---

  using ListSet::FindList;
  using ListSet::ListAt;
  using ListSet::ListCount;
  using ListSet::RemoveListAt;

  // Returns the name, valid until the list is renamed or removed; null for an index out of range.
  const char* ListName(std::int32_t index) const;

  // Stores the name in `name`. Returns 1, or 0 for an index out of range.
  int CopyListName(std::int32_t index, std::string& name) const;

  // Replaces a list by `list`, which the book then owns. The old one is released, not deleted.
  // Returns `list`, or null for an index out of range.
  CPrivEmailDL* SetListAt(std::int32_t index, CPrivEmailDL* list);

  // Creates the list and its members on the server; the caller keeps `list`. With `reload`, then
  // reads the lists again, even after a failure. Returns whether the last creation returned 0: that
  // of the last member, or of the list if it is refused or has no members. The status of the reload
  // is ignored. With 100 lists in the copy it records code 24. Then, and for a null list, it
  // returns false and makes no server call.
  // Server calls: IMSPCreateAB, IMSPCreateEntry for each member; then those of LoadLists(1) if
  // `reload` is set.
  bool AddList(CPrivEmailDL* list, std::int32_t reload);

  // The same, and adds `list` at the end of the copy, which then owns it, even if a member is
  // refused. Returns the new count; or -1, and the caller keeps `list`, if the list could not be
  // created. REQUIRES: the list is not in the book already.
  // Server calls: IMSPCreateAB, IMSPCreateEntry for each member.
  std::int32_t AddListLocal(CPrivEmailDL* list);

  // Delete a list on the server. DeleteList returns whether that returned 0. DeleteListLocal also
  // drops the first list of that name from the copy, and returns the count, or -1 if the server
  // refuses. The status of the reload is ignored.
  // Server calls: IMSPDeleteAB; then those of LoadLists(1) if `reload` is set.
  bool DeleteList(const std::string& name, std::int32_t reload);
  std::int32_t DeleteListLocal(const std::string& name);

  // Renames a list on the server. Returns 1 if the server returned 0, otherwise 0. The status of
  // the reload is ignored.
  // Server calls: IMSPModifyEntry; then those of LoadLists(1) if `reload` is set.
  int RenameList(const std::string& name, const std::string& newName, std::int32_t reload);

  // Add a list of the new name. Its members are those that the server delivers for the source, at
  // most 512, or those that a public list has in memory. Return 1 if AddList returned true or
  // AddListLocal a count, otherwise 0. If the members cannot be read, nothing is added. A list that
  // the server does not know (status 4 for its size) is copied as an empty one. A public list
  // without members is read first: through the e-mail book of the owner's scanner, or, for the
  // session's own account, of the agent's last scanner. If no book is open there, they return 0 and
  // make no server call.
  // Server calls: to read members, IMSPSizeofAB, then IMSPReadAB unless the size is 0; then those
  // of AddList or AddListLocal.
  int CopyList(const CPrivEmailDL& source, const std::string& newName, std::int32_t reload);
  int CopyListLocal(const CPrivEmailDL& source, const std::string& newName);
  int CopyPublicList(CPubEmailDL* source, const std::string& newName, std::int32_t reload);
  int CopyPublicListLocal(CPubEmailDL* source, const std::string& newName);

  // --- Entries on the server: one call each, with its status ---
  //
  // Arguments, results and server calls are those of BookAccess (appliance/book_access.h): Create,
  // ReadOne, Read, Modify, Rename and Delete.

  // With 2000 entries in the copy AddEntry returns 24, records nothing and makes no server call.
  Status AddEntry(CEmailEntry* entry) {
    return EntriesAreFull() ? kBookFull : CreateServerEntry(entry);
  }
  Status CreateServerEntry(CEmailEntry* entry) { return ServerEntries().Create(entry); }
  Status ReadEntry(CEmailEntry* entry) { return ServerEntries().ReadOne(entry); }
  Status ReadEntries(KeyRange* range, CEmailEntry* records, std::uint32_t* count,
                     std::int32_t direction) {
    return ServerEntries().Read(range, records, count, direction);
  }
  Status ModifyEntry(CEmailEntry* entry) { return ServerEntries().Modify(entry); }
  Status RenameEntry(std::string_view oldName, CEmailEntry* entry) {
    return ServerEntries().Rename(oldName, entry);
  }
  Status DeleteEntry(CEmailEntry* entry) { return ServerEntries().Delete(*entry); }

  // --- Lists on the server ---

  // Creates an empty list. Returns the status. With 100 lists in the copy it returns 24, records
  // nothing and makes no server call. Server calls: IMSPCreateAB.
  Status CreateServerList(std::string_view list) {
    return ListsAreFull() ? kBookFull : MembersOf(list).CreateBook();
  }

  // Creates a list and its members: see CScanner::CreatePrivateMembers, also for the addresses that
  // it blanks. Without members returns 0 and makes no server call.
  // Server calls: those of CScanner::CreatePrivateMembers.
  Status CreateListWithMembers(std::string_view list, CEmailEntry* members,
                               const std::uint32_t* count) {
    return *count != 0 ? Route().CreatePrivateMembers(list, members, count) : kNoError;
  }

  // As CScanner::ListPrivateLists. Server calls: IMSPListAB.
  Status ListLists(ABIdent* books, std::uint32_t* count) {
    return Route().ListPrivateLists(books, count);
  }

  // Store the number of members in `*count`. Return the status. Return -1 and make no server call
  // also if the owner's scanner has no address. Server calls: IMSPSizeofAB.
  Status ListSize(std::string_view list, std::uint32_t* count) {
    return Route().SizeofPrivateList(std::string(list), count);
  }
  Status ServerListSize(std::string_view list, std::uint32_t* count) {
    return ListSize(list, count);
  }

  // Returns the access to the members of a list.
  BookAccess<CEmailEntry> MembersOf(std::string_view list) const {
    return Route().PrivateList(list);
  }

  // One call each, with its status: as Create, ReadOne, ReadAll, Modify, Rename, Delete and
  // DeleteBook of BookAccess, and as CScanner::RenamePrivateList. With 2000 entries in the copy
  // AddMember returns 24, records nothing and makes no server call, even if the list is short.
  Status AddMember(std::string_view list, CEmailEntry* entry) {
    return EntriesAreFull() ? kBookFull : CreateMember(list, entry);
  }
  Status CreateMember(std::string_view list, CEmailEntry* entry) {
    return MembersOf(list).Create(entry);
  }
  Status ReadMember(std::string_view list, CEmailEntry* entry) {
    return MembersOf(list).ReadOne(entry);
  }
  Status ReadMembers(std::string_view list, CEmailEntry* records, std::uint32_t* count) {
    return MembersOf(list).ReadAll(records, count);
  }
  Status ModifyMember(std::string_view list, CEmailEntry* entry) {
    return MembersOf(list).Modify(entry);
  }
  Status RenameMember(std::string_view list, std::string_view oldName, CEmailEntry* entry) {
    return MembersOf(list).Rename(oldName, entry);
  }
  Status DeleteMember(std::string_view list, CEmailEntry* entry) {
    return MembersOf(list).Delete(*entry);
  }
  Status DeleteServerList(std::string_view list) { return MembersOf(list).DeleteBook(); }
  Status RenameServerList(const std::string& name, const std::string& newName) {
    return Route().RenamePrivateList(name, newName);
  }

  // --- Entries in memory: each as CPrivEntryPage's, with its server calls ---
  //
  // LoadEntries, ClearAll and loading from an archive attach the page to the book. Before that
  // there are no entries, and operations that need the server make no server call and fail: they
  // return -1, or 0 for ModifyLocal and ModifyLocalByKey.

  std::int32_t EntryCount() const { return entries.Count(); }
  CEmailEntry* EntryAt(std::int32_t index) { return entries.At(index); }
  std::int32_t FindEntry(std::string_view name) const { return entries.FindName(name); }
  std::int32_t SearchFirst(const std::string& key, std::int32_t exact) {
    return entries.SearchFirst(key, exact);
  }
  std::int32_t SearchNext(std::int32_t exact) { return entries.SearchNext(exact); }
  Status Add(CEmailEntry* entry, std::int32_t reload) { return entries.Add(entry, reload); }
  Status Read(CEmailEntry* entry, std::int32_t reload) { return entries.Read(entry, reload); }
  Status Modify(CEmailEntry* entry, std::int32_t reload) { return entries.Modify(entry, reload); }
  Status ModifyByKey(const std::string& key, CEmailEntry* entry, std::int32_t reload) {
    return entries.ModifyByKey(key, entry, reload);
  }
  Status Remove(CEmailEntry* entry, std::int32_t reload) { return entries.Remove(entry, reload); }
  std::int32_t AddLocal(CEmailEntry* entry) { return entries.AddLocal(entry); }
  std::int32_t ModifyLocal(CEmailEntry* entry) { return entries.ModifyLocal(entry); }
  std::int32_t ModifyLocalByKey(const std::string& key, CEmailEntry* entry) {
    return entries.ModifyLocalByKey(key, entry);
  }
  std::int32_t RemoveLocal(CEmailEntry* entry) { return entries.RemoveLocal(entry); }

 private:
  const CScanner& Route() const;
  BookAccess<CEmailEntry> ServerEntries() const { return Route().PrivateEntries(); }
  bool EntriesAreFull() const { return entries.Count() >= MaxPrivateEntries; }
  bool ListsAreFull() const { return ListCount() >= MaxPrivateLists; }
  bool RecordListLimit() const;
  Status ReloadAfter(Status changed, std::int32_t reload);
  Status CreateMembersOf(const CPrivEmailDL& list);
  bool FillCopy(const CPrivEmailDL& source, const std::string& newName, CPrivEmailDL* copy);
  bool FillCopyOfPublic(CPubEmailDL* source, const std::string& newName, CPrivEmailDL* copy);
  bool AddOwnedList(std::unique_ptr<CPrivEmailDL> list);
  Status DeleteHeldLists();

  CUserRecord* user = nullptr;
  CPrivEntryPage entries;
  std::int32_t listsLoaded = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRIV_EMAIL_AB_H_
