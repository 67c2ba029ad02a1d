// The public e-mail book of one appliance, and the public e-mail lists beside it.
//
// The two halves are treated differently. The entries, up to 200,000, are never held here: the book
// owns one view (views/entry_view.h), chosen when it is opened, and passes navigation to it. The
// lists, at most 512, are held whole (lists/public_list_book.h).
//
// Invariants:
//   1. An entry that the view hands out is good until the view's next operation; a list until it is
//      removed or the lists are loaded anew.
//   2. Opening replaces the view, and with it every cached page and the letter census.
//   3. Without a scanner every server operation gives -1 or false and makes no call, unless it says
//      otherwise. Without a view every navigation gives null, 0 or -1.
//
// Limits: at 512 lists code 24 is recorded with the agent and the result is -1 or false; at 200,000
// entries code 24 is the result and nothing is recorded.

#ifndef QUILLKIT_BOOKS_EMAIL_AB_H_
#define QUILLKIT_BOOKS_EMAIL_AB_H_

#include <cstdint>
#include <memory>
#include <string_view>

#include "appliance/book_access.h"
#include "base/root_object.h"
#include "books/public_list_book.h"
#include "bridge/records.h"
#include "lists/pub_email_dl.h"

namespace quillkit {

class CEntryView;
class CScanner;

// The most entries of the book.
inline constexpr std::int32_t MaxEmailEntries = 200'000;

extern template class PublicListBook<CEmailAB, CPubEmailDL>;

class CEmailAB : public RootObject, public PublicListBook<CEmailAB, CPubEmailDL> {
 public:
  static const ClassRecord kClass;

  CEmailAB();
  ~CEmailAB() override;  // the view, and then the lists

  const ClassRecord* GetRuntimeClass() const override { return &kClass; }

  // The lists, each with its class and without its book. Loading replaces those held here. Entries
  // are not in the stream.
  void Serialize(Archive& archive) override;

  // Bracket the reads that a view makes for one step. They do nothing here: a book that is shared
  // locks in them. A CLetterEntryView whose census knows less than the size does not end one.
  virtual void BeginAccess() {}
  virtual void EndAccess() {}

  // --- Opening ---

  // Stores scanner, which must outlive the book, and mode, and opens a new view of that mode: 0 a
  // CSlidingEntryView with pages of 16, 1 a CLetterEntryView, any other a CFullEntryView. What the
  // view's AttachBook gives: 1 or 0. A null scanner gives 0 and leaves the view.
  int Attach(CScanner* newScanner, std::int32_t newViewMode);

  // As above, but a sliding view has pages of 1, and `newLoadMode` says what is opened: 0 view and
  // lists with their members, 1 the lists, 2 the view. 1, or 0 when LoadLists
  // gave another status than 0, as for more lists than are held;
  // what the view gives is not looked at. Any other load mode opens nothing and gives 0.
  int Attach(CScanner* newScanner, std::int32_t newViewMode, std::int32_t newLoadMode);

  std::int32_t LoadMode() const { return loadMode; }
  std::int32_t ViewMode() const { return viewMode; }
  CScanner* Scanner() const { return scanner; }
  CEntryView* View() const { return view.get(); }

  // The scanner's agent, also where the scanner has no address; or null.
  CAgent* Agent() const;

  // --- Whole book on the server ---

  // IMSPSizeofAB of the entries and of a list; IMSPListAB for the number of lists and their names.
  Status EntryCount(std::uint32_t* count) const;
  Status ServerListSize(std::string_view list, std::uint32_t* count) const;
  Status ServerListCount(std::uint32_t* count) const;
  Status EnumerateLists(ABIdent* rows, std::uint32_t* count) const;

  // Empties the book under the long time-out (CScanner::ClearEmailBook, whose status it gives) and
  // opens the view anew. The lists stay.
  Status ClearBook();

  // Deletes the book under the long time-out, drops the view and frees the lists. Calls: IMSPIOCtl
  // 2 and 1, IMSPDeleteAB, whose status is the result, IMSPIOCtl 1. A time-out that cannot be read
  // or set ends it with that status and nothing done.
  Status DeleteBook();

  // The time-out of server calls: CAgent::SetServerTimeout.
  Status SetServerTimeout(std::uint32_t seconds, std::uint32_t* old) const;

  // The letter census: IMSPReadPageBoundaries into a table of `*count` rows. A book without a
  // scanner asks TheAgent. -1 also for a null table or a count of 0.
  Status ReadBoundaries(PageBoundary* table, std::uint32_t* count) const;

  // IMSPIOCtl with the given record.
  Status ServerCall(IOCtlRecord* request) const;

  // --- Lists: the rest stands in PublicListBook and ListSet ---

  // Adds the list to the server and here, where it is owned from then on: the new count. On -1 it
  // stays the caller's. Calls: IMSPListAB for the count, IMSPCreateAB, IMSPCreateEntry a member,
  // whose refusals go unnoticed. REQUIRES: the list is not held here already.
  std::int32_t AddList(CPubEmailDL* list) { return Keep(list); }

