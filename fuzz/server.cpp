// A server that gives any answers. The input has a line for each step: three characters and, after
// a space, the answers to its calls (fuzz/answering_server.h). The characters are the group of the
// step, its place in the group, and its argument; digits, and then the characters after '9', choose
// their value. The first line is for the login as ADMINISTRATOR at the beginning.
//
// After each step, all objects are within their limits, and all texts end inside their fields. A
// step that fails before it changes memory leaves everything in memory unchanged.

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <iterator>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/printer_ab.h"
#include "books/priv_email_ab.h"
#include "books/user_ab.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "fuzz/answering_server.h"
#include "fuzz/input.h"
#include "lists/server_list.h"
#include "tests/support/email_entry.h"
#include "tests/support/menu_item.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/stream_form.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr std::int32_t kMostSteps = 40;

constexpr std::string_view kNames[] = {
    "A", "B", "", "C", "no such name", "a name that is too long for its field"};

// The books of the session and what its steps use.
struct Books {
  explicit Books(CScanner* newBox) : box(newBox) {
    email.Attach(box, 0);
    fax.Attach(box, 0);
    users.Attach(box, 0, 0);
    printers.Attach(box, 0);
    const std::uint32_t none = 0;
    account.SetFrom(&users, "A", "secret", "", "", &none, &none);
    own.SetFrom(nullptr, "A", "secret", "", "", &none, &none);
    own.CreatePrivateBook();
  }
  Books(const Books&) = delete;
  Books& operator=(const Books&) = delete;
  ~Books() { DestroySoftKey(newKey); }

  // A key that is in no book. Created when it is used: its 512 items cost more than most inputs.
  CSoftKey* NewKey() {
    if (newKey == nullptr) CreateSoftKey("A", GetTopLevelAbook(box), &newKey);
    return newKey;
  }

  CScanner* box;
  CSoftKey* newKey = nullptr;
  CEmailAB email;
  CFaxAB fax;
  CUserAB users;
  CPrinterAB printers;
  CUserRecord account;  // of the book `users`
  CUserRecord own;      // of the session, with a private book
};

// What a step may use. Pointers are null if there is no such object.
struct Stage {
  // Chooses the objects in memory that the step uses, by its argument.
  void Choose(std::size_t newArgument) {
    argument = static_cast<std::int32_t>(newArgument);
    name = kNames[newArgument % std::size(kNames)];
    entry = MakeEntry(name, "at", argument % 2);
    number = kRows;
    faxEntry = MakeFax(name);
    item = MakeItem(name);
    printer = {};
    printer.SetAll(nullptr, name, "at", "A", argument % 2);
    model = {};
    model.SetModelName(name);
    top = box != nullptr ? GetTopLevelAbook(box) : nullptr;
    key = top != nullptr ? GetKeyAt(top, argument % 2) : nullptr;
    emailList = books != nullptr ? books->email.ListAt(argument % 2) : nullptr;
    faxList = books != nullptr ? books->fax.ListAt(argument % 2) : nullptr;
    priv = books != nullptr ? books->own.PrivateBook() : nullptr;
    privateList = priv != nullptr ? priv->ListAt(argument % 2) : nullptr;
  }

  std::int32_t argument = 0;
  std::string name;
  CEmailEntry entry;
  CFaxEntry faxEntry;
  CMenuItem item;
  PrinterRecord printer;
  PrinterModelRecord model;
  static constexpr std::uint32_t kRows = 4;
  CEmailEntry rows[kRows];
  std::uint32_t number = kRows;

  CScanner* box = nullptr;
  std::unique_ptr<Books> books;
  CTopLevelAB* top = nullptr;
  CSoftKey* key = nullptr;
  CPubEmailDL* emailList = nullptr;
  CPubFaxDL* faxList = nullptr;
  CPrivEmailAB* priv = nullptr;
  CPrivEmailDL* privateList = nullptr;
  std::string memory;  // everything in memory after the last step
};

// --- What is in memory ---

// Collects the texts of everything in memory, and checks them.
class Memory {
 public:
  template <std::size_t kSize>
  void Add(const FixedText<kSize>& field) {
    Require(field.IsTerminated(), "a text ends inside its field");
    text.append(field.View()) += '\n';
  }
  void Add(const CEmailEntry& entry) { Add(entry.name), Add(entry.address); }
  void Add(const CFaxEntry& entry) { Add(entry.name), Add(entry.number), Add(entry.third); }
  void Add(const CUserEntry& entry) {
    Add(entry.name), Add(entry.password), Add(entry.third), Add(entry.fourth);
  }
  void Add(const PrinterRecord& entry) {
    Add(entry.printerName), Add(entry.description), Add(entry.printerModel);
  }
  void Add(const PrinterModelRecord& entry) { Add(entry.modelName), Add(entry.modelText); }

