#include "tests/books/book_operation.h"

#include <algorithm>
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
using enum BookStage::Setting;
using Table = std::vector<BookOperation>;

// What the server calls fill in.
std::uint32_t count;
KeyRange range({}, {});
std::array<ABIdent, 4> rows;
std::array<EntryKey, 4> keys;
std::array<PageBoundary, 4> letters;
std::array<CEmailEntry, 4> records;
IOCtlRecord request;

#define RUN(expression) [](BookStage& on) -> std::int64_t { return expression; }
#define RUN_ON_LIST(expression)                          \
  [](BookStage& on) -> std::int64_t {                    \
    auto& list = Get(on);                                \
    [[maybe_unused]] auto* const ann = &Kept(on, list);  \
    [[maybe_unused]] auto* const zoe = &Fresh(on, list); \
    return expression;                                   \
  }

// A row: an operation of the object and its arguments, in parentheses.
#define CALL(of, object, operation, style, calls, success, arguments) \
  { of #operation, style, calls, success, RUN(object operation arguments) }
#define ON_LIST(operation, style, calls, success, arguments) \
  { of + #operation, style, calls, success, RUN_ON_LIST(list.operation arguments) }
#define PRIVATE_LIST(operation, ...) \
  CALL("CPrivEmailDL ", PrivateEmailList(on)., operation, __VA_ARGS__)
#define EMAIL(operation, ...) CALL("CEmailAB ", on.email., operation, __VA_ARGS__)
#define FAX(operation, ...) CALL("CFaxAB ", on.fax., operation, __VA_ARGS__)
#define PRIVATE(operation, ...) CALL("CPrivEmailAB ", on.priv->, operation, __VA_ARGS__)
#define USERS(operation, ...) CALL("CUserAB ", on.users., operation, __VA_ARGS__)
#define PRINTERS(operation, ...) CALL("CPrinterAB ", on.printers., operation, __VA_ARGS__)
#define USER(operation, ...) CALL("CUserRecord ", on.user., operation, __VA_ARGS__)

CFaxEntry MakeFax(std::string_view name, std::string_view number = "at") {
  CFaxEntry entry;
  entry.SetName(name);
  entry.SetNumber(number);
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
CPrivEmailDL& PrivateEmailList(BookStage& on) {
  return *on.priv->ListAt(0);
}

// What every kind of list does. `Get` gives the one that is held.
template <auto Get>
Table ListOperations(const std::string& of) {
  return {
      ON_LIST(GetMemberCount, kStatus, "SizeofAB! loose", 0, (&count)),
      ON_LIST(ReadMember, kStatus, "ReadEntryProperties!", 0, (ann)),
      ON_LIST(AddMember, kStatus, "CreateEntry! SizeofAB- ReadAB~", 0, (zoe, 1)),
      ON_LIST(AddMemberUnlimited, kStatus, "CreateEntry! SizeofAB- ReadAB~", 0, (zoe, 1)),
      ON_LIST(ModifyMember, kStatus, "ModifyEntry! SizeofAB- ReadAB~", 0, (ann, 1)),
      ON_LIST(RenameMember, kStatus, "ModifyEntry! SizeofAB- ReadAB~", 0, ("Ann", zoe, 1)),
      ON_LIST(RemoveMember, kStatus, "DeleteEntry! SizeofAB- ReadAB~", 0, (ann, 1)),
      ON_LIST(Reload, kStatus, "SizeofAB! ReadAB! neither", 0, ()),
      ON_LIST(Open, kStatus, "SizeofAB! ReadAB! neither loose", 0, (list.Book(), "Board")),
      ON_LIST(SetAt, kStatus, "ModifyEntry! SizeofAB- ReadAB~ neither", 0, (0, *ann, 1)),
      ON_LIST(RemoveAt, kStatus, "DeleteEntry! SizeofAB- ReadAB~ neither", 0, (0, 1)),
      ON_LIST(AddLocal, kCount, "CreateEntry!", 3, (zoe)),
      ON_LIST(AddLocalUnlimited, kCount, "CreateEntry!", 3, (zoe)),
      ON_LIST(RemoveLocal, kCount, "DeleteEntry!", 1, (ann)),
  };
}

// What the public kinds alone do so.
template <auto Get>
Table PublicListOperations(const std::string& of) {
  return {
      ON_LIST(WriteMembers, kStatus, "ModifyEntry! ModifyEntry!", 0, ()),
      ON_LIST(DestroyList, kStatus, "IOCtl! IOCtl! DeleteAB! IOCtl! IOCtl! after stale", 0, ()),
      ON_LIST(ClearMembers, kStatus, "IOCtl! IOCtl! ClearAB! IOCtl! after loose", 0, ()),
      ON_LIST(ModifyLocal, kCount, "ModifyEntry!", 2, (ann)),
      ON_LIST(RenameLocal, kCount, "ModifyEntry!", 2, ("Ann", ann)),
  };
}

Table PrivateListOperations() {
  return {
      PRIVATE_LIST(DestroyList, kStatus, "IOCtl! IOCtl! DeleteAB! IOCtl! after stale loose", 0, ()),
      PRIVATE_LIST(DestroyKeepingMembers, kStatus, "IOCtl! IOCtl! DeleteAB! IOCtl! stale loose", 0,
                   ()),
      PRIVATE_LIST(AddLocalChecked, kCount, "CreateEntry!", 3, (&on.zoe)),
      PRIVATE_LIST(ModifyLocal, kFlag, "ModifyEntry! loose", 1, (&on.ann)),
      PRIVATE_LIST(RenameLocal, kFlag, "ModifyEntry! loose", 1, ("Ann", &on.ann)),
  };
}

// Gives `to` what `from` has, by way of an archive.
template <class Stored>
void Carry(Stored& from, Stored& to) {
  std::string bytes;
  Archive storing(&bytes);
  from.Serialize(storing);
  Archive loading{std::string_view(bytes)};
  to.Serialize(loading);
}

// A list named Choir with the members of another, for a book to add.
template <class List>
std::unique_ptr<List> Choir(List& like) {
  auto list = std::make_unique<List>();
  Carry(like, *list);
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
      EMAIL(EntryCount, kStatus, "SizeofAB!", 0, (&count)),
      EMAIL(ServerListSize, kStatus, "SizeofAB!", 0, ("Board", &count)),
      EMAIL(ServerListCount, kStatus, "ListAB!", 0, (&count)),
      EMAIL(EnumerateLists, kStatus, "ListAB!", 0, (rows.data(), &(count = 4))),
      EMAIL(ReadBoundaries, kStatus, "ReadPageBoundaries! loose", 0,
            (letters.data(), &(count = 4))),
      EMAIL(ClearBook, kStatus, "IOCtl~1 IOCtl~ ClearAB? IOCtl- IOCtl~", 0, ()),
      EMAIL(DeleteBook, kStatus, "IOCtl! IOCtl! DeleteAB? IOCtl~ stale", 0, ()),
      EMAIL(DeleteAllLists, kStatus, "IOCtl! IOCtl! DeleteAB~ IOCtl~", 0, ()),
      EMAIL(SetServerTimeout, kStatus, "IOCtl! IOCtl!", 0, (10, &count)),
      EMAIL(LoadLists, kStatus, "ListAB4 SizeofAB- ReadAB~ neither", 0, (1)),
      {"CEmailAB AddList", kCount, "ListAB~ CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(Given(Choir(*on.email.ListAt(0)), &CEmailAB::AddList, on.email))},
      EMAIL(AddListReload, kFlag, "ListAB~ CreateAB! CreateEntry~ CreateEntry~ stale", 1,
            (*Choir(*on.email.ListAt(0)), 0)),
      EMAIL(DeleteList, kCount, "DeleteAB!", 0, ("Board")),
      EMAIL(DeleteListReload, kFlag, "DeleteAB! ListAB4", 1, ("Board", 1)),
      EMAIL(CopyList, kFlag, "SizeofAB4 ReadAB! ListAB~ CreateAB! CreateEntry~ CreateEntry~ stale",
            1, (*on.email.ListAt(0), "Choir", 0)),
      EMAIL(CopyListLocal, kCount, "SizeofAB4 ReadAB! ListAB~ CreateAB! CreateEntry~ CreateEntry~",
            2, (*on.email.ListAt(0), "Choir")),
      EMAIL(AddEntry, kStatus, "SizeofAB~ CreateEntry!", 0, (&on.zoe)),
      EMAIL(DeleteEntry, kStatus, "DeleteEntry!", 0, (&on.ann)),
      EMAIL(ModifyEntry, kStatus, "ModifyEntry!", 0, (&on.ann)),
      EMAIL(RenameEntry, kStatus, "ModifyEntry!", 0, ("Ann", &on.zoe)),
      EMAIL(ReadEntries, kStatus, "ReadAB!", 0, (&range, records.data(), &(count = 4), 1)),
      EMAIL(ListEntries, kStatus, "ListABEntries!", 0, (&range, keys.data(), &(count = 4), 1)),
      EMAIL(ReadFirstEntry, kStatus, "ReadPageBoundaries! ReadAB!", 0, (records.data())),
      EMAIL(ReadLastEntry, kStatus, "ReadPageBoundaries! ReadAB!", 0, (records.data())),
      EMAIL(CreateMember, kStatus, "CreateEntry! stale", 0, ("Board", &on.zoe)),
      EMAIL(CreateMemberAddress, kStatus, "CreateEntry! stale", 0, ("Board", "Zoe", "at")),
      EMAIL(ReadMembers, kStatus, "ReadAB!", 0, ("Board", records.data(), &(count = 2))),
      EMAIL(ReadMember, kStatus, "ReadEntryProperties!", 0, ("Board", &on.ann)),
      EMAIL(ModifyMember, kStatus, "ModifyEntry! stale", 0, ("Board", &on.ann)),
      EMAIL(RenameMember, kStatus, "ModifyEntry! stale", 0, ("Board", "Ann", &on.zoe)),
      EMAIL(DeleteMember, kStatus, "DeleteEntry! stale", 0, ("Board", &on.ann)),
      EMAIL(DeleteServerList, kStatus, "DeleteAB! stale", 0, ("Board")),
      EMAIL(ServerCall, kStatus, "IOCtl!", 0, (&(request = {}))),
      EMAIL(ModifyList, kStatus, "ModifyEntry! stale", 0, ("Board", &on.ann, &(count = 1))),
      EMAIL(Modify, kStatus, "ModifyEntry!", 0, (&on.ann, 1)),
      EMAIL(ModifyByKey, kStatus, "ModifyEntry!", 0, ("Ann", &on.zoe, 1)),
      EMAIL(Remove, kStatus, "DeleteEntry!", 0, (&on.ann, 1)),
  };
}

Table FaxOperations() {
  return {
      FAX(Attach, kFlag, "ReadAB4 loose", 1, (TheAgent.ScannerAt(0), 1)),
      FAX(LoadEntries, kFlag, "ReadAB4", 1, ()),
      FAX(SizeofBook, kStatus, "SizeofAB!", 0, (&count)),
      FAX(AddEntry, kFlag, "CreateEntry! ReadAB4", 1, (&on.faxZoe, 1)),
      FAX(ReadEntry, kFlag, "ReadEntryProperties! ReadAB4", 1, (&on.faxAnn, 1)),
      FAX(ModifyEntry, kFlag, "ModifyEntry! ReadAB4", 1, (&on.faxAnn, 1)),
      FAX(RenameEntry, kFlag, "ModifyEntry! ReadAB4", 1, ("Ann", &on.faxZoe, 1)),
      FAX(DeleteEntry, kFlag, "DeleteEntry! ReadAB4", 1, (&on.faxAnn, 1)),
      FAX(FastAddEntry, kCount, "CreateEntry!", 3, (&on.faxZoe)),
      FAX(FastModifyEntry, kFlag, "ModifyEntry!", 1, (&on.faxAnn)),
      FAX(FastRenameEntry, kFlag, "ModifyEntry!", 1, ("Ann", &on.faxZoe)),
      FAX(FastDeleteEntry, kCount, "DeleteEntry!", 1, (&on.faxAnn)),
      FAX(RemoveEntryAt, kFlag, "ReadAB4", 1, (0, 1)),
      FAX(LoadLists, kStatus, "ListAB4 SizeofAB- ReadAB~", 0, (1)),
      FAX(AddList, kFlag, "ListAB~ CreateAB! CreateEntry~ CreateEntry~ stale", 1,
          (*Choir(*on.fax.ListAt(0)), 0)),
      {"CFaxAB FastAddList", kCount, "ListAB~ CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(Given(Choir(*on.fax.ListAt(0)), &CFaxAB::FastAddList, on.fax))},
      FAX(DeleteList, kFlag, "DeleteAB! ListAB4", 1, ("Board", 1)),
      FAX(FastDeleteList, kCount, "DeleteAB!", 0, ("Board")),
      FAX(DuplicateList, kFlag,
          "SizeofAB4 ReadAB! ListAB~ CreateAB! CreateEntry~ CreateEntry~ stale", 1,
          (*on.fax.ListAt(0), "Choir", 0)),
      FAX(FastDuplicateList, kFlag, "SizeofAB4 ReadAB! ListAB~ CreateAB! CreateEntry~ CreateEntry~",
          1, (*on.fax.ListAt(0), "Choir")),
      FAX(DeleteAllLists, kStatus, "IOCtl! IOCtl! DeleteAB~ IOCtl~ loose", 0, ()),
  };
}

Table PrivateOperations() {
  return {
      PRIVATE(LoadEntries, kFlag, "ReadAB+ ListAB4 SizeofAB- ReadAB~", 1, (1)),
      PRIVATE(LoadLists, kStatus, "ListAB! SizeofAB- ReadAB~", 0, (1)),
      {"CPrivEmailAB LoadAllMembers", kStatus, "ListAB- SizeofAB4 ReadAB4 loose", 0,
       RUN((on.priv->LoadLists(0), on.priv->LoadAllMembers()))},
      PRIVATE(EmptyOnServer, kStatus,
              "IOCtl! IOCtl! ListAB~1 DeleteAB~ DeleteAB? IOCtl~ stale loose", 0, ()),
      {"CPrivEmailAB DeleteAll", kSilent,
       "IOCtl- IOCtl- IOCtl~3 IOCtl~2 DeleteAB~1 IOCtl~ DeleteAB~ IOCtl~ stale loose", 0,
       RUN((on.priv->DeleteAll(), 0))},
      {"CPrivEmailAB DeleteAllLists", kSilent, "IOCtl- IOCtl- DeleteAB~ IOCtl~ loose", 0,
       RUN((on.priv->DeleteAllLists(), 0))},
      PRIVATE(ClearAll, kStatus, "IOCtl! IOCtl! DeleteAB~ DeleteAB~ IOCtl! neither stale loose", 0,
              ()),
      PRIVATE(ServerEntryCount, kStatus, "SizeofAB! loose", 0, (&count)),
      PRIVATE(ServerListCount, kStatus, "ListAB! loose", 0, (&count)),
      PRIVATE(AddList, kFlag, "CreateAB! CreateEntry~ CreateEntry! stale", 1,
              (Choir(*on.priv->ListAt(0)).get(), 0)),
      {"CPrivEmailAB AddListLocal", kCount, "CreateAB! CreateEntry~ CreateEntry~", 2,
       RUN(Given(Choir(*on.priv->ListAt(0)), &CPrivEmailAB::AddListLocal, *on.priv))},
      PRIVATE(DeleteList, kFlag, "DeleteAB! ListAB~", 1, ("Board", 1)),
      PRIVATE(DeleteListLocal, kCount, "DeleteAB!", 0, ("Board")),
      PRIVATE(RenameList, kFlag, "ModifyEntry! ListAB- SizeofAB- ReadAB~", 1,
              ("Board", "Choir", 1)),
      PRIVATE(CopyListLocal, kFlag, "SizeofAB4 ReadAB! CreateAB! CreateEntry~ CreateEntry~", 1,
              (*on.priv->ListAt(0), "Choir")),
      PRIVATE(CreateListWithMembers, kStatus, "CreateAB~ CreateEntry! stale", 0,
              ("Board", &on.zoe, &(count = 1))),
      PRIVATE(CreateServerList, kStatus, "CreateAB! stale", 0, ("Choir")),
      PRIVATE(ListLists, kStatus, "ListAB!", 0, (rows.data(), &(count = 4))),
      PRIVATE(AddEntry, kStatus, "CreateEntry! stale", 0, (&on.zoe)),
      PRIVATE(ReadEntry, kStatus, "ReadEntryProperties!", 0, (&on.ann)),
      PRIVATE(CreateServerEntry, kStatus, "CreateEntry! stale", 0, (&on.zoe)),
      PRIVATE(ReadEntries, kStatus, "ReadAB!", 0, (&range, records.data(), &(count = 4), 1)),
      PRIVATE(ModifyEntry, kStatus, "ModifyEntry! stale", 0, (&on.ann)),
      PRIVATE(RenameEntry, kStatus, "ModifyEntry! stale", 0, ("Ann", &on.zoe)),
      PRIVATE(DeleteEntry, kStatus, "DeleteEntry! stale", 0, (&on.ann)),
      PRIVATE(ListSize, kStatus, "SizeofAB!", 0, ("Board", &count)),
      PRIVATE(DeleteServerList, kStatus, "DeleteAB! stale", 0, ("Board")),
      PRIVATE(RenameServerList, kStatus, "ModifyEntry! stale", 0, ("Board", "Choir")),
      PRIVATE(CreateMember, kStatus, "CreateEntry! stale", 0, ("Board", &on.zoe)),
      PRIVATE(ReadMembers, kStatus, "ReadAB!", 0, ("Board", records.data(), &(count = 4))),
      PRIVATE(RenameMember, kStatus, "ModifyEntry! stale", 0, ("Board", "Ann", &on.zoe)),
      PRIVATE(AddMember, kStatus, "CreateEntry! stale", 0, ("Board", &on.zoe)),
      PRIVATE(ReadMember, kStatus, "ReadEntryProperties!", 0, ("Board", &on.ann)),
      PRIVATE(ModifyMember, kStatus, "ModifyEntry! stale", 0, ("Board", &on.ann)),
      PRIVATE(DeleteMember, kStatus, "DeleteEntry! stale", 0, ("Board", &on.ann)),
      PRIVATE(Add, kStatus, "CreateEntry! ReadAB!", 0, (&on.zoe, 1)),
      PRIVATE(Read, kStatus, "ReadEntryProperties! ReadAB!", 0, (&on.ann, 1)),
      PRIVATE(Modify, kStatus, "ModifyEntry! ReadAB!", 0, (&on.ann, 1)),
      PRIVATE(ModifyByKey, kStatus, "ModifyEntry! ReadAB!", 0, ("Ann", &on.zoe, 1)),
      PRIVATE(Remove, kStatus, "DeleteEntry! ReadAB~", 0, (&on.ann, 1)),
      PRIVATE(AddLocal, kCount, "CreateEntry!", 3, (&on.zoe)),
      PRIVATE(ModifyLocal, kFlag, "ModifyEntry!", 1, (&on.ann)),
      PRIVATE(ModifyLocalByKey, kFlag, "ModifyEntry!", 1, ("Ann", &on.zoe)),
      PRIVATE(RemoveLocal, kCount, "DeleteEntry!", 1, (&on.ann)),
      PRIVATE(CopyPublicList, kFlag, "CreateAB! CreateEntry~ CreateEntry! stale", 1,
              (on.email.ListAt(0), "Choir", 0)),
  };
}

// Loads, and additions that are followed by one, tell by their results what came of it.
Table PrinterOperations() {
  return {
      PRINTERS(ServerCount, kStatus, "SizeofAB!", 0, (&count)),
      PRINTERS(ClearBook, kStatus, "IOCtl~1 IOCtl~ ClearAB? IOCtl- IOCtl~", 0, ()),
      PRINTERS(DeleteBook, kStatus, "IOCtl! IOCtl! DeleteAB? IOCtl~ loose", 0, ()),
      PRINTERS(AddModel, kCount, "CreateEntry!", 1, (&on.newModel, false)),
      PRINTERS(ModifyModel, kFlag, "ModifyEntry!", 1, (&on.model, false)),
      PRINTERS(DeleteModel, kFlag, "DeleteEntry! stale", 1, ("Ann", false)),
      PRINTERS(AddPrinter, kCount, "CreateEntry! stale", 2, (&on.printerZoe, false)),
      PRINTERS(DeletePrinter, kFlag, "DeleteEntry! ListABEntries- ReadEntryProperties~", 1,
               ("Ann", true)),
      PRINTERS(ModifyPrinter, kFlag,
               "ModifyEntry! ListABEntries- ReadEntryProperties~ ReadEntryProperties~", 1,
               (&on.printerAnn, true)),
      PRINTERS(RenamePrinter, kFlag,
               "ModifyEntry! ListABEntries- ReadEntryProperties~ ReadEntryProperties~", 1,
               ("Ann", &on.printerZoe, true)),
      PRINTERS(SetDefaultPrinter, kCount,
               "ReadEntryProperties! ModifyEntry! ModifyEntry! ListABEntries! "
               "ReadEntryProperties~ ReadEntryProperties~ neither",
               -1, ("Ann")),
      PRINTERS(FastAddPrinter, kCount, "CreateEntry!", 3, (&on.printerZoe)),
      PRINTERS(FastDeletePrinter, kCount, "DeleteEntry!", 1, (&on.printerAnn)),
      PRINTERS(FastModifyPrinter, kFlag, "ModifyEntry!", 1, (&on.printerAnn)),
      PRINTERS(FastRenamePrinter, kFlag, "ModifyEntry!", 1, ("Ann", &on.printerZoe)),
  };
}

Table UserOperations() {
  return {
      USERS(Load, kFlag, "ReadAB4", 1, ()),
      USERS(AddUser, kFlag, "CreateEntry! ReadAB~", 1, (&on.newUser, 1)),
      USERS(ReadUser, kFlag, "ReadEntryProperties!", 1, (&on.user, 0)),
      USERS(ModifyUser, kFlag, "ModifyEntry! stale", 1, (&on.user, 0)),
      USERS(RenameUser, kFlag, "ModifyEntry! ReadAB~", 1, ("Ann", &on.newUser, 1)),
      USERS(DeleteUser, kFlag, "IOCtl~4 IOCtl~3 ClearAB~2 IOCtl~1 IOCtl~ DeleteEntry! ReadAB~", 1,
            (&on.user, 1)),
      USERS(AddLocal, kCount, "CreateEntry!", 5, (&on.newUser)),
      USERS(DeleteLocal, kCount, "DeleteEntry!", 3, (&on.user)),
      USERS(RenameLocal, kFlag, "ModifyEntry!", 1, ("Ann", &on.newUser)),
      USERS(ModifyLocal, kFlag, "ModifyEntry!", 1, (&on.user)),
      USERS(ServerCount, kStatus, "SizeofAB!", 0, (&count)),
      USERS(SaveAll, kStatus, "ModifyEntry! ModifyEntry! ModifyEntry! ModifyEntry!", 0, ()),
      USERS(LoadUserLog, kStatus, "SizeofAB!", 0, (on.user)),
      USERS(ClearUserLog, kStatus, "IOCtl! IOCtl! ClearAB! IOCtl! IOCtl!", 0, (on.user)),
      USERS(ClearAll, kStatus,
            "IOCtl~4 IOCtl~3 ClearAB~2 IOCtl~1 IOCtl~ IOCtl~1 IOCtl~ ClearAB? IOCtl~1 IOCtl~ "
            "ReadAB~ loose",
            0, ()),
      USER(LoadPrivateBook, kFlag, "ReadAB+ ListAB4 SizeofAB- ReadAB~", 1, ()),
      USER(CreatePrivateEntry, kStatus, "CreateEntry! stale", 0, (&on.zoe)),
      USER(MarkOnce, kFlag, "ModifyEntry! stale", 1, (0)),
      USER(TurnOn, kFlag, "ModifyEntry! stale", 1, (0)),
      USER(TurnOff, kFlag, "ModifyEntry! stale", 1, (0)),
  };
}

void Name(CUserRecord& record, std::string_view name, CUserAB* owner) {
  const std::uint32_t none = 0;
  record.SetFrom(owner, name, "secret", "", "", &none, &none);
}

std::string Shown(const CEmailEntry& entry) {
  return std::string(entry.Name()) + "=" + entry.Address();
}
std::string Shown(const CFaxEntry& entry) {
  return std::string(entry.Name()) + "=" + entry.Number();
}

std::string Shown(const CUserRecord& account) {
  return std::string(account.Name()) + "=" + account.Fourth();
}
std::string Shown(const PrinterRecord& printer) {
  return std::string(printer.printerName.View()) + "=" + std::string(printer.description.View()) +
         (printer.isDefault != 0 ? " default" : "");
}

template <class At>
void Show(std::vector<std::string>& held, const std::string& of, std::int32_t size, At at) {
  for (std::int32_t i = 0; i < size; ++i) held.push_back(of + Shown(*at(i)));
}

template <class Lists>
void ShowLists(std::vector<std::string>& held, const std::string& of, const Lists& book) {
  for (std::int32_t i = 0; i < book.ListCount(); ++i) {
    auto* list = book.ListAt(i);
    held.push_back(of + list->Name());
    Show(held, of + list->Name() + ": ", list->Count(),
         [&](std::int32_t at) { return list->GetAt(at); });
  }
}

}  // namespace

BookStage::BookStage(bool throughOwner, Setting setting) : box(TheAgent.ScannerAt(0)) {
  ann = MakeEntry("Ann", "elsewhere");
  zoe = MakeEntry("Zoe");
  faxAnn = MakeFax("Ann", "elsewhere");
  faxZoe = MakeFax("Zoe");
  Name(user, "Ann", throughOwner ? &users : nullptr);
  Name(newUser, "Zoe", throughOwner ? &users : nullptr);
  printerAnn.SetAll(nullptr, "Ann", "elsewhere", "Ann", 0);
  printerZoe.SetAll(nullptr, "Zoe", "at", "Ann", 0);
  model.SetModelName("Ann");
  newModel.SetModelName("Zoe");
  if (setting == kFurnished) Furnish();
  user.SetFourth("elsewhere");
  if (setting == kWithoutABook) {
    BookStage other(throughOwner);
    user.CreatePrivateBook();
    priv = user.PrivateBook();
    Carry(other.email, email);
    Carry(other.fax, fax);
    Carry(*other.priv, *priv);
    return;
  }
  email.Attach(box, 0);
  email.LoadLists(1);
  fax.Attach(box, 1);
  fax.LoadLists(1);
  users.Attach(box, 0, 1);
  printers.Attach(box, 1);
  user.LoadPrivateBook();
  priv = user.PrivateBook();
}

void BookStage::Furnish() {
  for (const char* name : {"Ann", "Bob"}) {
    const CEmailEntry entry = MakeEntry(name);
    const CFaxEntry faxEntry = MakeFax(name);
    SimulatorPutEntry(BookKind::kEmail, "", nullptr, &entry);
    SimulatorPutEntry(BookKind::kPublicList, "Board", nullptr, &entry);
    SimulatorPutEntry(BookKind::kPrivateEmail, "", kAdministrator.c_str(), &entry);
    SimulatorPutEntry(BookKind::kPrivateList, "Board", kAdministrator.c_str(), &entry);
    SimulatorPutEntry(BookKind::kFax, "", nullptr, &faxEntry);
    SimulatorPutEntry(BookKind::kFaxList, "Board", nullptr, &faxEntry);
    PrinterRecord printer;
    printer.SetAll(nullptr, name, "at", "Ann", name == std::string_view("Bob") ? 1 : 0);
    SimulatorPutEntry(BookKind::kPrinters, "", nullptr, &printer);
  }
  SimulatorPutEntry(BookKind::kModels, "", nullptr, &model);
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, static_cast<CUserEntry*>(&user));
}

std::vector<std::string> BookStage::Held() {
  std::vector<std::string> held;
  ShowLists(held, "e-mail ", email);
  ShowLists(held, "fax ", fax);
  ShowLists(held, "private ", *user.PrivateBook());
  Show(held, "fax: ", fax.EntryCount(), [&](std::int32_t i) { return fax.EntryAt(i); });
  Show(held, "private: ", user.PrivateBook()->EntryCount(),
       [&](std::int32_t i) { return user.PrivateBook()->EntryAt(i); });
  Show(held, "printer: ", printers.PrinterCount(),
       [&](std::int32_t i) { return printers.PrinterAt(i); });
  CUserRecord record;
  Show(held, "account: ", users.Count(), [&](std::int32_t i) { return users.GetAt(i, &record); });
  std::sort(held.begin(), held.end());
  return held;
}

std::vector<BookOperation> BookOperations() {
  Table all;
  for (const Table& each :
       {ListOperations<EmailList>("CPubEmailDL "), PublicListOperations<EmailList>("CPubEmailDL "),
        ListOperations<FaxList>("CPubFaxDL "), PublicListOperations<FaxList>("CPubFaxDL "),
        ListOperations<PrivateEmailList>("CPrivEmailDL "), PrivateListOperations(),
        EmailOperations(), FaxOperations(), PrivateOperations(), PrinterOperations(),
        UserOperations()}) {
    all.insert(all.end(), each.begin(), each.end());
  }
  return all;
}

}  // namespace quillkit
