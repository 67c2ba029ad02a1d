#include "tests/books/book_operation.h"

#include <array>
#include <memory>

#include "appliance/scanner.h"
#include "base/archive.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"

namespace quillkit {
namespace {

using enum FailureStyle;
using enum BookOperation::Held;
using Held = BookOperation::Held;
using Table = std::vector<BookOperation>;

// What the server calls fill in.
std::uint32_t count;
KeyRange range({}, {});
std::array<ABIdent, 4> rows;
std::array<EntryKey, 4> keys;
std::array<PageBoundary, 4> letters;
std::array<CEmailEntry, 4> records;

#define RUN(expression) [](BookStage& on) -> std::int64_t { return expression; }
#define RUN_ON_LIST(expression)                          \
  [](BookStage& on) -> std::int64_t {                    \
    auto& list = Get(on);                                \
    [[maybe_unused]] auto* const ann = &Kept(on, list);  \
    [[maybe_unused]] auto* const zoe = &Fresh(on, list); \
    return expression;                                   \
  }

CFaxEntry MakeFax(std::string_view name) {
  CFaxEntry entry;
  entry.SetName(name);
  entry.SetNumber("1");
  return entry;
}

CEmailEntry& Kept(BookStage& on, const CEmailDL& /*list*/) {
  return on.ann;
}
CFaxEntry& Kept(BookStage& on, const CFaxDL& /*list*/) {
  return on.faxAnn;
}
CEmailEntry& Fresh(BookStage& on, const CEmailDL& /*list*/) {
  return on.zoe;
}
CFaxEntry& Fresh(BookStage& on, const CFaxDL& /*list*/) {
  return on.faxZoe;
}

CPubEmailDL& EmailList(BookStage& on) {
  return *on.email.ListAt(0);
}
CPubFaxDL& FaxList(BookStage& on) {
  return *on.fax.ListAt(0);
}
CPrivEmailDL& PrivateList(BookStage& on) {
  return *on.priv->ListAt(0);
}

// What every kind of list does. `Get` gives the one that is held.
template <auto Get>
Table ListOperations(const std::string& of) {
  return {
      {of + "GetMemberCount", kStatus, "SizeofAB!", 0, RUN_ON_LIST(list.GetMemberCount(&count))},
      {of + "ReadMember", kStatus, "ReadEntryProperties!", 0, RUN_ON_LIST(list.ReadMember(ann))},
      {of + "AddMember", kStatus, "CreateEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.AddMember(zoe, 1))},
      {of + "AddMemberUnlimited", kStatus, "CreateEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.AddMemberUnlimited(zoe, 1))},
      {of + "ModifyMember", kStatus, "ModifyEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.ModifyMember(ann, 1))},
      {of + "RenameMember", kStatus, "ModifyEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.RenameMember("Ann", zoe, 1))},
      {of + "RemoveMember", kStatus, "DeleteEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.RemoveMember(ann, 1))},
      {of + "Reload", kStatus, "SizeofAB! ReadAB!", 0, RUN_ON_LIST(list.Reload()), kNeither},
      {of + "Open", kStatus, "SizeofAB! ReadAB!", 0, RUN_ON_LIST(list.Open(list.Book(), "Board")),
       kNeither},
      {of + "SetAt", kStatus, "ModifyEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.SetAt(0, *ann, 1))},
      {of + "RemoveAt", kStatus, "DeleteEntry! SizeofAB- ReadAB~", 0,
       RUN_ON_LIST(list.RemoveAt(0, 1)), kNeither},
      {of + "AddLocal", kCount, "CreateEntry!", 3, RUN_ON_LIST(list.AddLocal(zoe))},
      {of + "AddLocalUnlimited", kCount, "CreateEntry!", 3,
       RUN_ON_LIST(list.AddLocalUnlimited(zoe))},
      {of + "RemoveLocal", kCount, "DeleteEntry!", 1, RUN_ON_LIST(list.RemoveLocal(ann))},
  };
}

// What the public kinds alone do so.
template <auto Get>
Table PublicListOperations(const std::string& of) {
  return {
      {of + "WriteMembers", kStatus, "ModifyEntry! ModifyEntry!", 0,
       RUN_ON_LIST(list.WriteMembers())},
      {of + "DestroyList", kStatus, "IOCtl! IOCtl! DeleteAB! IOCtl! IOCtl!", 0,
       RUN_ON_LIST(list.DestroyList()), kAfter},
      {of + "ClearMembers", kStatus, "IOCtl! IOCtl! ClearAB! IOCtl!", 0,
       RUN_ON_LIST(list.ClearMembers()), kAfter},
      {of + "ModifyLocal", kCount, "ModifyEntry!", 2, RUN_ON_LIST(list.ModifyLocal(ann))},
      {of + "RenameLocal", kCount, "ModifyEntry!", 2, RUN_ON_LIST(list.RenameLocal("Ann", ann))},
  };
}

Table PrivateListOperations() {
  return {
      {"CPrivEmailDL DestroyList", kStatus, "IOCtl! IOCtl! DeleteAB! IOCtl!", 0,
       RUN(PrivateList(on).DestroyList()), kAfter},
      {"CPrivEmailDL DestroyKeepingMembers", kStatus, "IOCtl! IOCtl! DeleteAB! IOCtl!", 0,
       RUN(PrivateList(on).DestroyKeepingMembers())},
      {"CPrivEmailDL AddLocalChecked", kCount, "CreateEntry!", 3,
       RUN(PrivateList(on).AddLocalChecked(&on.zoe))},
      {"CPrivEmailDL ModifyLocal", kFlag, "ModifyEntry!", 1,
       RUN(PrivateList(on).ModifyLocal(&on.ann))},
      {"CPrivEmailDL RenameLocal", kFlag, "ModifyEntry!", 1,
       RUN(PrivateList(on).RenameLocal("Ann", &on.ann))},
  };
}

// A list named Choir with the members of another, for a book to add.
template <class List>
std::unique_ptr<List> Choir(List& like) {
  auto list = std::make_unique<List>();
  std::string bytes;
  Archive storing(&bytes);
  like.Serialize(storing);
  Archive loading{std::string_view(bytes)};
  list->Serialize(loading);
  list->SetName("Choir");
  return list;
}

// What an operation gives that takes the list over unless it gives -1.
template <class Book, class List>
std::int64_t Given(std::unique_ptr<List> list, std::int32_t (Book::*add)(List*), Book& book) {
  const std::int32_t result = (book.*add)(list.get());
  if (result >= 0) static_cast<void>(list.release());
  return result;
}

Table EmailOperations() {
  return {
      {"CEmailAB EntryCount", kStatus, "SizeofAB!", 0, RUN(on.email.EntryCount(&count))},
      {"CEmailAB ServerListSize", kStatus, "SizeofAB!", 0,
       RUN(on.email.ServerListSize("Board", &count))},
      {"CEmailAB ServerListCount", kStatus, "ListAB!", 0, RUN(on.email.ServerListCount(&count))},
      {"CEmailAB EnumerateLists", kStatus, "ListAB!", 0,
       RUN(on.email.EnumerateLists(rows.data(), &(count = 4)))},
      {"CEmailAB ReadBoundaries", kStatus, "ReadPageBoundaries!", 0,
       RUN(on.email.ReadBoundaries(letters.data(), &(count = 4)))},
      {"CEmailAB ClearBook", kStatus, "IOCtl~1 IOCtl~ ClearAB? IOCtl- IOCtl~", 0,
       RUN(on.email.ClearBook())},
      {"CEmailAB DeleteBook", kStatus, "IOCtl! IOCtl! DeleteAB? IOCtl~", 0,
       RUN(on.email.DeleteBook())},
      {"CEmailAB DeleteAllLists", kStatus, "IOCtl! IOCtl! DeleteAB~ IOCtl~", 0,
       RUN(on.email.DeleteAllLists())},
      {"CEmailAB SetServerTimeout", kStatus, "IOCtl! IOCtl!", 0,
       RUN(on.email.SetServerTimeout(10, &count))},
      {"CEmailAB LoadLists", kStatus, "ListAB4 SizeofAB- ReadAB~", 0, RUN(on.email.LoadLists(1)),
       kNeither},
      {"CEmailAB AddList", kCount, "ListAB~ CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(Given(Choir(*on.email.ListAt(0)), &CEmailAB::AddList, on.email))},
      {"CEmailAB AddListReload", kFlag, "ListAB~ CreateAB! CreateEntry~ CreateEntry~", 1,
       RUN(on.email.AddListReload(*Choir(*on.email.ListAt(0)), 0))},
      {"CEmailAB DeleteList", kCount, "DeleteAB!", 0, RUN(on.email.DeleteList("Board"))},
      {"CEmailAB DeleteListReload", kFlag, "DeleteAB! ListAB4", 1,
       RUN(on.email.DeleteListReload("Board", 1))},
      {"CEmailAB CopyList", kFlag, "SizeofAB4 ReadAB4 ListAB~ CreateAB! CreateEntry~ CreateEntry~",
       1, RUN(on.email.CopyList(*on.email.ListAt(0), "Choir", 0))},
      {"CEmailAB CopyListLocal", kCount,
       "SizeofAB4 ReadAB4 ListAB~ CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(on.email.CopyListLocal(*on.email.ListAt(0), "Choir"))},
      {"CEmailAB AddEntry", kStatus, "SizeofAB~ CreateEntry!", 0, RUN(on.email.AddEntry(&on.zoe))},
      {"CEmailAB DeleteEntry", kStatus, "DeleteEntry!", 0, RUN(on.email.DeleteEntry(&on.ann))},
      {"CEmailAB ModifyEntry", kStatus, "ModifyEntry!", 0, RUN(on.email.ModifyEntry(&on.ann))},
      {"CEmailAB RenameEntry", kStatus, "ModifyEntry!", 0,
       RUN(on.email.RenameEntry("Ann", &on.zoe))},
      {"CEmailAB ReadEntries", kStatus, "ReadAB!", 0,
       RUN(on.email.ReadEntries(&range, records.data(), &(count = 4), 1))},
      {"CEmailAB ListEntries", kStatus, "ListABEntries!", 0,
       RUN(on.email.ListEntries(&range, keys.data(), &(count = 4), 1))},
      {"CEmailAB ReadFirstEntry", kStatus, "ReadPageBoundaries! ReadAB!", 0,
       RUN(on.email.ReadFirstEntry(records.data()))},
      {"CEmailAB ReadLastEntry", kStatus, "ReadPageBoundaries! ReadAB!", 0,
       RUN(on.email.ReadLastEntry(records.data()))},
      {"CEmailAB CreateMember", kStatus, "CreateEntry!", 0,
       RUN(on.email.CreateMember("Board", &on.zoe))},
      {"CEmailAB CreateMemberAddress", kStatus, "CreateEntry!", 0,
       RUN(on.email.CreateMemberAddress("Board", "Zoe", "at"))},
      {"CEmailAB ModifyList", kStatus, "ModifyEntry!", 0,
       RUN(on.email.ModifyList("Board", &on.ann, &(count = 1)))},
      {"CEmailAB Modify", kStatus, "ModifyEntry!", 0, RUN(on.email.Modify(&on.ann, 1))},
      {"CEmailAB ModifyByKey", kStatus, "ModifyEntry!", 0,
       RUN(on.email.ModifyByKey("Ann", &on.zoe, 1))},
      {"CEmailAB Remove", kStatus, "DeleteEntry!", 0, RUN(on.email.Remove(&on.ann, 1))},
  };
}

Table FaxOperations() {
  return {
      {"CFaxAB Attach", kFlag, "ReadAB4", 1, RUN(on.fax.Attach(TheAgent.ScannerAt(0), 1))},
      {"CFaxAB LoadEntries", kFlag, "ReadAB4", 1, RUN(on.fax.LoadEntries())},
      {"CFaxAB SizeofBook", kStatus, "SizeofAB!", 0, RUN(on.fax.SizeofBook(&count))},
      {"CFaxAB AddEntry", kFlag, "CreateEntry! ReadAB4", 1, RUN(on.fax.AddEntry(&on.faxZoe, 1))},
      {"CFaxAB ReadEntry", kFlag, "ReadEntryProperties! ReadAB4", 1,
       RUN(on.fax.ReadEntry(&on.faxAnn, 1))},
      {"CFaxAB ModifyEntry", kFlag, "ModifyEntry! ReadAB4", 1,
       RUN(on.fax.ModifyEntry(&on.faxAnn, 1))},
      {"CFaxAB RenameEntry", kFlag, "ModifyEntry! ReadAB4", 1,
       RUN(on.fax.RenameEntry("Ann", &on.faxZoe, 1))},
      {"CFaxAB DeleteEntry", kFlag, "DeleteEntry! ReadAB4", 1,
       RUN(on.fax.DeleteEntry(&on.faxAnn, 1))},
      {"CFaxAB FastAddEntry", kCount, "CreateEntry!", 3, RUN(on.fax.FastAddEntry(&on.faxZoe))},
      {"CFaxAB FastModifyEntry", kFlag, "ModifyEntry!", 1, RUN(on.fax.FastModifyEntry(&on.faxAnn))},
      {"CFaxAB FastRenameEntry", kFlag, "ModifyEntry!", 1,
       RUN(on.fax.FastRenameEntry("Ann", &on.faxZoe))},
      {"CFaxAB FastDeleteEntry", kCount, "DeleteEntry!", 1,
       RUN(on.fax.FastDeleteEntry(&on.faxAnn))},
      {"CFaxAB RemoveEntryAt", kFlag, "ReadAB4", 1, RUN(on.fax.RemoveEntryAt(0, 1))},
      {"CFaxAB LoadLists", kStatus, "ListAB4 SizeofAB- ReadAB~", 0, RUN(on.fax.LoadLists(1))},
      {"CFaxAB AddList", kFlag, "ListAB~ CreateAB! CreateEntry~ CreateEntry~", 1,
       RUN(on.fax.AddList(*Choir(*on.fax.ListAt(0)), 0))},
      {"CFaxAB FastAddList", kCount, "ListAB~ CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(Given(Choir(*on.fax.ListAt(0)), &CFaxAB::FastAddList, on.fax))},
      {"CFaxAB DeleteList", kFlag, "DeleteAB! ListAB4", 1, RUN(on.fax.DeleteList("Board", 1))},
      {"CFaxAB FastDeleteList", kCount, "DeleteAB!", 0, RUN(on.fax.FastDeleteList("Board"))},
      {"CFaxAB DuplicateList", kFlag,
       "SizeofAB4 ReadAB4 ListAB~ CreateAB! CreateEntry~ CreateEntry~", 1,
       RUN(on.fax.DuplicateList(*on.fax.ListAt(0), "Choir", 0))},
      {"CFaxAB FastDuplicateList", kFlag,
       "SizeofAB4 ReadAB4 ListAB~ CreateAB! CreateEntry~ CreateEntry~", 1,
       RUN(on.fax.FastDuplicateList(*on.fax.ListAt(0), "Choir"))},
      {"CFaxAB DeleteAllLists", kStatus, "IOCtl! IOCtl! DeleteAB~ IOCtl~", 0,
       RUN(on.fax.DeleteAllLists())},
  };
}

Table PrivateOperations() {
  return {
      {"CPrivEmailAB LoadEntries", kFlag, "ReadAB+ ListAB4 SizeofAB- ReadAB~", 1,
       RUN(on.priv->LoadEntries(1))},
      {"CPrivEmailAB LoadLists", kStatus, "ListAB! SizeofAB- ReadAB~", 0,
       RUN(on.priv->LoadLists(1))},
      {"CPrivEmailAB LoadAllMembers", kStatus, "ListAB- SizeofAB4 ReadAB4", 0,
       RUN((on.priv->LoadLists(0), on.priv->LoadAllMembers()))},
      {"CPrivEmailAB EmptyOnServer", kStatus, "IOCtl! IOCtl! ListAB~1 DeleteAB~ DeleteAB? IOCtl~",
       0, RUN(on.priv->EmptyOnServer())},
      {"CPrivEmailAB DeleteAll", kSilent,
       "IOCtl- IOCtl- IOCtl~3 IOCtl~2 DeleteAB~1 IOCtl~ DeleteAB~ IOCtl~", 0,
       RUN((on.priv->DeleteAll(), 0))},
      {"CPrivEmailAB DeleteAllLists", kSilent, "IOCtl- IOCtl- DeleteAB~ IOCtl~", 0,
       RUN((on.priv->DeleteAllLists(), 0))},
      {"CPrivEmailAB ClearAll", kStatus, "IOCtl! IOCtl! DeleteAB~ DeleteAB~ IOCtl!", 0,
       RUN(on.priv->ClearAll()), kNeither},
      {"CPrivEmailAB ServerEntryCount", kStatus, "SizeofAB!", 0,
       RUN(on.priv->ServerEntryCount(&count))},
      {"CPrivEmailAB ServerListCount", kStatus, "ListAB!", 0,
       RUN(on.priv->ServerListCount(&count))},
      {"CPrivEmailAB AddList", kFlag, "CreateAB! CreateEntry~ CreateEntry!", 1,
       RUN(on.priv->AddList(Choir(*on.priv->ListAt(0)).get(), 0))},
      {"CPrivEmailAB AddListLocal", kCount, "CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(Given(Choir(*on.priv->ListAt(0)), &CPrivEmailAB::AddListLocal, *on.priv))},
      {"CPrivEmailAB DeleteList", kFlag, "DeleteAB! ListAB~", 1,
       RUN(on.priv->DeleteList("Board", 1))},
      {"CPrivEmailAB DeleteListLocal", kCount, "DeleteAB!", 0,
       RUN(on.priv->DeleteListLocal("Board"))},
      {"CPrivEmailAB RenameList", kFlag, "ModifyEntry! ListAB- SizeofAB- ReadAB~", 1,
       RUN(on.priv->RenameList("Board", "Choir", 1))},
      {"CPrivEmailAB CopyListLocal", kFlag, "SizeofAB4 ReadAB4 CreateAB! CreateEntry~ CreateEntry~",
       1, RUN(on.priv->CopyListLocal(*on.priv->ListAt(0), "Choir"))},
      {"CPrivEmailAB CreateListWithMembers", kStatus, "CreateAB~ CreateEntry!", 0,
       RUN(on.priv->CreateListWithMembers("Board", &on.zoe, &(count = 1)))},
      {"CPrivEmailAB CreateServerList", kStatus, "CreateAB!", 0,
       RUN(on.priv->CreateServerList("Choir"))},
      {"CPrivEmailAB ListLists", kStatus, "ListAB!", 0,
       RUN(on.priv->ListLists(rows.data(), &(count = 4)))},
      {"CPrivEmailAB AddEntry", kStatus, "CreateEntry!", 0, RUN(on.priv->AddEntry(&on.zoe))},
      {"CPrivEmailAB ReadEntry", kStatus, "ReadEntryProperties!", 0,
       RUN(on.priv->ReadEntry(&on.ann))},
      {"CPrivEmailAB AddMember", kStatus, "CreateEntry!", 0,
       RUN(on.priv->AddMember("Board", &on.zoe))},
      {"CPrivEmailAB ReadMember", kStatus, "ReadEntryProperties!", 0,
       RUN(on.priv->ReadMember("Board", &on.ann))},
      {"CPrivEmailAB ModifyMember", kStatus, "ModifyEntry!", 0,
       RUN(on.priv->ModifyMember("Board", &on.ann))},
      {"CPrivEmailAB DeleteMember", kStatus, "DeleteEntry!", 0,
       RUN(on.priv->DeleteMember("Board", &on.ann))},
      {"CPrivEmailAB Add", kStatus, "CreateEntry! ReadAB!", 0, RUN(on.priv->Add(&on.zoe, 1))},
      {"CPrivEmailAB Modify", kStatus, "ModifyEntry! ReadAB!", 0, RUN(on.priv->Modify(&on.ann, 1))},
      {"CPrivEmailAB ModifyByKey", kStatus, "ModifyEntry! ReadAB!", 0,
       RUN(on.priv->ModifyByKey("Ann", &on.zoe, 1))},
      {"CPrivEmailAB Remove", kStatus, "DeleteEntry! ReadAB~", 0, RUN(on.priv->Remove(&on.ann, 1))},
      {"CPrivEmailAB AddLocal", kCount, "CreateEntry!", 3, RUN(on.priv->AddLocal(&on.zoe))},
      {"CPrivEmailAB ModifyLocal", kFlag, "ModifyEntry!", 1, RUN(on.priv->ModifyLocal(&on.ann))},
      {"CPrivEmailAB ModifyLocalByKey", kFlag, "ModifyEntry!", 1,
       RUN(on.priv->ModifyLocalByKey("Ann", &on.zoe))},
      {"CPrivEmailAB RemoveLocal", kCount, "DeleteEntry!", 1, RUN(on.priv->RemoveLocal(&on.ann))},
      {"CPrivEmailAB CopyPublicList", kFlag, "CreateAB! CreateEntry~ CreateEntry!", 1,
       RUN(on.priv->CopyPublicList(on.email.ListAt(0), "Choir", 0))},
  };
}

Table UserOperations() {
  return {
      {"CUserAB Load", kFlag, "ReadAB4", 1, RUN(on.users.Load())},
      {"CUserAB AddUser", kFlag, "CreateEntry! ReadAB~", 1, RUN(on.users.AddUser(&on.newUser, 1))},
      {"CUserAB ReadUser", kFlag, "ReadEntryProperties!", 1, RUN(on.users.ReadUser(&on.user, 0))},
      {"CUserAB ModifyUser", kFlag, "ModifyEntry!", 1, RUN(on.users.ModifyUser(&on.user, 0))},
      {"CUserAB RenameUser", kFlag, "ModifyEntry! ReadAB~", 1,
       RUN(on.users.RenameUser("Ann", &on.newUser, 1))},
      {"CUserAB DeleteUser", kFlag, "IOCtl~4 IOCtl~3 ClearAB~2 IOCtl~1 IOCtl~ DeleteEntry! ReadAB~",
       1, RUN(on.users.DeleteUser(&on.user, 1))},
      {"CUserAB AddLocal", kCount, "CreateEntry!", 5, RUN(on.users.AddLocal(&on.newUser))},
      {"CUserAB DeleteLocal", kCount, "DeleteEntry!", 3, RUN(on.users.DeleteLocal(&on.user))},
      {"CUserAB RenameLocal", kFlag, "ModifyEntry!", 1,
       RUN(on.users.RenameLocal("Ann", &on.newUser))},
      {"CUserAB ModifyLocal", kFlag, "ModifyEntry!", 1, RUN(on.users.ModifyLocal(&on.user))},
      {"CUserAB ServerCount", kStatus, "SizeofAB!", 0, RUN(on.users.ServerCount(&count))},
      {"CUserAB SaveAll", kStatus, "ModifyEntry! ModifyEntry! ModifyEntry! ModifyEntry!", 0,
       RUN(on.users.SaveAll())},
      {"CUserAB LoadUserLog", kStatus, "SizeofAB!", 0, RUN(on.users.LoadUserLog(on.user))},
      {"CUserAB ClearUserLog", kStatus, "IOCtl! IOCtl! ClearAB! IOCtl! IOCtl!", 0,
       RUN(on.users.ClearUserLog(on.user))},
      {"CUserAB ClearAll", kStatus,
       "IOCtl~4 IOCtl~3 ClearAB~2 IOCtl~1 IOCtl~ IOCtl~1 IOCtl~ ClearAB? IOCtl~1 IOCtl~ ReadAB~", 0,
       RUN(on.users.ClearAll())},
      {"CUserRecord LoadPrivateBook", kFlag, "ReadAB+ ListAB4 SizeofAB- ReadAB~", 1,
       RUN(on.user.LoadPrivateBook())},
      {"CUserRecord CreatePrivateEntry", kStatus, "CreateEntry!", 0,
       RUN(on.user.CreatePrivateEntry(&on.zoe))},
      {"CUserRecord MarkOnce", kFlag, "ModifyEntry!", 1, RUN(on.user.MarkOnce(0))},
      {"CUserRecord TurnOn", kFlag, "ModifyEntry!", 1, RUN(on.user.TurnOn(0))},
      {"CUserRecord TurnOff", kFlag, "ModifyEntry!", 1, RUN(on.user.TurnOff(0))},
  };
}

template <class Entry>
void PutBoth(BookKind book, BookKind list, const char* user, Entry (*make)(std::string_view)) {
  for (const char* name : {"Ann", "Bob"}) {
    const Entry entry = make(name);
    SimulatorPutEntry(book, "", user, &entry);
    SimulatorPutEntry(list, "Board", user, &entry);
  }
}

void Name(CUserRecord& record, std::string_view name, CUserAB* owner) {
  const std::uint32_t none = 0;
  record.SetFrom(owner, name, "secret", "", "", &none, &none);
}

template <class Lists>
void ShowLists(const Lists& book, std::string& held) {
  for (std::int32_t i = 0; i < book.ListCount(); ++i) {
    auto* list = book.ListAt(i);
    held += list->Name() + "{";
    for (std::int32_t j = 0; j < list->Count(); ++j) held.append(list->GetAt(j)->Name()) += ' ';
    held += "} ";
  }
}

}  // namespace

BookStage::BookStage(bool throughOwner) : box(TheAgent.ScannerAt(0)) {
  const auto makeEmail = [](std::string_view name) { return MakeEntry(name); };
  PutBoth<CEmailEntry>(BookKind::kEmail, BookKind::kPublicList, nullptr, makeEmail);
  PutBoth<CEmailEntry>(BookKind::kPrivateEmail, BookKind::kPrivateList, kAdministrator.c_str(),
                       makeEmail);
  PutBoth<CFaxEntry>(BookKind::kFax, BookKind::kFaxList, nullptr, MakeFax);
  ann = MakeEntry("Ann", "elsewhere");
  zoe = MakeEntry("Zoe");
  faxAnn = MakeFax("Ann");
  faxZoe = MakeFax("Zoe");
  Name(user, "Ann", throughOwner ? &users : nullptr);
  Name(newUser, "Zoe", throughOwner ? &users : nullptr);
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, static_cast<CUserEntry*>(&user));
  email.Attach(box, 0);
  email.LoadLists(1);
  fax.Attach(box, 1);
  fax.LoadLists(1);
  users.Attach(box, 0, 1);
  user.LoadPrivateBook();
  priv = user.PrivateBook();
}

std::string BookStage::Held() {
  std::string held;
  ShowLists(email, held);
  for (std::int32_t i = 0; i < fax.EntryCount(); ++i) held.append(fax.EntryAt(i)->Name()) += ' ';
  ShowLists(fax, held);
  CPrivEmailAB* book = user.PrivateBook();
  for (std::int32_t i = 0; i < book->EntryCount(); ++i) {
    held.append(book->EntryAt(i)->Name()) += ' ';
  }
  ShowLists(*book, held);
  for (std::int32_t i = 0; i < users.Count(); ++i) {
    CUserRecord record;
    held.append(users.GetAt(i, &record)->Name()) += ' ';
  }
  return held;
}

std::vector<BookOperation> BookOperations() {
  Table all;
  for (const Table& each :
       {ListOperations<EmailList>("CPubEmailDL "), PublicListOperations<EmailList>("CPubEmailDL "),
        ListOperations<FaxList>("CPubFaxDL "), PublicListOperations<FaxList>("CPubFaxDL "),
        ListOperations<PrivateList>("CPrivEmailDL "), PrivateListOperations(), EmailOperations(),
        FaxOperations(), PrivateOperations(), UserOperations()}) {
    all.insert(all.end(), each.begin(), each.end());
  }
  return all;
}

}  // namespace quillkit