  // Adds the objects that `at` returns: all, or of very many the first and the last ones.
  template <class At>
  void AddEach(std::int32_t count, std::int32_t most, At at) {
    constexpr std::int32_t kEnd = 20;
    Require(count >= 0 && count <= most, "the number of objects is within its limit");
    text += std::to_string(count) + ":";
    for (std::int32_t i = 0; i < count; ++i) {
      const auto* const each = at(i);
      Require(each != nullptr, "each object up to the count exists");
      if (each != nullptr) Add(*each);
      if (i == kEnd) i = std::max(i, count - kEnd);
    }
    Require(at(count) == nullptr && at(-1) == nullptr, "there is no object outside the count");
  }

  template <class List>
  void AddList(const List& list) {
    text += list.Name() + '\n';
    AddEach(list.Count(), MaxServerMembers, [&](std::int32_t i) { return list.GetAt(i); });
  }
  void Add(const CPubEmailDL& list) { AddList(list); }
  void Add(const CPubFaxDL& list) { AddList(list); }
  void Add(const CPrivEmailDL& list) { AddList(list); }

  void Add(CSoftKey& key) {
    const std::string_view name = GetKeyName(&key);
    text.append(name) += '\n';
    AddEach(GetItemCount(&key), 512, [&](std::int32_t i) { return GetItemAt(&key, i); });
    Require((IsSoftKeyEmpty(&key) != 0) == (GetItemCount(&key) == 0), "an empty key has no items");
  }
  void Add(const CMenuItem& item) {
    Add(item.name), Add(item.ipAddress), Add(item.path), Add(item.appTag);
  }

  std::string text;
};

std::string MemoryOf(Stage& on) {
  Memory memory;
  if (on.box == nullptr) return {};
  Require(
      std::strlen(GetScannerVersion(on.box)) <= 63 && std::strlen(GetScannerModel(on.box)) <= 63,
      "version and model have at most 63 characters");
  if (CTopLevelAB* const top = GetTopLevelAbook(on.box)) {
    const std::int32_t count = GetCount(top);
    Require(count >= 0 && count <= 11, "there are at most 11 keys");
    for (std::int32_t i = 0; i < count; ++i) memory.Add(*GetKeyAt(top, i));
    Require(GetKeyAt(top, count) == nullptr, "there is no key outside the count");
  }
  if (on.books == nullptr) return memory.text;
  Books& all = *on.books;
  const auto addLists = [&](const auto& book, std::int32_t most) {
    memory.AddEach(book.ListCount(), most, [&](std::int32_t i) { return book.ListAt(i); });
  };
  // An enumeration has a limit; an addition depends on the number that the server reports.
  constexpr std::int32_t kMostLists = MaxPublicLists + kMostSteps;
  addLists(all.email, kMostLists);
  addLists(all.fax, kMostLists);
  memory.AddEach(all.fax.EntryCount(), MaxFaxEntries,
                 [&](std::int32_t i) { return all.fax.EntryAt(i); });
  if (CPrivEmailAB* const priv = all.own.PrivateBook()) {
    addLists(*priv, MaxPrivateLists);
    memory.AddEach(priv->EntryCount(), MaxPrivateEntries,
                   [&](std::int32_t i) { return priv->EntryAt(i); });
  }
  memory.AddEach(all.printers.PrinterCount(), MaxPrinters,
                 [&](std::int32_t i) { return all.printers.PrinterAt(i); });
  memory.AddEach(all.printers.ModelCount(), MaxPrinterModels,
                 [&](std::int32_t i) { return all.printers.ModelAt(i); });
  CUserRecord record;
  memory.AddEach(all.users.Count(), MaxUsers,
                 [&](std::int32_t i) { return all.users.GetAt(i, &record); });
  return memory.text;
}

// --- Steps ---

// Returns whether memory may have changed.
using Step = bool (*)(Stage& on);

void Check(const CEmailEntry* entry) {
  Require(entry == nullptr || entry->IsValid(), "the texts of an entry end inside their fields");
}

