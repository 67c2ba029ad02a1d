#include "tests/books/book_operations.h"

#include <array>
#include <memory>
#include <string>

namespace quillkit {
namespace {

// Variables that the server calls fill.
std::uint32_t count;
KeyRange range({}, {});
std::array<ABIdent, 4> rows;
std::array<EntryKey, 4> keys;
std::array<PageBoundary, 4> letters;
std::array<CEmailEntry, 4> records;
IOCtlRecord request;

// A list Board or a book, and entries for it.
template <class Object, class Entry>
struct Part {
  Object& self;
  Entry* ann;
  Entry* zoe;
};

Part<CPubEmailDL, CEmailEntry> EmailList(Stage& stage) {
  return {*stage.email.ListAt(0), &stage.ann, &stage.zoe};
}
Part<CPubFaxDL, CFaxEntry> FaxList(Stage& stage) {
  return {*stage.fax.ListAt(0), &stage.faxAnn, &stage.faxZoe};
}
Part<CPrivEmailDL, CEmailEntry> PrivateEmailList(Stage& stage) {
  return {*stage.priv->ListAt(0), &stage.ann, &stage.zoe};
}

Part<CEmailAB, CEmailEntry> EmailBook(Stage& stage) {
  return {stage.email, &stage.ann, &stage.zoe};
}
Part<CPrivEmailAB, CEmailEntry> PrivateBook(Stage& stage) {
  return {*stage.priv, &stage.ann, &stage.zoe};
}

// The rows of every kind of list. `members` is the prefix of the members in memory.
template <auto On>
Operations ListOperations(const std::string& members) {
  const std::string reload = ", SizeofAB (ends), ReadAB (ignored, blanks " + members + ")";
  const std::string read = "SizeofAB, ReadAB (blanks " + members + ")";
  return {
      CALL(on.self.GetMemberCount(&count), kStatus, "SizeofAB", "needs no book"),
      CALL(on.self.ReadMember(on.ann), kStatus, "ReadEntryProperties"),
      CALL(on.self.AddMember(on.zoe, 1), kStatus, "CreateEntry" + reload),
      CALL(on.self.AddMember(on.zoe, 0), kStatus, "CreateEntry", "kept"),
      CALL(on.self.AddMemberUnlimited(on.zoe, 1), kStatus, "CreateEntry" + reload),
      CALL(on.self.ModifyMember(on.ann, 1), kStatus, "ModifyEntry" + reload),
      CALL(on.self.RenameMember("Ann", on.zoe, 1), kStatus, "ModifyEntry" + reload),
      CALL(on.self.RemoveMember(on.ann, 1), kStatus, "DeleteEntry" + reload),
      CALL(on.self.Reload(), kStatus, read),
      CALL(on.self.Open(on.self.Book(), "Board"), kStatus, read, "needs no book"),
      CALL(on.self.SetAt(0, *on.ann, 1), kStatus,
           "ModifyEntry (changed), SizeofAB (ends, changed), ReadAB (ignored, blanks " + members +
               ")"),
      CALL(on.self.RemoveAt(0, 1), kStatus,
           "DeleteEntry (loses " + members + "Ann), SizeofAB (ends, loses " + members +
               "Ann), ReadAB (ignored, blanks " + members + ")"),
      CALL(on.self.AddLocal(on.zoe), Count(3), "CreateEntry"),
      CALL(on.self.AddLocalUnlimited(on.zoe), Count(3), "CreateEntry"),
      CALL(on.self.RemoveLocal(on.ann), Count(1), "DeleteEntry"),
  };
}

// The rows of the public lists alone.
template <auto On>
Operations PublicListOperations(const std::string& members) {
  const std::string lost = " (loses " + members + ")";
  const std::string raise = "IOCtl 2" + lost + ", IOCtl 1" + lost;
  return {
      CALL(on.self.WriteMembers(), kStatus, "ModifyEntry, ModifyEntry"),
      CALL(on.self.DestroyList(), kStatus, raise + ", DeleteAB" + lost + ", " + raise,
           "loses " + members),
      CALL(on.self.ClearMembers(), kStatus, raise + ", ClearAB" + lost + ", IOCtl 1" + lost,
           "needs no book"),
      CALL(on.self.ModifyLocal(on.ann), Count(2), "ModifyEntry"),
      CALL(on.self.RenameLocal("Ann", on.ann), Count(2), "ModifyEntry"),
  };
}

// The calls that create the list Board, which the server must not have.
const std::string kCreateBoard =
    "CreateAB (returns 3, then CreateEntry, error 3), CreateEntry, CreateEntry";

void EmptyPrivateBook(Stage& on) {
  on.priv->EmptyOnServer();
}

Operations PrivateListOperations() {
  constexpr auto On = PrivateEmailList;
  const std::string lost = " (loses private-list/Board/)";
  return {
      CALL(on.self.DestroyList(), kStatus,
           "IOCtl 2" + lost + ", IOCtl 1" + lost + ", DeleteAB" + lost + ", IOCtl 1" + lost,
           "loses private-list/Board/, needs no book"),
      CALL(on.self.DestroyKeepingMembers(), kStatus, "IOCtl 2, IOCtl 1, DeleteAB, IOCtl 1",
           "kept, needs no book"),
      CALL(on.self.WriteMembers(), kStatus, kCreateBoard, "kept, needs no book", EmptyPrivateBook),
      CALL(on.self.AddLocalChecked(on.zoe), Count(3), "CreateEntry"),
      CALL(on.self.ModifyLocal(on.ann), kFlag, "ModifyEntry", "needs no book"),
      CALL(on.self.RenameLocal("Ann", on.ann), kFlag, "ModifyEntry", "needs no book"),
  };
}

// The result of an operation that takes ownership of the list unless it returns -1.
template <class List>
std::int64_t TakenOver(std::unique_ptr<List>& list, std::int64_t result) {
  if (result >= 0) static_cast<void>(list.release());
  return result;
}

// The calls that create a list with the members of Board. If the count of lists is unknown, the
// book is not treated as full.
const std::string kCreateList =
    "ListAB (ignored), CreateAB, CreateEntry (ignored), CreateEntry (ignored)";

// The calls of a deletion of all entries. The earlier time-out is restored even if it fails.
const std::string kClearBook =
    "IOCtl 2 (skips 1), IOCtl 1 (ignored), ClearAB (late), IOCtl 2 (skips 1), IOCtl 1 (ignored)";

const std::string kDeleteAllLists = "IOCtl 2, IOCtl 1, DeleteAB (ignored), IOCtl 1 (ignored)";

// The calls of a load of the lists. Board is the only one.
std::string LoadLists(const std::string& lists) {
  const std::string lost = "changed, loses " + lists;
  return "ListAB (" + lost + "; 4: ends, " + lost + "), SizeofAB (ends, " + lost +
         "Board/), ReadAB (ignored, blanks " + lists + "Board/)";
}

// The calls that read the list Board for a copy. Code 4 for the size means an empty list. Code 21
// for the members means here that none were delivered.
std::string ReadForCopy(const std::string& create, const std::string& copied = "") {
  const std::string empty =
      ": ignored, then " + create + (copied.empty() ? "" : ", loses ") + copied;
  return "SizeofAB (4" + empty + "), ReadAB (21" + empty + "), ";
}

// The rows that the public and the private e-mail book share. They call the server and leave memory
// unchanged. `book` and `list` are the names in the journal.
template <auto On>
Operations ServerOperations(const std::string& book, const std::string& list) {
  return {
      CALL(on.self.ReadEntries(&range, records.data(), &(count = 4), 1), kStatus, "ReadAB " + book),
      CALL(on.self.ModifyEntry(on.ann), kStatus, "ModifyEntry " + book + " Ann Ann", "kept"),
      CALL(on.self.RenameEntry("Ann", on.zoe), kStatus, "ModifyEntry " + book + " Ann Zoe", "kept"),
      CALL(on.self.DeleteEntry(on.ann), kStatus, "DeleteEntry " + book + " Ann", "kept"),
      CALL(on.self.ServerListSize("Board", &count), kStatus, "SizeofAB " + list),
      CALL(on.self.DeleteServerList("Board"), kStatus, "DeleteAB " + list, "kept"),
      CALL(on.self.CreateMember("Board", on.zoe), kStatus, "CreateEntry " + list + " Zoe", "kept"),
      CALL(on.self.ReadMembers("Board", records.data(), &(count = 4)), kStatus, "ReadAB " + list),
      CALL(on.self.ReadMember("Board", on.ann), kStatus, "ReadEntryProperties " + list + " Ann"),
      CALL(on.self.ModifyMember("Board", on.ann), kStatus, "ModifyEntry " + list + " Ann", "kept"),
      CALL(on.self.RenameMember("Board", "Ann", on.zoe), kStatus,
           "ModifyEntry " + list + " Ann Zoe", "kept"),
      CALL(on.self.DeleteMember("Board", on.ann), kStatus, "DeleteEntry " + list + " Ann", "kept"),
  };
}

Operations EmailOperations() {
  const std::string reload = ", ListAB (loses email-list/; 4: ends, loses email-list/)";
  const std::string readEdge = "ReadPageBoundaries (21: returns 4), ReadAB (21: returns 4)";
  const std::string copy = ReadForCopy("ListAB CreateAB") + kCreateList;
  return {
      CALL(on.email.Attach(on.box, 0, 0), kFlag, LoadLists("email-list/"), "needs no book"),
      CALL(on.email.EntryCount(&count), kStatus, "SizeofAB 1:EMAILAB"),
      CALL(on.email.ServerListCount(&count), kStatus, "ListAB 64: -"),
      CALL(on.email.EnumerateLists(rows.data(), &(count = 4)), kStatus, "ListAB 64: [|*|0] 4 1"),
      CALL(on.email.ReadBoundaries(letters.data(), &(count = 4)), kStatus, "ReadPageBoundaries",
           "needs no book"),
      CALL(on.email.ClearBook(), kStatus, kClearBook),
      CALL(on.email.DeleteBook(), kStatus, "IOCtl 2, IOCtl 1, DeleteAB (late), IOCtl 1 (ignored)",
           "loses email-list/"),
      CALL(on.email.DeleteAllLists(), kStatus, kDeleteAllLists),
      CALL(on.email.SetServerTimeout(10, &count), kStatus, "IOCtl 2 0, IOCtl 1 10000"),
      CALL(on.email.ServerCall(&(request = {})), kStatus, "IOCtl 2 0"),
      CALL(on.email.LoadLists(1), kStatus, LoadLists("email-list/")),
      CALL(TakenOver(on.choir, on.email.AddList(on.choir.get())), Count(2), kCreateList),
      CALL(on.email.AddListReload(*on.choir, 0), kFlag, kCreateList, "kept"),
      CALL(on.email.DeleteList("Board"), Count(0), "DeleteAB"),
      CALL(on.email.DeleteListReload("Board", 1), kFlag, "DeleteAB" + reload),
      CALL(on.email.CopyList(*on.email.ListAt(0), "Choir", 0), kFlag, copy, "kept"),
      CALL(on.email.CopyListLocal(*on.email.ListAt(0), "Choir"), Count(2),
           ReadForCopy("ListAB CreateAB", "email-list/Choir/") + kCreateList),
      CALL(on.email.AddEntry(&on.zoe), kStatus, "SizeofAB (ignored), CreateEntry 1:EMAILAB Zoe"),
      CALL(on.email.ListEntries(&range, keys.data(), &(count = 4), 1), kStatus, "ListABEntries"),
      CALL(on.email.ReadFirstEntry(records.data()), kStatus, readEdge),
      CALL(on.email.ReadLastEntry(records.data()), kStatus, readEdge),
      CALL(on.email.CreateMemberAddress("Board", "Zoe", "at"), kStatus, "CreateEntry 64:Board Zoe",
           "kept"),
      CALL(on.email.ModifyList("Board", &on.ann, &(count = 1)), kStatus,
           "ModifyEntry 64:Board Ann Ann", "kept"),
      CALL(on.email.Modify(&on.ann, 1), kStatus, "ModifyEntry 1:EMAILAB Ann Ann"),
      CALL(on.email.ModifyByKey("Ann", &on.zoe, 1), kStatus, "ModifyEntry 1:EMAILAB Ann Zoe"),
      CALL(on.email.Remove(&on.ann, 1), kStatus, "DeleteEntry 1:EMAILAB Ann"),
  };
}

Operations FaxOperations() {
  const std::string load = "ReadAB 2:FAXAB [||0] 2048 1 (loses fax/; 4: ends, loses fax/)";
  const std::string reload = ", ListAB (loses fax-list/; 4: ends, loses fax-list/)";
  const std::string copy = ReadForCopy("ListAB CreateAB") + kCreateList;
  return {
      CALL(on.fax.Attach(on.box, 1), kFlag, load, "needs no book"),
      CALL(on.fax.LoadEntries(), kFlag, load),
      CALL(on.fax.SizeofBook(&count), kStatus, "SizeofAB 2:FAXAB"),
      CALL(on.fax.ClearBook(), kStatus,
           "IOCtl 2 (skips 1), IOCtl 1 (ignored), ClearAB (late, kept, error 0), "
           "IOCtl 2 (skips 1), IOCtl 1 (ignored), ReadAB (ignored, loses fax/)"),
      CALL(on.fax.AddEntry(&on.faxZoe, 1), kFlag, "CreateEntry, " + load),
      CALL(on.fax.ReadEntry(&on.faxAnn, 1), kFlag, "ReadEntryProperties, " + load),
      CALL(on.fax.ModifyEntry(&on.faxAnn, 1), kFlag, "ModifyEntry, " + load),
      CALL(on.fax.RenameEntry("Ann", &on.faxZoe, 1), kFlag, "ModifyEntry, " + load),
      CALL(on.fax.DeleteEntry(&on.faxAnn, 1), kFlag, "DeleteEntry, " + load),
      CALL(on.fax.FastAddEntry(&on.faxZoe), Count(3), "CreateEntry"),
      CALL(on.fax.FastModifyEntry(&on.faxAnn), kFlag, "ModifyEntry"),
      CALL(on.fax.FastRenameEntry("Ann", &on.faxZoe), kFlag, "ModifyEntry"),
      CALL(on.fax.FastDeleteEntry(&on.faxAnn), Count(1), "DeleteEntry"),
      CALL(on.fax.RemoveEntryAt(0, 1), kFlag, load),
      CALL(on.fax.ServerListCount(&count), kStatus, "ListAB 768: -"),
      CALL(on.fax.ListEntryCount("Board", &count), kStatus, "SizeofAB 768:Board"),
      CALL(on.fax.SetServerTimeout(10, &count), kStatus, "IOCtl 2 0, IOCtl 1 10000"),
      CALL(on.fax.LoadLists(1), kStatus, LoadLists("fax-list/")),
      CALL(on.fax.AddList(*on.faxChoir, 0), kFlag, kCreateList, "kept"),
      CALL(TakenOver(on.faxChoir, on.fax.FastAddList(on.faxChoir.get())), Count(2), kCreateList),
      CALL(on.fax.DeleteList("Board", 1), kFlag, "DeleteAB" + reload),
      CALL(on.fax.FastDeleteList("Board"), Count(0), "DeleteAB"),
      CALL(on.fax.DuplicateList(*on.fax.ListAt(0), "Choir", 0), kFlag, copy, "kept"),
      CALL(on.fax.FastDuplicateList(*on.fax.ListAt(0), "Choir"), kFlag,
           ReadForCopy("ListAB CreateAB", "fax-list/Choir/") + kCreateList),
      CALL(on.fax.DeleteAllLists(), kStatus, kDeleteAllLists, "needs no book"),
  };
}

Operations PrivateOperations(bool throughOwner) {
  const std::string loadLists = LoadLists("private-list/");
  const std::string loadAll =
      "ReadAB (late, loses private/; 4: ignored, loses private/), " + loadLists;
  const std::string reload = ", ReadAB (loses private/)";
  const std::string create = "CreateAB, CreateEntry (ignored), CreateEntry";
  return {
      CALL(on.priv->LoadEntries(1), kFlag, loadAll),
      CALL(on.priv->LoadLists(1), kStatus,
           "ListAB (loses private-list/), SizeofAB (ends, loses private-list/Board/), "
           "ReadAB (ignored, blanks private-list/Board/)"),
      CALL(on.priv->LoadListsChecked(1), kFlag, loadLists),
      CALL(on.priv->LoadAllMembers(), kStatus,
           "SizeofAB (4: ends), ReadAB (changed, blanks private-list/Board/; "
           "4: ignored, blanks private-list/Board/)",
           "needs no book", [](Stage& on) { on.priv->LoadLists(0); }),
      CALL(on.priv->WriteBack(), kStatus, "CreateEntry (ignored), CreateEntry, " + kCreateBoard, "",
           EmptyPrivateBook),
      CALL(on.priv->EmptyOnServer(), kStatus,
           "IOCtl 2, IOCtl 1, ListAB (skips 1), DeleteAB 128:Board (ignored), "
           "DeleteAB 16:PRIVATEAB (late), IOCtl 1 (ignored)",
           "kept, needs no book"),
      CALL(on.priv->DeleteAll(), kNothing,
           "IOCtl 2 (ends), IOCtl 1 (ends), IOCtl 2 (skips 3), IOCtl 1 (skips 2), "
           "DeleteAB 128:Board (skips 1), IOCtl 1 (ignored), DeleteAB 16:PRIVATEAB (ignored), "
           "IOCtl 1 30000 (ignored)",
           throughOwner ? "needs no book" : "kept, needs no book"),
      CALL(on.priv->DeleteAllLists(), kNothing,
           "IOCtl 2 (ends), IOCtl 1 (ends), DeleteAB 128:Board (ignored), IOCtl 1 (ignored)",
           "needs no book"),
      CALL(on.priv->ClearAll(), kStatus,
           "IOCtl 2, IOCtl 1, DeleteAB 128:Board (ignored), DeleteAB 16:PRIVATEAB (ignored), "
           "IOCtl 1 (changed)",
           "unchecked, needs no book"),
      CALL(on.priv->ServerEntryCount(&count), kStatus, "SizeofAB 16:PRIVATEAB", "needs no book"),
      CALL(on.priv->ServerListCount(&count), kStatus, "ListAB 128: -", "needs no book"),
      CALL(on.priv->AddList(on.privChoir.get(), 0), kFlag, create, "kept"),
      CALL(TakenOver(on.privChoir, on.priv->AddListLocal(on.privChoir.get())), Count(2),
           create + " (ignored)"),
      CALL(on.priv->DeleteList("Board", 1), kFlag, "DeleteAB, ListAB (ignored)"),
      CALL(on.priv->DeleteListLocal("Board"), Count(0), "DeleteAB"),
      CALL(on.priv->RenameList("Board", "Choir", 1), kFlag,
           "ModifyEntry 128:PRIVATEAB Board Choir, ListAB (ends, loses private-list/), "
           "SizeofAB (ends, changed, loses private-list/Choir/), "
           "ReadAB (ignored, blanks private-list/Choir/)"),
      CALL(on.priv->CopyList(*on.priv->ListAt(0), "Choir", 0), kFlag,
           ReadForCopy("CreateAB") + create, "kept"),
      CALL(on.priv->CopyListLocal(*on.priv->ListAt(0), "Choir"), kFlag,
           ReadForCopy("CreateAB", "private-list/Choir/") + create + " (ignored)"),
      CALL(on.priv->CopyPublicList(on.email.ListAt(0), "Choir", 0), kFlag, create, "kept"),
      CALL(on.priv->CopyPublicListLocal(on.email.ListAt(0), "Choir"), kFlag, create + " (ignored)"),
      CALL(on.priv->CreateListWithMembers("Board", &on.zoe, &(count = 1)), kStatus,
           "CreateAB (ignored), CreateEntry 128:Board Zoe", "kept"),
      CALL(on.priv->CreateServerList("Choir"), kStatus, "CreateAB 128:Choir", "kept"),
      CALL(on.priv->ListLists(rows.data(), &(count = 4)), kStatus, "ListAB 128: [|*|0] 4 1"),
      CALL(on.priv->AddEntry(&on.zoe), kStatus, "CreateEntry 16:PRIVATEAB Zoe", "kept"),
      CALL(on.priv->ReadEntry(&on.ann), kStatus, "ReadEntryProperties 16:PRIVATEAB Ann"),
      CALL(on.priv->CreateServerEntry(&on.zoe), kStatus, "CreateEntry 16:PRIVATEAB Zoe", "kept"),
      CALL(on.priv->ListSize("Board", &count), kStatus, "SizeofAB 128:Board"),
      CALL(on.priv->RenameServerList("Board", "Choir"), kStatus,
           "ModifyEntry 128:PRIVATEAB Board Choir", "kept"),
      CALL(on.priv->AddMember("Board", &on.zoe), kStatus, "CreateEntry 128:Board Zoe", "kept"),
      CALL(on.priv->Add(&on.zoe, 1), kStatus, "CreateEntry" + reload),
      CALL(on.priv->Read(&on.ann, 1), kStatus, "ReadEntryProperties" + reload),
      CALL(on.priv->Modify(&on.ann, 1), kStatus, "ModifyEntry" + reload),
      CALL(on.priv->ModifyByKey("Ann", &on.zoe, 1), kStatus, "ModifyEntry" + reload),
      CALL(on.priv->Remove(&on.ann, 1), kStatus, "DeleteEntry, ReadAB (ignored, loses private/)"),
      CALL(on.priv->AddLocal(&on.zoe), Count(3), "CreateEntry"),
      CALL(on.priv->ModifyLocal(&on.ann), kFlag, "ModifyEntry"),
      CALL(on.priv->ModifyLocalByKey("Ann", &on.zoe), kFlag, "ModifyEntry"),
      CALL(on.priv->RemoveLocal(&on.ann), Count(1), "DeleteEntry"),
      CALL(on.user.LoadPrivateBook(), kFlag, loadAll),
      CALL(on.user.LoadPrivateLists(), kNothing, loadAll, "",
           [](Stage& on) { on.user.CreatePrivateBook(); }),
      CALL(on.user.RestorePrivateBook(), kFlag,
           "ReadEntryProperties, IOCtl 2 (4: skips 4), IOCtl 1 (4: skips 3), "
           "ListAB (ignored), DeleteAB (then IOCtl; 4: ignored), IOCtl 1 (ignored), "
           "CreateEntry (ignored), CreateEntry, CreateAB (then CreateEntry, error 3), "
           "CreateEntry, CreateEntry",
           "", EmptyPrivateBook),
      CALL(on.user.CreatePrivateEntry(&on.zoe), kStatus, "CreateEntry 16:PRIVATEAB Zoe", "kept"),
      CALL(on.user.LoadLog(), kStatus, "SizeofAB 1024:LOGAB Ann"),
      CALL(on.user.ClearMyLog(), kStatus,
           "IOCtl 2, IOCtl 1, ClearAB 1024:LOGAB Ann, IOCtl 2, IOCtl 1"),
      CALL(on.user.MarkOnce(0), kFlag, "ModifyEntry 4:USERSAB Ann Ann", "kept"),
      CALL(on.user.TurnOn(0), kFlag, "ModifyEntry 4:USERSAB Ann Ann", "kept"),
      CALL(on.user.TurnOff(0), kFlag, "ModifyEntry 4:USERSAB Ann Ann", "kept"),
  };
}

// The call that reads a model or a printer in a load. `more` describes what else a failure does.
std::string ReadModel(const std::string& name, const std::string& more = "") {
  return ", ReadEntryProperties 2048:MODELAB " + name + " (ignored, loses model/" + name + more +
         ")";
}
std::string ReadPrinter(const std::string& name) {
  return ", ReadEntryProperties 8:PRINTERSAB " + name + " (ignored, blanks printer/" + name + ")";
}

Operations PrinterOperations() {
  const std::string models = "ListABEntries 2048:MODELAB [|*|0] 16 1 ";
  const std::string printers = "ListABEntries 8:PRINTERSAB [|*|0] 256 1 ";
  const std::string loadPrinters =
      printers + "(loses printer/; 4: returns 0, loses printer/; 21: returns -2, loses printer/)" +
      ReadPrinter("Ann") + ReadPrinter("Bob");
  const std::string noModel = "ends, returns 0, loses model/Bob";
  const std::string reloadModels = ", " + models + "(ends, loses model/)";
  const std::string reload = ", " + printers + "(ends, loses printer/)";
  const std::string reloadBoth = reload + ReadPrinter("Ann") + ReadPrinter("Bob");
  return {
      CALL(on.printers.LoadBook(), Count(2),
           models + "(skips 2, loses model/; 4: ends, returns 0, loses model/)" + ReadModel("Ann") +
               ReadModel("Bob", "; 4: " + noModel + "; after 2: " + noModel) + ", " + loadPrinters),
      CALL(on.printers.LoadModels(), Count(2),
           models + "(loses model/; 4: returns 0, loses model/)" + ReadModel("Ann", ", less 1") +
               ReadModel("Bob", ", less 1; 4: returns 0, changed, loses model/Bob")),
      CALL(on.printers.LoadPrinters(), Count(2), loadPrinters),
      CALL(on.printers.ServerCount(&count), kStatus, "SizeofAB 8:PRINTERSAB -"),
      CALL(on.printers.ClearBook(), kStatus, kClearBook),
      CALL(on.printers.DeleteBook(), kStatus,
           "IOCtl 2, IOCtl 1, DeleteAB 8:PRINTERSAB (late), IOCtl 1 (ignored)", "needs no book"),
      CALL(on.printers.AddModel(&on.newModel, false), Count(2), "CreateEntry", "kept"),
      CALL(on.printers.AddModel(&on.newModel, true), Count(3),
           "CreateEntry 2048:MODELAB Zoe, " + models + "(ends, returns 0, loses model/)" +
               ReadModel("Ann", ", less 1") + ReadModel("Bob", ", less 1") +
               ReadModel("Zoe", ", less 1")),
      CALL(on.printers.ModifyModel(&on.model, true), kFlag,
           "ModifyEntry 2048:MODELAB Ann Ann" + reloadModels + ReadModel("Ann") + ReadModel("Bob")),
      CALL(on.printers.DeleteModel("Ann", true), kFlag,
           "DeleteEntry 2048:MODELAB Ann" + reloadModels + ReadModel("Bob")),
      CALL(on.printers.AddPrinter(&on.printerZoe, false), Count(2), "CreateEntry", "kept"),
      CALL(on.printers.AddPrinter(&on.printerZoe, true), Count(3),
           "CreateEntry, " + printers + "(ends, returns 0, loses printer/)" + ReadPrinter("Ann") +
               ReadPrinter("Bob") + ReadPrinter("Zoe")),
      CALL(on.printers.DeletePrinter("Ann", true), kFlag,
           "DeleteEntry" + reload + ReadPrinter("Bob")),
      CALL(on.printers.ModifyPrinter(&on.printerAnn, true), kFlag, "ModifyEntry" + reloadBoth),
      CALL(on.printers.RenamePrinter("Ann", &on.printerZoe, true), kFlag,
           "ModifyEntry" + reload + ReadPrinter("Bob") + ReadPrinter("Zoe")),
      CALL(on.printers.SetDefaultPrinter("Ann"), Count(-1),
           "ReadEntryProperties 8:PRINTERSAB Ann, ModifyEntry 8:PRINTERSAB Ann Ann, "
           "ModifyEntry 8:PRINTERSAB Bob Bob (becomes printer/Bob printer/Bob=at)" +
               reloadBoth),
      CALL(on.printers.FastAddPrinter(&on.printerZoe), Count(3), "CreateEntry"),
      CALL(on.printers.FastDeletePrinter(&on.printerAnn), Count(1), "DeleteEntry"),
      CALL(on.printers.FastModifyPrinter(&on.printerAnn), kFlag, "ModifyEntry"),
      CALL(on.printers.FastRenamePrinter("Ann", &on.printerZoe), kFlag, "ModifyEntry"),
  };
}

Operations UserOperations() {
  const std::string reload = ", ReadAB (ignored, loses account/)";
  // The reload detaches the private book from the record, so the stage starts without it.
  const auto dropBook = [](Stage& on) { delete on.user.DetachPrivateBook(); };
  return {
      CALL(on.users.Load(), kFlag,
           "ReadAB 4:USERSAB [||0] 4096 1 (loses account/; 4: ends, loses account/)"),
      CALL(on.users.AddUser(&on.newUser, 1), kFlag, "CreateEntry" + reload),
      CALL(on.users.ReadUser(&on.user, 1), kFlag, "ReadEntryProperties" + reload, "kept", dropBook),
      CALL(on.users.ModifyUser(&on.user, 1), kFlag, "ModifyEntry" + reload,
           "becomes account/Ann account/Ann=elsewhere", dropBook),
      CALL(on.users.ModifyUser(&on.user, 0), kFlag, "ModifyEntry", "kept"),
      CALL(on.users.RenameUser("Ann", &on.newUser, 1), kFlag, "ModifyEntry" + reload),
      CALL(on.users.DeleteUser(&on.user, 1), kFlag,
           "IOCtl 2 (skips 4), IOCtl 1 (skips 3), ClearAB 1024:LOGAB Ann (skips 2), "
           "IOCtl 2 (skips 1), IOCtl 1 (ignored), DeleteEntry" +
               reload),
      CALL(on.users.AddLocal(&on.newUser), Count(5), "CreateEntry"),
      CALL(on.users.DeleteLocal(&on.user), Count(3), "DeleteEntry"),
      CALL(on.users.RenameLocal("Ann", &on.newUser), kFlag, "ModifyEntry"),
      CALL(on.users.ModifyLocal(&on.user), kFlag, "ModifyEntry"),
      CALL(on.users.ServerCount(&count), kStatus, "SizeofAB 4:USERSAB"),
      CALL(on.users.SaveAll(), kStatus, "ModifyEntry, ModifyEntry, ModifyEntry, ModifyEntry"),
      CALL(on.users.LoadUserLog(on.user), kStatus, "SizeofAB 1024:LOGAB Ann"),
      CALL(on.users.ClearUserLog(on.user), kStatus,
           "IOCtl 2, IOCtl 1, ClearAB 1024:LOGAB Ann, IOCtl 2, IOCtl 1"),
      CALL(on.users.ClearAll(), kStatus,
           "IOCtl 2 (skips 4), IOCtl 1 (skips 3), ClearAB (skips 2), IOCtl 2 (skips 1), "
           "IOCtl 1 (ignored), IOCtl 2 (skips 1), IOCtl 1 (ignored), ClearAB (late, kept), "
           "IOCtl 2 (skips 1), IOCtl 1 (ignored)" +
               reload,
           "needs no book"),
  };
}

}  // namespace

Operations BookOperations() {
  Operations all;
  const auto add = [&](const std::string& prefix, Operations table, bool throughOwner = false) {
    for (Operation& each : table) {
      each.name.insert(0, prefix);
      each.throughOwner = throughOwner;
      all.push_back(each);
    }
  };
  add("e-mail list ", ListOperations<EmailList>("email-list/Board/"));
  add("e-mail list ", PublicListOperations<EmailList>("email-list/Board/"));
  add("fax list ", ListOperations<FaxList>("fax-list/Board/"));
  add("fax list ", PublicListOperations<FaxList>("fax-list/Board/"));
  add("e-mail book ", ServerOperations<EmailBook>("1:EMAILAB", "64:Board"));
  add("", EmailOperations());
  add("", FaxOperations());
  add("", PrinterOperations());
  add("", UserOperations());
  for (const bool throughOwner : {false, true}) {
    add("private list ", ListOperations<PrivateEmailList>("private-list/Board/"), throughOwner);
    add("private list ", PrivateListOperations(), throughOwner);
    add("private book ", ServerOperations<PrivateBook>("16:PRIVATEAB", "128:Board"), throughOwner);
    add("", PrivateOperations(throughOwner), throughOwner);
  }
  return all;
}

}  // namespace quillkit