  // The same on the server alone, and with `reload` then LoadLists with members. Whether all of
  // that went well; the list stays the caller's.
  bool AddListReload(const CPubEmailDL& list, std::int32_t reload) { return Create(list, reload); }

  // IMSPDeleteAB, and then the first list of this name is deleted here: the count, also when none
  // was held; or -1.
  std::int32_t DeleteList(std::string_view name) { return Drop(name); }

  // IMSPDeleteAB, and on 0 with `reload` LoadLists with members. Whether all of that went well.
  bool DeleteListReload(std::string_view name, std::int32_t reload) { return Delete(name, reload); }

  // Read the list's members from the server, at most 512, and add those that were delivered under a
  // new name, by AddListReload (1 or 0) or by AddList (its result). 0 or -1, and nothing added,
  // also when the members cannot be read. A list that the server does not know (4 for its size) is
  // copied as an empty one.
  int CopyList(const CPubEmailDL& list, std::string_view newName, std::int32_t reload);
  std::int32_t CopyListLocal(const CPubEmailDL& list, std::string_view newName);

  // --- Entries on the server: one call each ---

  // IMSPSizeofAB, and IMSPCreateEntry unless that tells of 200,000: then 24, which is not recorded.
  // A size that cannot be had reads as 0.
  Status AddEntry(CEmailEntry* entry) const;

  Status DeleteEntry(const CEmailEntry* entry) const { return Entries().Delete(*entry); }
  Status ModifyEntry(CEmailEntry* entry) const { return Entries().Modify(entry); }

  // The entry carries the new name.
  Status RenameEntry(std::string_view oldName, CEmailEntry* entry) const {
    return Entries().Rename(oldName, entry);
  }

  // IMSPReadAB and IMSPListABEntries: up to `*count` entries or names of the range.
  Status ReadEntries(KeyRange* range, CEmailEntry* records, std::uint32_t* count,
                     std::int32_t direction) const {
    return Entries().Read(range, records, count, direction);
  }
  Status ListEntries(KeyRange* range, EntryKey* rows, std::uint32_t* count,
                     std::int32_t direction) const {
    return Entries().List(range, rows, count, direction);
  }

  // Fetch the book's first or last entry and leave the view's position: the view's census, if it
  // has none yet, and IMSPReadAB. 0 or a failure, with 4 for an empty book and no change of
  // `*entry`. -1 without a view. Of more than 128 letters the last entry is the 128th letter's.
  Status ReadFirstEntry(CEmailEntry* entry) const;
  Status ReadLastEntry(CEmailEntry* entry) const;

  // --- Members of a list on the server: one call each, ModifyList one a member ---

  Status CreateMember(std::string_view list, CEmailEntry* entry) const {
    return MembersOf(list).Create(entry);
  }

  // -1, and no call, for texts that are too long.
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

  // The access itself; without a scanner one that gives -1 to everything.
  BookAccess<CEmailEntry> Entries() const;
  BookAccess<CEmailEntry> MembersOf(std::string_view list) const;

  // --- The view: what each kind makes of these stands there ---

  // 0 without a view.
  std::int32_t GetPageSize() const;

  // In mode 0, and for a size above 0, what the view gives, which is opened with pages of 16 if
  // there is none; else -1.
  std::int32_t SetPageSize(std::int32_t size);

  CEmailEntry* First();
  CEmailEntry* Last();
  CEmailEntry* Next();
  CEmailEntry* Prev();
  CEmailEntry* GetAt(std::int32_t index);
  CEmailEntry* Find(std::string_view key, std::int32_t flag);
  CEmailEntry* FindLetter(char letter);
  CEmailEntry* FindNext(std::int32_t exact);
  CEmailEntry* FindPrev(std::int32_t exact);
  CEmailEntry* FindPrefix(std::string_view key);
  CEmailEntry* FindNextPrefix();

  // -1 without a view.
  Status Remove(CEmailEntry* entry, std::int32_t flag);
  Status Modify(CEmailEntry* entry, std::int32_t flag);
  Status ModifyByKey(std::string_view key, CEmailEntry* entry, std::int32_t flag);

  // 0, 0, -1, -1 without a view.
  char FirstLetter();
  char NextLetter(char letter);
  std::int32_t LetterStart(char letter);
  std::int32_t LetterOfIndex(std::int32_t index, char* letter);

  // For view mode 2 alone, though other modes have the full view too: a count or -1; 1 or 0.
  std::int32_t AddLocal(CEmailEntry* entry);
  std::int32_t RemoveLocal(CEmailEntry* entry);
  std::int32_t ModifyLocal(CEmailEntry* entry);
  std::int32_t ModifyLocalByKey(std::string_view key, CEmailEntry* entry);

 private:
  int OpenView(std::int32_t pageSize);
  CEntryView* EditableView() const;
  Status ReadEdge(CEmailEntry* entry, bool last) const;

  CScanner* scanner = nullptr;  // not owned
  std::unique_ptr<CEntryView> view;
  std::int32_t viewMode = 0;
  std::int32_t loadMode = 0;
};

}  // namespace quillkit

#endif  // QUILLKIT_BOOKS_EMAIL_AB_H_