void LogIn(Stage& on, const std::string& user, std::int32_t loadTopBook) {
  on.books.reset();  // the login may destroy the scanner
  on.box = LogToQuillbox("127.0.0.1", user, "quill", "", loadTopBook);
  if (on.box != nullptr) on.books = std::make_unique<Books>(on.box);
}

void Import(Stage& on) {
  static const ScratchFolder folder;
  static const std::string file = folder.Write("file", "A,B\nC,D\n");
  ImportOptions options{};
  options.format = on.argument % 2 == 0 ? ImportFormatScript : ImportFormatDelimited;
  options.targetBook = TargetEmail;
  ImportAddressBook(on.box, file.c_str(), &options);
}

// A book whose contents came from the server can be stored and loaded.
template <class Book>
void StoreAndLoad(Book& book) {
  Book copy;
  Require(!Load(copy, Stored(book)).Failed(), "a stored book can be loaded");
}

// Gives a list to a book that takes it unless it returns -1.
template <class List, class Add>
bool Give(const std::string& name, Add add) {
  auto list = std::make_unique<List>();
  list->SetName(name);
  const bool isTaken = add(list.get()) >= 0;
  if (isTaken) static_cast<void>(list.release());
  return isTaken;
}

// The steps. ANY may change memory, KEPT changes nothing. COUNT and FLAG report by a count or by 1
// that they have changed something.
#define ANY(call) []([[maybe_unused]] Stage& on) { return static_cast<void>(call), true; }
#define KEPT(call) []([[maybe_unused]] Stage& on) { return static_cast<void>(call), false; }
#define COUNT(call) [](Stage& on) { return (call) >= 0; }
#define FLAG(call) [](Stage& on) { return (call) == 1; }

constexpr Step kSession[] = {
    ANY(LogIn(on, on.argument % 2 == 0 ? "ADMINISTRATOR" : "A", 1)),
    ANY(Logout()),
    KEPT(Import(on)),
    KEPT(TheAgent.ReadLog(on.name)),
    KEPT(TheAgent.LogRecordAt(on.argument)),
    KEPT(TheAgent.ClearLog(on.name)),
    KEPT(TheAgent.ValidateString(on.name, 32)),
    [](Stage&) {
      char text[400] = {};
      TheAgent.ServerText(text);
      Require(std::memchr(text, '\0', sizeof text) != nullptr, "the text of the server ends");
      return false;
    },
    KEPT(TheAgent.ChangeIdentity(on.name)),
    KEPT(TheAgent.SetServerTimeout(10, &on.number)),
    KEPT(TheAgent.BackupDatabase(on.name.c_str(), nullptr)),
    KEPT(TheAgent.CheckDatabase()),
    [](Stage&) {
      LoginRecord login;
      std::string identity;
      login.address = 1;
      TheAgent.LoginByRecord(&login, identity);
      return true;
    },
    [](Stage& on) {
      std::string third;
      if (on.box != nullptr) on.box->ProbeIdentity(third);
      return false;
    },
};

constexpr Step kKeys[] = {
    ANY(LoadTopLevelAbook(on.top, on.argument % 2)),
    ANY(AddKey(on.top, on.name, 1)),
    KEPT(AddKey(on.top, on.name, 0)),
    ANY(DeleteKey(on.top, on.name, 1)),
    ANY(ModifyKey(on.top, on.books->NewKey(), 1)),
    KEPT(RenameSoftKey(on.top, on.name, on.books->NewKey())),
    COUNT(FastKeyAdd(on.top, on.books->NewKey())),
    COUNT(FastKeyRemove(on.top, on.key != nullptr ? on.key : on.books->NewKey())),
    FLAG(FastKeyModify(on.top, on.books->NewKey())),
    FLAG(FastKeyRename(on.top, on.name, on.books->NewKey())),
    KEPT(LoadItems(on.top, on.name)),
    KEPT(FindSoftKeyIndex(on.top, on.name)),
};

constexpr Step kItems[] = {
    KEPT(GetDBItemCount(on.key, &on.number)),
    ANY(AddMenuItem(on.key, &on.item, 1)),
    ANY(ModifyMenuItem(on.key, &on.item, 1)),
    ANY(RenameMenuItem(on.key, on.name, &on.item, 1)),
    ANY(DeleteMenuItem(on.key, on.name, 1)),
    KEPT(DeleteMenuItem(on.key, on.name, 0)),
    COUNT(FastItemAdd(on.key, &on.item)),
    COUNT(FastItemRemove(on.key, &on.item)),
    FLAG(FastItemModify(on.key, &on.item)),
    FLAG(FastItemRename(on.key, on.name, &on.item)),
    FLAG(SetItemAt(on.key, on.argument, &on.item)),
    FLAG(RemoveItemAt(on.key, on.argument)),
    KEPT(FindFirstItem(on.key, on.name, 0)),
    KEPT(FindNextItem(on.key, 0)),
};

