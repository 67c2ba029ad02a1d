// One user's private e-mail book: its entries and its distribution lists, both held whole, so that
// a local copy can be read in, changed, written to an archive and restored.
//
// A CUserRecord owns the book, and its owner decides the route to the server:
// books/private_route.h. ServerEntryCount, ServerListCount, the time-outs, and the deletions of the
// book and in DeleteAllLists and ClearAll always go through TheAgent. Without a user the book goes
// the way of the session's own.
//
// Plain operations change the server and, with `reload`, read the lists anew with their members;
// local ones change the server and then the copy. The server comes first and nothing is undone.
// Operations that delete in bulk run under a time-out of 3,600,000 milliseconds (IMSPIOCtl 2, 1),
// and put the old one back at their end (IMSPIOCtl 1); where the time-out cannot be raised they
// stop with nothing done.

#ifndef QUILLKIT_BOOKS_PRIV_EMAIL_AB_H_
#define QUILLKIT_BOOKS_PRIV_EMAIL_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "appliance/book_access.h"
#include "base/root_object.h"
#include "books/list_set.h"
#include "books/priv_entry_page.h"
#include "bridge/records.h"
#include "lists/priv_email_dl.h"

namespace quillkit {

class CPubEmailDL;
class CScanner;
class CUserAB;
class CUserRecord;

// The most private lists of one user.
inline constexpr std::int32_t MaxPrivateLists = 100;

class CPrivEmailAB : public RootObject, private ListSet<CPrivEmailDL> {
 public:
  static const ClassRecord kClass;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The lists as objects, then the entries. Storing first reads the members of every list that has
  // none, by LoadAllMembers, whose status is not reported. Loading replaces both. The lists that it
  // makes have no book until SetBook or Open.
  void Serialize(Archive& archive) override;

  // Stores the user, who must outlive the book. Whether it was not null, which changes nothing.
  bool SetUser(CUserRecord* newUser);
  CUserRecord* User() const { return user; }

  // --- The whole book ---

  // Reads the entries, up to 2000 in one IMSPReadAB, and with `withLists` the lists as
  // LoadLists(1). 1 when each gave 0 or 4, else 0.
  int LoadEntries(std::int32_t withLists);

  // Replaces the lists by the server's, up to 100: IMSPListAB, and with `withMembers` the calls of
  // CPrivEmailDL::Open for each. The status of the listing; 4 is an empty one, and 21 comes with
  // the first 100.
  Status LoadLists(std::int32_t withMembers);

  // The same as 1 for 0 or 4, else 0.
  int LoadListsChecked(std::int32_t withMembers);

  // Reads the members of every list that has none. The first status but 0 and 4 ends it; else 0.
  Status LoadAllMembers();

  bool EntriesLoaded() const { return entries.IsLoaded(); }
  bool ListsLoaded() const { return listsLoaded != 0; }

  // Creates the book on the server from the copy: every entry (CPrivEntryPage::SendAll) and, if the
  // last gave 0, every list by its WriteMembers, up to the first failing status, which is the
  // result. Lists that were read from an archive have no book and give 0 whatever the server
  // refuses.
  Status WriteBack();

  // Deletes the lists, if there are at most 100, and the book itself on the server and leaves the
  // copy alone. The status of the book's IMSPDeleteAB, 4 or 3 for a book that is not there, or that
  // of the time-out.
  Status EmptyOnServer();

  // Deletes the lists of the copy and the book on the server. The session's own book keeps its copy
  // as the source of a later WriteBack; any other loses it.
  void DeleteAll();

  // Deletes the lists of the copy on the server, whatever each gives, and drops them.
  void DeleteAllLists();

  // Deletes the lists of the copy and the book, drops the lists and prepares the entries for a
  // load: until one they count 2000 blank ones. The status of putting the old time-out back, or of
  // raising it.
  Status ClearAll();

  Status ServerEntryCount(std::uint32_t* count) const;  // IMSPSizeofAB
  Status ServerListCount(std::uint32_t* count) const;   // IMSPListAB

  // --- Lists ---

  using ListSet::FindList;
  using ListSet::ListAt;
  using ListSet::ListCount;
  using ListSet::RemoveListAt;

  // Null out of range.
  const char* ListName(std::int32_t index) const;

  // Fills `name`: 1, or 0 out of range.
  int CopyListName(std::int32_t index, std::string& name) const;

  // Takes over `list` in the place of the present one, which is let go of without being deleted:
  // `list`, or null out of range.
  CPrivEmailDL* SetListAt(std::int32_t index, CPrivEmailDL* list);

  // Creates the list and its members on the server: whether the last call gave 0. At 100 lists in
  // the copy code 24 is recorded and no call made. `list` stays the caller's.
  bool AddList(CPrivEmailDL* list, std::int32_t reload);

