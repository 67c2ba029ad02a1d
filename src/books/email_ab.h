// The public e-mail book of one appliance, and the public e-mail lists.
//
// The entries, up to 200,000, are not held in memory. The book owns one view (views/entry_view.h),
// chosen when the book is opened, and forwards navigation to it. The lists, at most 512, are held
// in memory (books/public_list_book.h).
//
// Invariants:
//   1. An entry from the view is valid until the view's next operation. A list is valid until it is
//      removed or the lists are loaded again.
//   2. Opening the book replaces the view, with its pages and its census.
//   3. Without a scanner every server operation returns -1 or false and makes no server call,
//      unless it says otherwise. Without a view every navigation returns null, 0 or -1.
//
// Operations that list no server calls make no server call.
//
// Limits: with 512 lists on the server, the addition of a list records code 24 with the agent and
// returns -1 or false. With 200,000 entries, the addition of an entry returns 24, which is not
// recorded.

#ifndef QUILLKIT_BOOKS_EMAIL_AB_H_
#define QUILLKIT_BOOKS_EMAIL_AB_H_

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "books/public_list_book.h"
#include "lists/pub_email_dl.h"
#include "views/entry_source.h"
#include "views/entry_view.h"

namespace quillkit {

extern template class PublicListBook<CEmailAB, CPubEmailDL>;

class CEmailAB : public EntrySource, public PublicListBook<CEmailAB, CPubEmailDL> {
 public:
  static const ClassRecord kClass;

  CEmailAB() = default;

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The lists, each with its class and without its book. Loading replaces the lists in memory.
  // Entries are not stored.
  void Serialize(Archive& archive) override;

  // --- Opening ---

  // Stores the scanner, which must outlive the book, and the mode, and opens a new view: 0 a
  // CSlidingEntryView with pages of 16, 1 a CLetterEntryView, any other a CFullEntryView. Returns
  // the result of the view's AttachBook: 1 or 0. For a null scanner returns 0 and keeps the view.
  // Server calls: IMSPReadAB if the view is a full one.
  int Attach(CScanner* newScanner, std::int32_t newViewMode);

  // The same, but a sliding view has pages of 1, and `newLoadMode` selects what is opened: 0 the
  // view and the lists with their members, 1 the lists, 2 the view. Returns 1; or 0 if LoadLists
  // returned a status other than 0, such as 21 for too many lists. The result of the view is
  // ignored. Every load mode deletes the old view. Any other mode then opens nothing and returns 0.
  // Server calls: IMSPReadAB if a full view is opened, then those of LoadLists(1) if the lists are.
  int Attach(CScanner* newScanner, std::int32_t newViewMode, std::int32_t newLoadMode);

  std::int32_t LoadMode() const { return loadMode; }
  std::int32_t ViewMode() const { return viewMode; }
  CEntryView* View() const { return view.get(); }

  // --- The whole book on the server; EntryCount is EntrySource's ---

  // Stores the number of members of a list in `*count`. Returns the status.
  // Server calls: IMSPSizeofAB.
  Status ServerListSize(std::string_view list, std::uint32_t* count) const {
    return Appliance().SizeofPublicList(std::string(list), count);
  }

  // The number of lists, and their names: as CScanner::CountPublicLists and ListPublicLists.
  // Server calls: IMSPListAB.
  Status ServerListCount(std::uint32_t* count) const { return Appliance().CountPublicLists(count); }
  Status EnumerateLists(ABIdent* rows, std::uint32_t* count) const {
    return Appliance().ListPublicLists(rows, count);
  }

  // Empties the book under the long time-out and opens a new view, even if that fails. The lists
  // stay. Returns the status of CScanner::ClearEmailBook.
  // Server calls: those of CScanner::ClearEmailBook; then IMSPReadAB if the view is a full one.
  Status ClearBook();

  // Deletes the book under the long time-out, deletes the view and frees the lists. Returns the
  // status of the deletion. If the time-out cannot be read or set, returns that status and changes
  // nothing. Server calls: IMSPIOCtl 2 and 1, IMSPDeleteAB, IMSPIOCtl 1.
  Status DeleteBook();