constexpr Step kEmail[] = {
    ANY(on.books->email.Attach(on.box, on.argument % 4)),
    ANY(on.books->email.LoadLists(on.argument % 2)),
    KEPT(on.books->email.EntryCount(&on.number)),
    ANY(on.books->email.ClearBook()),
    ANY(on.books->email.DeleteBook()),
    ANY(on.books->email.DeleteAllLists()),
    [](Stage& on) {
      return Give<CPubEmailDL>(on.name,
                               [&](CPubEmailDL* list) { return on.books->email.AddList(list); });
    },
    COUNT(on.books->email.DeleteList(on.name)),
    ANY(on.books->email.DeleteListReload(on.name, 1)),
    COUNT(on.emailList != nullptr ? on.books->email.CopyListLocal(*on.emailList, on.name) : -1),
    KEPT(on.books->email.AddEntry(&on.entry)),
    KEPT(on.books->email.ReadFirstEntry(&on.entry)),
    KEPT(on.books->email.ReadLastEntry(&on.entry)),
    KEPT(on.books->email.ReadMembers(on.name, on.rows, &on.number)),
    KEPT(on.books->email.ReadMember(on.name, &on.entry)),
    KEPT(StoreAndLoad(on.books->email)),
};

constexpr Step kView[] = {
    KEPT(Check(on.books->email.First())),
    KEPT(Check(on.books->email.Last())),
    KEPT(Check(on.books->email.Next())),
    KEPT(Check(on.books->email.Prev())),
    KEPT(Check(on.books->email.GetAt(on.argument))),
    KEPT(Check(on.books->email.Find(on.name, on.argument % 2))),
    KEPT(Check(on.books->email.FindLetter(static_cast<char>('A' + on.argument)))),
    KEPT(Check(on.books->email.FindNext(on.argument % 2))),
    KEPT(Check(on.books->email.FindPrev(on.argument % 2))),
    KEPT(Check(on.books->email.FindPrefix(on.name))),
    KEPT(Check(on.books->email.FindNextPrefix())),
    KEPT(on.books->email.Remove(&on.entry, on.argument % 2)),
    KEPT(on.books->email.Modify(&on.entry, on.argument % 2)),
    KEPT(on.books->email.ModifyByKey(on.name, &on.entry, on.argument % 2)),
    KEPT(on.books->email.AddLocal(&on.entry)),
    KEPT(on.books->email.ModifyLocal(&on.entry)),
    KEPT(on.books->email.ModifyLocalByKey(on.name, &on.entry)),
    KEPT(on.books->email.RemoveLocal(&on.entry)),
    KEPT(on.books->email.SetPageSize(on.argument)),
    KEPT(on.books->email.LetterStart(static_cast<char>('A' + on.argument))),
};

// The steps of a list of any kind.
template <auto kList, class Entry, Entry Stage::*kEntry>
constexpr Step kListSteps[] = {
    KEPT((on.*kList)->GetMemberCount(&on.number)),
    KEPT((on.*kList)->ReadMember(&(on.*kEntry))),
    ANY((on.*kList)->AddMember(&(on.*kEntry), 1)),
    KEPT((on.*kList)->AddMember(&(on.*kEntry), 0)),
    ANY((on.*kList)->ModifyMember(&(on.*kEntry), 1)),
    ANY((on.*kList)->RenameMember(on.name, &(on.*kEntry), 1)),
    ANY((on.*kList)->RemoveMember(&(on.*kEntry), 1)),
    ANY((on.*kList)->Reload()),
    ANY((on.*kList)->Open((on.*kList)->Book(), on.name)),
    ANY((on.*kList)->SetAt(on.argument, on.*kEntry, 1)),
    ANY((on.*kList)->RemoveAt(on.argument, 1)),
    COUNT((on.*kList)->AddLocal(&(on.*kEntry))),
    COUNT((on.*kList)->RemoveLocal(&(on.*kEntry))),
    COUNT((on.*kList)->ModifyLocal(&(on.*kEntry))),
    COUNT((on.*kList)->RenameLocal(on.name, &(on.*kEntry))),
    KEPT((on.*kList)->Find(on.name, on.argument % 2)),
    KEPT((on.*kList)->FindNext(on.argument % 2)),
    ANY((on.*kList)->WriteMembers()),
    ANY((on.*kList)->DestroyList()),
};