  // The same, and takes `list` over at the end of the copy whatever its members gave: the new
  // count, or -1, with `list` still the caller's, when the list could not be created.
  // REQUIRES: the list is not held here already.
  std::int32_t AddListLocal(CPrivEmailDL* list);

  // Deletes a list on the server: whether that gave 0. The local form drops the first list of that
  // name from the copy, too, and gives the count, or -1 when the server refused.
  bool DeleteList(const std::string& name, std::int32_t reload);
  std::int32_t DeleteListLocal(const std::string& name);

  // 1 when the server gave 0, else 0.
  int RenameList(const std::string& name, const std::string& newName, std::int32_t reload);

  // Add a list under a new name with the members that the server delivers for the source, at most
  // 512, or that a public list holds. 1 when AddList gave true or AddListLocal a count, else 0; 0
  // and nothing added when the members cannot be read. A list that the server does not know (4 for
  // its size) is copied as an empty one. A public list that holds no members is read first,
  // through the e-mail book of the owner's scanner, or of the agent's last one for the session's
  // own account. If none is open there, the result is 0, without a call.
  int CopyList(const CPrivEmailDL& source, const std::string& newName, std::int32_t reload);
  int CopyListLocal(const CPrivEmailDL& source, const std::string& newName);
  int CopyPublicList(CPubEmailDL* source, const std::string& newName, std::int32_t reload);
  int CopyPublicListLocal(CPubEmailDL* source, const std::string& newName);

  // --- Server calls, with their status ---

  // 24, with nothing recorded and no call, at 2000 entries in the copy. Call: IMSPCreateEntry.
  Status AddEntry(CEmailEntry* entry);
  Status CreateServerEntry(CEmailEntry* entry);
  Status ReadEntry(CEmailEntry* entry);
  Status ReadEntries(KeyRange* range, CEmailEntry* records, std::uint32_t* count,
                     std::int32_t direction);
  Status ModifyEntry(CEmailEntry* entry);
  Status RenameEntry(std::string_view oldName, CEmailEntry* entry);
  Status DeleteEntry(CEmailEntry* entry);

  // 24, with nothing recorded and no call, at 100 lists in the copy. Call: IMSPCreateAB.
  Status CreateServerList(std::string_view list);

  // Creates a list and its members as CScanner::CreatePrivateMembers, whose notes on blanked
  // addresses hold; 0 and no call for no members.
  Status CreateListWithMembers(std::string_view list, CEmailEntry* members,
                               const std::uint32_t* count);
  Status ListLists(ABIdent* books, std::uint32_t* count);

  // IMSPSizeofAB. -1, with no call, also where the owner's scanner has no address.
  Status ListSize(std::string_view list, std::uint32_t* count);

  // 24, with nothing recorded and no call, when the copy holds 2000 entries, however short the
  // list.
  Status AddMember(std::string_view list, CEmailEntry* entry);
  Status CreateMember(std::string_view list, CEmailEntry* entry);
  Status ReadMember(std::string_view list, CEmailEntry* entry);
  Status ReadMembers(std::string_view list, CEmailEntry* records, std::uint32_t* count);
  Status ModifyMember(std::string_view list, CEmailEntry* entry);
  Status RenameMember(std::string_view list, std::string_view oldName, CEmailEntry* entry);
  Status DeleteMember(std::string_view list, CEmailEntry* entry);
  Status DeleteServerList(std::string_view list);
  Status RenameServerList(const std::string& name, const std::string& newName);

  // What the lists of the book ask of it.
  BookAccess<CEmailEntry> MembersOf(std::string_view list) const;
  Status ServerListSize(std::string_view list, std::uint32_t* count) {
    return ListSize(list, count);
  }

  // --- Entries: each as CPrivEntryPage's ---
  //
  // LoadEntries, ClearAll and loading from an archive attach the page to the book. Before that
  // there are no entries, and operations that need the server make no call and fail: -1, or 0 for
  // ModifyLocal and ModifyLocalByKey.

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
  struct BulkResult {
    Status work;
    Status restored;
  };

  const CScanner& Route() const;
  bool EntriesAreFull() const { return entries.Count() >= MaxPrivateEntries; }
  bool ListsAreFull() const { return ListCount() >= MaxPrivateLists; }
  bool RecordsFullLists() const;
  Status CreateMembersOf(const CPrivEmailDL& list);
  bool FillCopy(const CPrivEmailDL& source, const std::string& newName, CPrivEmailDL* copy);
  bool FillCopyOfPublic(CPubEmailDL* source, const std::string& newName, CPrivEmailDL* copy);
  bool TakeOver(std::unique_ptr<CPrivEmailDL> list);
  Status DeleteHeldLists();
  template <class Work>
  BulkResult DeleteInBulk(Work work);

  CUserRecord* user = nullptr;
  CPrivEntryPage entries;
  std::int32_t listsLoaded = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_PRIV_EMAIL_AB_H_