  // The time-out of server calls: as CAgent::SetServerTimeout. Server calls: IMSPIOCtl 2 and 1.
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const {
    return Appliance().SetServerTimeout(seconds, old);
  }

  // Sends `request`. Returns the status. Server calls: IMSPIOCtl with this record.
  Status ServerCall(IOCtlRecord* request) const { return Appliance().ServerCall(request); }

  // --- Lists: more in PublicListBook and ListSet ---

  // Adds the list on the server and in memory. The book then owns it. Returns the new count; or -1,
  // and the caller keeps the list. A member that the server refuses is not reported.
  // REQUIRES: the list is not in the book already.
  // Server calls: IMSPListAB for the count, IMSPCreateAB, IMSPCreateEntry for each member.
  std::int32_t AddList(CPubEmailDL* list) { return CreateAndAdd(list); }

  // Adds the list on the server only, then with `reload` calls LoadLists(1). Returns whether both
  // returned 0. Server calls: those of AddList; then those of LoadLists(1) if `reload` is set.
  bool AddListReload(const CPubEmailDL& list, std::int32_t reload) { return Create(list, reload); }

  // Deletes the list on the server, and the first list of this name in memory. Returns the count,
  // also if there was no such list in memory; or -1. Server calls: IMSPDeleteAB.
  std::int32_t DeleteList(std::string_view name) { return DeleteAndRemove(name); }

  // Deletes the list on the server only, then with `reload` calls LoadLists(1). Returns whether
  // both returned 0. Server calls: IMSPDeleteAB; then those of LoadLists(1) if `reload` is set.
  bool DeleteListReload(std::string_view name, std::int32_t reload) { return Delete(name, reload); }

  // Read the list's members from the server, at most 512, and add a list of the new name with those
  // that were delivered, with AddListReload (return 1 or 0) or AddList (return its result). If the
  // members cannot be read, they add nothing and return 0 or -1. A list that the server does not
  // know (status 4 for its size) is copied as an empty one.
  // Server calls: IMSPSizeofAB, then IMSPReadAB unless the size is 0; then those of AddListReload
  // or AddList.
  int CopyList(const CPubEmailDL& list, std::string_view newName, std::int32_t reload);
  std::int32_t CopyListLocal(const CPubEmailDL& list, std::string_view newName);

  // Read the book's first or last entry into `*entry` without moving the view. Return 0; 4 for an
  // empty book, with `*entry` unchanged; another status on a failure; -1 without a view. In a book
  // of more than 128 letters, the last entry is that of the 128th letter.
  // Server calls: IMSPReadPageBoundaries if the view has no census yet, IMSPReadAB.
  Status ReadFirstEntry(CEmailEntry* entry) const { return ReadEdge(entry, false); }
  Status ReadLastEntry(CEmailEntry* entry) const { return ReadEdge(entry, true); }

  // --- Members of a list on the server: one call each, ModifyList one for each member ---
  //
  // Arguments, results and server calls are those of BookAccess (appliance/book_access.h): Create,
  // ReadOne, ReadAll, ModifyEach, Modify, Rename, Delete and DeleteBook.

  // The access itself.
  BookAccess<CEmailEntry> MembersOf(std::string_view list) const {
    return Appliance().PublicList(list);
  }

  Status CreateMember(std::string_view list, CEmailEntry* entry) const {
    return MembersOf(list).Create(entry);
  }

  // CreateMember of a name and an address. Returns -1 and makes no server call for a text of more
  // than 31 or 255 characters.
  Status CreateMemberAddress(std::string_view list, std::string_view name,
                             std::string_view address) const;