constexpr Step kFax[] = {
    ANY(on.books->fax.Attach(on.box, 1)),
    ANY(on.books->fax.LoadLists(on.argument % 2)),
    ANY(on.books->fax.LoadEntries()),
    ANY(on.books->fax.ClearBook()),
    ANY(on.books->fax.AddEntry(&on.faxEntry, 1)),
    ANY(on.books->fax.ReadEntry(&on.faxEntry, 1)),
    ANY(on.books->fax.ModifyEntry(&on.faxEntry, 1)),
    ANY(on.books->fax.RenameEntry(on.name, &on.faxEntry, 1)),
    ANY(on.books->fax.DeleteEntry(&on.faxEntry, 1)),
    COUNT(on.books->fax.FastAddEntry(&on.faxEntry)),
    FLAG(on.books->fax.FastModifyEntry(&on.faxEntry)),
    FLAG(on.books->fax.FastRenameEntry(on.name, &on.faxEntry)),
    COUNT(on.books->fax.FastDeleteEntry(&on.faxEntry)),
    ANY(on.books->fax.RemoveEntryAt(on.argument, 1)),
    [](Stage& on) {
      return Give<CPubFaxDL>(on.name,
                             [&](CPubFaxDL* list) { return on.books->fax.FastAddList(list); });
    },
    COUNT(on.books->fax.FastDeleteList(on.name)),
    ANY(on.faxList != nullptr ? on.books->fax.FastDuplicateList(*on.faxList, on.name) : -1),
    KEPT(on.books->fax.FindFirstEntry(on.name, on.argument % 2)),
    KEPT(on.books->fax.FindNextEntry(on.argument % 2)),
    KEPT(StoreAndLoad(on.books->fax)),
};

constexpr Step kPrivate[] = {
    ANY(on.priv->LoadEntries(on.argument % 2)),
    ANY(on.priv->LoadLists(on.argument % 2)),
    ANY(on.priv->LoadListsChecked(on.argument % 2)),
    ANY(on.priv->LoadAllMembers()),
    ANY(on.priv->WriteBack()),
    ANY(on.priv->EmptyOnServer()),
    ANY(on.priv->DeleteAll()),
    ANY(on.priv->ClearAll()),
    [](Stage& on) {
      return Give<CPrivEmailDL>(on.name,
                                [&](CPrivEmailDL* list) { return on.priv->AddListLocal(list); });
    },
    COUNT(on.priv->DeleteListLocal(on.name)),
    ANY(on.priv->RenameList(on.name, "B", 1)),
    ANY(on.privateList != nullptr ? on.priv->CopyListLocal(*on.privateList, on.name) : 0),
    ANY(on.emailList != nullptr ? on.priv->CopyPublicListLocal(on.emailList, on.name) : 0),
    KEPT(on.priv->AddEntry(&on.entry)),
    ANY(on.priv->Add(&on.entry, 1)),
    ANY(on.priv->Read(&on.entry, 1)),
    ANY(on.priv->ModifyByKey(on.name, &on.entry, 1)),
    ANY(on.priv->Remove(&on.entry, 1)),
    COUNT(on.priv->AddLocal(&on.entry)),
    FLAG(on.priv->ModifyLocal(&on.entry)),
    FLAG(on.priv->ModifyLocalByKey(on.name, &on.entry)),
    COUNT(on.priv->RemoveLocal(&on.entry)),
    ANY(on.books->own.LoadPrivateBook()),
    ANY(on.books->own.RestorePrivateBook()),
    KEPT(on.books->own.LoadLog()),
    KEPT(on.books->own.MarkOnce(0)),
    ANY(StoreAndLoad(*on.priv)),  // reads missing members
};

constexpr Step kPrinters[] = {
    ANY(on.books->printers.LoadBook()),
    ANY(on.books->printers.LoadModels()),
    ANY(on.books->printers.LoadPrinters()),
    ANY(on.books->printers.ClearBook()),
    ANY(on.books->printers.AddModel(&on.model, true)),
    ANY(on.books->printers.ModifyModel(&on.model, true)),
    ANY(on.books->printers.DeleteModel(on.name, true)),
    ANY(on.books->printers.AddPrinter(&on.printer, true)),
    ANY(on.books->printers.DeletePrinter(on.name, true)),
    ANY(on.books->printers.ModifyPrinter(&on.printer, true)),
    ANY(on.books->printers.RenamePrinter(on.name, &on.printer, true)),
    ANY(on.books->printers.SetDefaultPrinter(on.name)),
    COUNT(on.books->printers.FastAddPrinter(&on.printer)),
    COUNT(on.books->printers.FastDeletePrinter(&on.printer)),
    FLAG(on.books->printers.FastModifyPrinter(&on.printer)),
    FLAG(on.books->printers.FastRenamePrinter(on.name, &on.printer)),
    KEPT(on.books->printers.FindFirstPrinter(on.name, on.argument % 2 != 0)),
};