  Status ReadMember(std::string_view list, CEmailEntry* entry) const {
    return MembersOf(list).ReadOne(entry);
  }
  Status ReadMembers(std::string_view list, CEmailEntry* records, std::uint32_t* count) const {
    return MembersOf(list).ReadAll(records, count);
  }
  Status ModifyList(std::string_view list, CEmailEntry* records, const std::uint32_t* count) const {
    return MembersOf(list).ModifyEach(records, count);
  }
  Status ModifyMember(std::string_view list, CEmailEntry* entry) const {
    return MembersOf(list).Modify(entry);
  }
  Status RenameMember(std::string_view list, std::string_view oldName, CEmailEntry* entry) const {
    return MembersOf(list).Rename(oldName, entry);
  }
  Status DeleteMember(std::string_view list, const CEmailEntry* entry) const {
    return MembersOf(list).Delete(*entry);
  }
  Status DeleteServerList(std::string_view list) const { return MembersOf(list).DeleteBook(); }

  // --- The view: results and server calls are those of the view of each mode ---

  // Returns 0 without a view.
  std::int32_t GetPageSize() const { return ViewOrNone().GetPageSize(); }

  // In mode 0 and for a size above 0, opens a view with pages of 16 if there is none, and returns
  // the result of the view's SetPageSize. Otherwise returns -1. Makes no server call.
  std::int32_t SetPageSize(std::int32_t size);

  CEmailEntry* First() { return ViewOrNone().First(); }
  CEmailEntry* Last() { return ViewOrNone().Last(); }
  CEmailEntry* Next() { return ViewOrNone().Next(); }
  CEmailEntry* Prev() { return ViewOrNone().Prev(); }
  CEmailEntry* GetAt(std::int32_t index) { return ViewOrNone().GetAt(index); }
  CEmailEntry* Find(std::string_view key, std::int32_t flag) {
    return ViewOrNone().Find(key, flag);
  }
  CEmailEntry* FindLetter(char letter) { return ViewOrNone().FindLetter(letter); }
  CEmailEntry* FindNext(std::int32_t exact) { return ViewOrNone().FindNext(exact); }
  CEmailEntry* FindPrev(std::int32_t exact) { return ViewOrNone().FindPrev(exact); }
  CEmailEntry* FindPrefix(std::string_view key) { return ViewOrNone().FindPrefix(key); }
  CEmailEntry* FindNextPrefix() { return ViewOrNone().FindNextPrefix(); }

  // Return -1 without a view.
  Status Remove(CEmailEntry* entry, std::int32_t flag) { return ViewOrNone().Remove(entry, flag); }
  Status Modify(CEmailEntry* entry, std::int32_t flag) { return ViewOrNone().Modify(entry, flag); }
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag) {
    return ViewOrNone().ModifyByKey(key, entry, flag);
  }

  // Without a view they return 0, 0, -1 and -1.
  char FirstLetter() { return ViewOrNone().FirstLetter(); }
  char NextLetter(char letter) { return ViewOrNone().NextLetter(letter); }
  std::int32_t LetterStart(char letter) { return ViewOrNone().LetterStart(letter); }
  std::int32_t LetterOfIndex(std::int32_t index, char* letter) {
    return ViewOrNone().LetterOfIndex(index, letter);
  }

  // Work in view mode 2 only. Modes other than 0, 1 and 2 have a full view too, but there these
  // operations fail. The first two return a count or -1, the others 1 or 0.
  std::int32_t AddLocal(CEmailEntry* entry) { return EditableView().AddLocal(entry); }
  std::int32_t RemoveLocal(CEmailEntry* entry) { return EditableView().RemoveLocal(entry); }
  std::int32_t ModifyLocal(CEmailEntry* entry) { return EditableView().ModifyLocal(entry); }
  std::int32_t ModifyLocalByKey(std::string_view key, CEmailEntry* entry) {
    return EditableView().ModifyLocalByKey(key, entry);
  }

 private:
  int OpenView(std::int32_t pageSize);

  // Return the view, or one whose operations fail.
  CEntryView& ViewOrNone() const { return view != nullptr ? *view : AbsentView(); }
  CEntryView& EditableView() const;

  // Returns the view whose operations fail.
  static CEntryView& AbsentView();

  Status ReadEdge(CEmailEntry* entry, bool last) const;

  std::unique_ptr<CEntryView> view;
  std::int32_t viewMode = 0;
  std::int32_t loadMode = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_EMAIL_AB_H_