constexpr Step kUsers[] = {
    ANY(on.books->users.Load()),
    ANY(on.books->users.AddUser(&on.books->account, 1)),
    ANY(on.books->users.ReadUser(&on.books->account, 1)),
    ANY(on.books->users.ModifyUser(&on.books->account, 1)),
    ANY(on.books->users.RenameUser(on.name, &on.books->account, 1)),
    ANY(on.books->users.DeleteUser(&on.books->account, 1)),
    COUNT(on.books->users.AddLocal(&on.books->account)),
    COUNT(on.books->users.DeleteLocal(&on.books->account)),
    FLAG(on.books->users.RenameLocal(on.name, &on.books->account)),
    FLAG(on.books->users.ModifyLocal(&on.books->account)),
    KEPT(on.books->users.SaveAll()),
    ANY(on.books->users.ClearAll()),
    KEPT(on.books->users.ServerCount(&on.number)),
};

#undef ANY
#undef KEPT
#undef COUNT
#undef FLAG

struct Group {
  std::span<const Step> steps;
  bool (*isPossible)(const Stage& on);
};

bool HasBooks(const Stage& on) {
  return on.books != nullptr;
}

constexpr Group kGroups[] = {
    {kSession, [](const Stage&) { return true; }},
    {kKeys, [](const Stage& on) { return on.top != nullptr; }},
    {kItems, [](const Stage& on) { return on.key != nullptr; }},
    {kEmail, HasBooks},
    {kView, HasBooks},
    {kListSteps<&Stage::emailList, CEmailEntry, &Stage::entry>,
     [](const Stage& on) { return on.emailList != nullptr; }},
    {kFax, HasBooks},
    {kListSteps<&Stage::faxList, CFaxEntry, &Stage::faxEntry>,
     [](const Stage& on) { return on.faxList != nullptr; }},
    {kPrivate, [](const Stage& on) { return on.priv != nullptr; }},
    {kListSteps<&Stage::privateList, CEmailEntry, &Stage::entry>,
     [](const Stage& on) { return on.privateList != nullptr; }},
    {kPrinters, HasBooks},
    {kUsers, HasBooks},
};

void Run(Stage& on, std::string_view line) {
  Input choices(reinterpret_cast<const std::uint8_t*>(line.data()), line.size());
  const Group& group = kGroups[choices.TakeBelow(std::size(kGroups))];
  const Step step = group.steps[choices.TakeBelow(group.steps.size())];
  on.Choose(choices.TakeBelow(10));
  if (!group.isPossible(on)) return;
  AnsweringServerTake(choices.Rest().data(), choices.Rest().size());
  const bool mayHaveChanged = step(on);
  std::string memory = MemoryOf(on);
  Require(memory == on.memory || mayHaveChanged, "a failed change leaves memory unchanged");
  on.memory = std::move(memory);
}

void CheckSession(std::string_view lines) {
  Stage on;
  AnsweringServerTake(nullptr, 0);
  TheAgent.LoadServerLibrary();
  for (std::int32_t i = 0; i < kMostSteps && !lines.empty(); ++i) {
    const std::string_view line = lines.substr(0, lines.find('\n'));
    lines.remove_prefix(std::min(line.size() + 1, lines.size()));
    if (i > 0) {
      Run(on, line);
    } else {
      AnsweringServerTake(line.data(), line.size());
      LogIn(on, "ADMINISTRATOR", 0);
      on.memory = MemoryOf(on);
    }
  }
  AnsweringServerTake(nullptr, 0);
  Logout();
  Require(GetTopLevelAbook(on.box) == nullptr, "there is no session after the logout");
  on.books.reset();
  Exit();
  Require(LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1) == nullptr,
          "there is no login after the exit");
  Require(GetLastToolkitError() == kNotInitialised, "every call after the exit fails");
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::CheckSession({reinterpret_cast<const char*>(data), size});
  return 0;
}
