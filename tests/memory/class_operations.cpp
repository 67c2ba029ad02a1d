#include "tests/memory/class_operations.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <memory>

#include "books/email_ab_handle.h"
#include "bridge/the_agent.h"
#include "settings/ldap_settings_store.h"
#include "simulator/simulator.h"
#include "softkeys/soft_key.h"
#include "softkeys/top_level_ab.h"
#include "tests/support/email_entry.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

// Variables that the server calls fill.
std::uint32_t count;
char letter;
char profile[64];
std::uint32_t length;

// Puts an e-mail entry on the appliance, in the book or in a list.
void PutEmail(BookKind kind, const std::string& book, const std::string& name) {
  const CEmailEntry entry = MakeEntry(name);
  SimulatorPutEntry(kind, book.c_str(), kAdministrator.c_str(), &entry);
}

// Opens the view of a mode at the first entry of a letter. B has three entries, A has one. The
// sliding view then has pages of another size than those that it reads.
template <std::int32_t mode, char first>
void OpenAtLetter(Stage& on) {
  PutEmail(BookKind::kEmail, "", "Bea");
  PutEmail(BookKind::kEmail, "", "Ben");
  on.email.Attach(on.box, mode);
  on.email.FindLetter(first);
  on.email.SetPageSize(1);
}

template <auto Step, class... Arguments>
bool ThreeSteps(CEmailAB& book, Arguments... arguments) {
  for (int i = 0; i < 3; ++i) (book.*Step)(arguments...);
  return true;
}

// Opens the view of a mode and runs an operation of the e-mail book in it.
template <std::int32_t mode>
Operations ViewOperations() {
  const auto open = [](Stage& on) { on.email.Attach(on.box, mode); };
  constexpr auto atA = OpenAtLetter<mode, 'A'>;
  constexpr auto atB = OpenAtLetter<mode, 'B'>;
  return {
      CALL(on.email.Attach(on.box, mode) == 1 && on.email.First() != nullptr, kFlag, ""),
      CALL(on.email.First(), kFlag, "", "", open),
      CALL(on.email.Last(), kFlag, "", "", atA),
      CALL(on.email.GetAt(1), kFlag, "", "", atA),
      CALL(on.email.Find("Bob", 1), kFlag, "", "", open),
      CALL((on.email.Find(kLongName, 0), true), kFlag, "", "", open),
      CALL(on.email.FindLetter('B'), kFlag, "", "", open),
      CALL(on.email.FindPrefix("Bo"), kFlag, "", "", open),
      CALL(on.email.FirstLetter() == 'A', kFlag, "", "", open),
      CALL(on.email.NextLetter('A') == 'B', kFlag, "", "", open),
      CALL(on.email.LetterStart('B'), Count(1), "", "", open),
      CALL(on.email.LetterOfIndex(1, &letter), Count(0), "", "", open),
      CALL(ThreeSteps<&CEmailAB::Next>(on.email), kFlag, "", "", atA),
      CALL(ThreeSteps<&CEmailAB::FindNext>(on.email, 0), kFlag, "", "", atA),
      CALL(ThreeSteps<&CEmailAB::FindNextPrefix>(on.email), kFlag, "", "", atA),
      CALL(ThreeSteps<&CEmailAB::Prev>(on.email), kFlag, "", "", atB),
      CALL(ThreeSteps<&CEmailAB::FindPrev>(on.email, 0), kFlag, "", "", atB),
      CALL(on.email.Attach(on.box, mode, 2), kFlag, ""),
      CALL(on.email.Attach(on.box, mode, 1), kFlag, ""),
      CALL(on.email.View()->LoadBoundaries(1), kStatus, "", "", open),
      CALL(on.email.Modify(&on.ann, 1), kStatus, "", "", atA),
      CALL((on.email.Remove(&on.ann, 1), true), kFlag, "", "", atB),
  };
}

// Drops the entries of a full view, so that a reload needs memory.
void OpenEmptied(Stage& on) {
  on.email.Attach(on.box, 2);
  while (on.email.View()->RemoveAt(0) >= 0) {
  }
}

Operations SlidingViewOperations() {
  return {
      CALL(on.email.SetPageSize(3), Count(3), ""),
      CALL((on.email.DeleteBook(), on.email.SetPageSize(3)), Count(3), ""),
  };
}

Operations EmptiedViewOperations() {
  return {
      CALL(on.email.View()->Add(&on.zoe, 1), kStatus, ""),
      CALL(on.email.Modify(&on.ann, 1), kStatus, ""),
      CALL(on.email.ModifyByKey("Ann", &on.zoe, 1), kStatus, ""),
      CALL(on.email.Remove(&on.ann, 1), kStatus, ""),
      CALL(on.email.AddLocal(&on.zoe), Count(1), ""),
  };
}

Operations FullViewOperations() {
  const auto open = [](Stage& on) { on.email.Attach(on.box, 2); };
  return {
      CALL(on.email.View()->Add(&on.zoe, 1), kStatus, "", "", open),
      CALL(on.email.AddLocal(&on.zoe), Count(3), "", "", open),
      CALL(on.email.RemoveLocal(&on.ann), Count(1), "", "", open),
      CALL(on.email.View()->RemoveAt(0), Count(1), "", "", open),
  };
}

// The stream form of an object.
std::string stored;

template <auto Object>
void Store(Stage& on) {
  stored = Stored(*Object(on));
}

CEmailAB* Email(Stage& on) {
  return &on.email;
}

// Walks to the end: that many entries are stored.
CFaxAB* Fax(Stage& on) {
  for (on.fax.FirstEntry(); on.fax.NextEntry() != nullptr;) {
  }
  return &on.fax;
}
CScanner* Box(Stage& on) {
  on.box->SetName(kLongName);
  on.box->SetModel(kLongName);
  on.box->SetVersion(kLongName);
  return on.box;
}
CPubFaxDL* FaxList(Stage& on) {
  return on.faxChoir.get();
}
CPrivEmailAB* Private(Stage& on) {
  return on.priv;
}
CPubEmailDL* List(Stage& on) {
  return on.choir.get();
}
CPrivEmailDL* PrivateList(Stage& on) {
  return on.privChoir.get();
}
CAgent* Agent(Stage& on) {
  Box(on);
  return &TheAgent;
}

template <class Object>
bool LoadInto(Object& object) {
  return !Load(object, stored).Failed();
}

template <class Object>
bool LoadIntoNew() {
  Object object;
  return LoadInto(object);
}

// Stores a key with an item as other programs of this format do: a key stores no items itself.
void StoreKey(Stage& on) {
  stored.clear();
  Archive archive(&stored);
  std::uint32_t items = 1;
  std::string pattern = kLongName;
  archive.Exchange(items);
  archive.Exchange(pattern);
  on.item.Serialize(archive);
}

// Stores the accounts as their list does.
void StoreAccounts(Stage& on) {
  stored.clear();
  Archive archive(&stored);
  std::uint32_t accounts = 1;
  archive.Exchange(accounts);
  on.user.Serialize(archive);
}

// Stores or loads a book with its class.
bool StoreBook(Stage& on) {
  stored.clear();
  Archive(&stored).StoreObject(&on.email);
  return !stored.empty();
}
bool LoadBook() {
  return Archive(std::string_view(stored)).LoadObject<CEmailAB>() != nullptr;
}

// Stores or loads the section of an account.
bool StoreSection(CUserRecord& user) {
  stored.clear();
  Archive archive(&stored);
  user.SerializeWithBook(archive);
  return !stored.empty();
}
bool LoadSection(CUserRecord& user) {
  Archive archive(stored);
  user.SerializeWithBook(archive);
  return !archive.Failed();
}

Operations ArchiveOperations() {
  return {
      CALL(!Stored(on.email).empty(), kFlag, ""),
      CALL(!Stored(on.fax).empty(), kFlag, ""),
      CALL(!Stored(on.users).empty(), kFlag, ""),
      CALL(!Stored(*on.priv).empty(), kFlag, ""),
      CALL(!Stored(*on.choir).empty(), kFlag, ""),
      CALL(!Stored(TheAgent).empty(), kFlag, ""),
      CALL(LoadInto(on.email), kFlag, "", "", Store<Email>),
      CALL(LoadInto(on.fax), kFlag, "", "", Store<Fax>),
      CALL(LoadInto(*on.priv), kFlag, "", "", Store<Private>),
      CALL(LoadIntoNew<CPrivEmailDL>(), kFlag, "", "", Store<PrivateList>),
      CALL(StoreBook(on), kFlag, ""),
      CALL(LoadBook(), kFlag, "", "", [](Stage& on) { StoreBook(on); }),
      CALL(std::unique_ptr<RootObject>(CreateByName("CScanner")) != nullptr, kFlag, ""),
      CALL(StoreSection(on.user), kFlag, ""),
      CALL(LoadSection(on.user), kFlag, "", "", [](Stage& on) { StoreSection(on.user); }),
      CALL(LoadIntoNew<CAgent>(), kFlag, "", "", Store<Agent>),
      CALL(!Stored(*Box(on)).empty(), kFlag, ""),
      CALL(LoadIntoNew<CScanner>(), kFlag, "", "", Store<Box>),
      CALL(!Stored(on.printers).empty(), kFlag, ""),
      CALL(!Stored(*on.faxChoir).empty(), kFlag, ""),
      CALL(LoadIntoNew<CPubFaxDL>(), kFlag, "", "", Store<FaxList>),
      CALL(LoadIntoNew<CPubEmailDL>(), kFlag, "", "", Store<List>),
      CALL(LoadIntoNew<CFaxAB>(), kFlag, "", "", Store<Fax>),
      CALL(!Stored(*on.key).empty(), kFlag, "", "",
           [](Stage& on) { StoreKey(on), LoadInto(*on.key); }),
      CALL(LoadInto(*on.key), kFlag, "", "", StoreKey),
      CALL(LoadIntoNew<CUserList>(), kFlag, "", "", StoreAccounts),
  };
}

// Ends the session of an operation that logs in: the stage's scanner may have been replaced.
struct Session {
  ~Session() { Logout(); }
  const std::string user{kAdministratorName};
  CScanner target;
  CUserRecord record;
  std::string text;
};

Status LoginByRecord(const Stage& on) {
  const Session session;
  LoginRecord login;
  login.address = on.box->Address();
  login.user.Assign(kAdministratorName);
  login.password.Assign("quill");
  std::string identity;
  return TheAgent.LoginByRecord(&login, identity);
}

// Makes the fields of the identity too long to be stored without an allocation.
void SetLongIdentity(Stage& /*on*/) {
  const std::string identity = kLongName + " - " + kLongName + " - " + kLongName;
  SimulatorSetIdentity(identity.data(), static_cast<std::uint32_t>(identity.size()));
}

// Without a keep-alive, which the probe starts.
Status ProbeIdentity(const Stage& on) {
  Session session;
  const std::uint32_t address = on.box->Address();
  session.target.SetAddress(&address);
  TheAgent.Logout(0);
  return TheAgent.ProbeIdentity(&session.target, session.text);
}

template <auto Method>
Status LoginBy(const Stage& on) {
  Session session;
  const std::uint32_t address = on.box->Address();
  const std::uint32_t none = 0;
  session.target.SetAddress(&address);
  session.record.SetFrom(nullptr, kAdministratorName, "quill", "", "", &none, &none);
  return (TheAgent.*Method)(&session.record, &session.target, session.text, 1);
}

bool AddScanner() {
  auto scanner = std::make_unique<CScanner>();
  const std::uint32_t address = 7;
  scanner->Init(kLongName, &address, kLongName, kLongName, &TheAgent);
  const bool isAdded = TheAgent.AddScanner(scanner.get()) == 1;
  static_cast<void>(scanner.release());
  return isAdded && TheAgent.RemoveScanner(&address) == 1;
}

// Reads a log, and then an empty one, which releases it even if calls of the operation fail.
Status ReadLog() {
  const Status status = TheAgent.ReadLog("ADMINISTRATOR");
  SimulatorClearFaults();
  TheAgent.ReadLog("nobody");
  return status;
}

Operations AgentOperations() {
  return {
      CALL(LoginByRecord(on), kStatus, "", "", SetLongIdentity),
      CALL(LoginBy<&CAgent::Login>(on), kStatus, "", "", SetLongIdentity),
      CALL(LoginBy<&CAgent::Relogin>(on), kStatus, "", "", SetLongIdentity),
      CALL(ProbeIdentity(on), kStatus, "", "", SetLongIdentity),
      CALL(on.box->SetTopBook(nullptr), kFlag, ""),
      CALL(on.book->Attach(on.box, 1), kFlag, ""),
      CALL(on.book->AddKey(&on.newItem, true), kStatus, ""),
      CALL(on.book->ClearAll(), kStatus, ""),
      CALL(on.printers.Attach(on.box, 1), Count(2), ""),
      CALL(AddScanner(), kFlag, ""),
      CALL(ReadLog(), kStatus, ""),
      CALL(TheAgent.ClearLog(kLongName), kStatus, ""),
      CALL(TheAgent.ClearLogExceptSystem(), kStatus, ""),
      CALL(TheAgent.ValidateString(kLongName, 40), kStatus, ""),
      CALL(on.box->SetEmailBook(nullptr), kFlag, ""),
      CALL(on.box->SetUsersBook(nullptr), kFlag, ""),
      CALL(on.box->SetFaxBook(nullptr), kFlag, ""),
      CALL(on.box->SetPrintersBook(nullptr), kFlag, ""),
  };
}

template <std::int32_t loadMode>
bool AttachHandle(const Stage& on) {
  CEmailABHandle handle;
  return handle.Attach(&on.email, loadMode) == 1;
}

bool WalkHandle(const Stage& on) {
  CEmailABHandle handle;
  return handle.Attach(&on.email, 2) == 1 && handle.First() != nullptr && handle.Last() != nullptr;
}

// Returns whether a getter delivers a text that needs an allocation.
template <class Object, class Class>
bool Copies(const Object& object, void (Class::*get)(std::string&) const) {
  std::string text;
  (object.*get)(text);
  return text.size() > std::string().capacity();
}

bool CopiesListName(const CPrivEmailAB& book) {
  std::string text;
  return book.CopyListName(0, text) == 1 && text == kLongName;
}

// Gives something of each kind the long name, in memory only.
void GiveLongNames(Stage& on) {
  Box(on);
  for (CUserRecord* each : {&on.user, &on.newUser}) each->SetName(kLongName);
  on.newUser.SetThird(kLongName);
  on.newUser.SetFourth(kLongName);
  on.zoe.SetName(kLongName);
  on.zoe.SetAddress(kLongName);
  on.faxZoe.SetName(kLongName);
  on.faxZoe.SetNumber(kLongName);
  on.choir->GetAt(1)->SetName(kLongName);
  on.faxChoir->GetAt(1)->SetName(kLongName);
  on.email.ListAt(0)->SetName(kLongName);
  on.fax.ListAt(0)->SetName(kLongName);
  on.priv->ListAt(0)->SetName(kLongName);
  on.fax.EntryAt(1)->SetName(kLongName);
  on.priv->EntryAt(1)->SetName(kLongName);
  on.users.SetAt(1, on.newUser);
  on.printers.PrinterAt(1)->SetPrinterName(kLongName);
  on.key->SetKeyName(kLongName);
  GetItemAt(on.key, 1)->SetName(kLongName);
}

// Puts a list of each kind and an account with the long name on the appliance.
void PutLongNames(Stage& on) {
  PutEmail(BookKind::kPublicList, kLongName, "Ann");
  PutEmail(BookKind::kPrivateList, kLongName, "Ann");
  const CFaxEntry member = MakeFax("Ann");
  SimulatorPutEntry(BookKind::kFaxList, kLongName.c_str(), nullptr, &member);
  on.newUser.SetName(kLongName);
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, static_cast<CUserEntry*>(&on.newUser));
}

// The rows of searches and getters, with GiveLongNames.
Operations LongNameOperations() {
  return {
      CALL(on.choir->Find(kLongName, 1), kFlag, ""),
      CALL(on.faxChoir->Find(kLongName, 1), kFlag, ""),
      CALL((on.email.FindFirstList(kLongName, 0), on.email.FoundList()), kFlag, ""),
      CALL((on.fax.FindFirstList(kLongName, 0), on.fax.FoundList()), kFlag, ""),
      CALL(on.fax.FindFirstEntry(kLongName, 1), Count(1), ""),
      CALL(on.priv->SearchFirst(kLongName, 1), Count(1), ""),
      CALL(on.users.FindFirst(kLongName, 1, &on.newUser), Count(1), ""),
      CALL(on.printers.FindFirstPrinter(kLongName, true), Count(1), ""),
      CALL(on.book->FindFirstKey(kLongName, true), Count(0), ""),
      CALL(FindFirstItem(on.key, kLongName, 1), Count(1), ""),
      CALL((on.newKey->MoveFrom(*on.key, on.book), on.key->ItemCount() == 0), kFlag, ""),
      CALL(on.newKey->SetKeyName(kLongName), kFlag, ""),
      CALL(CSoftKey().Init(kLongName, 1, on.book), kFlag, ""),
      CALL(on.choir->InitName(kLongName), kStatus, ""),
      CALL((on.choir->SetName(kLongName), true), kFlag, ""),
      CALL(Copies(*on.email.ListAt(0), &CPubEmailDL::GetName), kFlag, ""),
      CALL(CopiesListName(*on.priv), kFlag, ""),
      CALL(Copies(on.zoe, &CEmailEntry::GetName) && Copies(on.zoe, &CEmailEntry::GetAddress), kFlag,
           ""),
      CALL(Copies(on.faxZoe, &CFaxEntry::GetName) && Copies(on.faxZoe, &CFaxEntry::GetNumber),
           kFlag, ""),
      CALL(Copies(on.newUser, &CUserEntry::GetName) && Copies(on.newUser, &CUserEntry::GetThird) &&
               Copies(on.newUser, &CUserEntry::GetFourth),
           kFlag, ""),
      CALL(Copies(*on.box, &CScanner::GetName) && Copies(*on.box, &CScanner::GetModel) &&
               Copies(*on.box, &CScanner::GetVersion),
           kFlag, ""),
      CALL(Copies(TheAgent, &CAgent::ErrorText), kFlag, ""),
  };
}

// The rows that send long names, with PutLongNames.
Operations SentNameOperations() {
  return {
      CALL(on.email.LoadLists(1), kStatus, ""),
      CALL(on.email.LoadLists(0), kStatus, ""),
      CALL(on.fax.LoadLists(1), kStatus, ""),
      CALL(on.priv->LoadLists(1), kStatus, ""),
      CALL(on.priv->LoadLists(0), kStatus, ""),
      CALL(on.email.ServerListSize(kLongName, &count), kStatus, ""),
      CALL(on.fax.ServerListSize(kLongName, &count), kStatus, ""),
      CALL(on.priv->ServerListSize(kLongName, &count), kStatus, ""),
      CALL(on.choir->Open(&on.email, kLongName), kStatus, ""),
      CALL(on.faxChoir->Open(&on.fax, kLongName), kStatus, ""),
      CALL(on.privChoir->Open(on.priv, kLongName), kStatus, ""),
      CALL(on.newUser.LoadLog(), kStatus, ""),
      CALL(on.newUser.ClearMyLog(), kStatus, ""),
      CALL(on.users.LoadUserLog(on.newUser), kStatus, ""),
      CALL(on.users.ClearUserLog(on.newUser), kStatus, ""),
      CALL(on.users.DeleteUser(&on.newUser, 1), kFlag, ""),
  };
}

// Runs `step` with a record, while the book of accounts returns them with their private books.
template <class Step>
bool WithPrivateBooks(Stage& on, Step step) {
  const auto attach = [](Stage* stage) { stage->users.Attach(stage->box, 0, 0); };
  const std::unique_ptr<Stage, decltype(attach)> restored(&on);
  on.users.Attach(on.box, 1, 0);
  CUserRecord record;
  return step(&record);
}

// Drops the accounts, so that a reload needs memory. It would release the private book.
void DropAccounts(Stage& on) {
  delete on.user.DetachPrivateBook();
  while (on.users.RemoveAt(0, 0) != 0) {
  }
}

// Opens the e-mail book of the appliance, through which a public list without members is read.
void OpenEmailBook(Stage& on) {
  on.box->SetEmailBook(nullptr);
  on.email.LoadLists(0);
}

Operations AccountOperations() {
  return {
      CALL(WithPrivateBooks(on, [&](auto* to) { return on.users.GetAt(1, to) != nullptr; }), kFlag,
           ""),
      CALL(WithPrivateBooks(on, [&](auto* to) { return on.users.FindFirst("Ann", 1, to) == 1; }),
           kFlag, ""),
      CALL(WithPrivateBooks(on,
                            [&](auto* to) {
                              on.users.First(to);
                              return on.users.Next(to) != nullptr;
                            }),
           kFlag, ""),
      CALL(WithPrivateBooks(on,
                            [&](auto* to) {
                              on.users.FindFirst("A", 0, to);
                              return on.users.FindNext(0, to) == 1;
                            }),
           kFlag, ""),
      CALL(on.user.AttachPrivateBook(nullptr), kFlag, ""),
  };
}

// The rows of reloads, with DropAccounts.
Operations AccountReloads() {
  return {
      CALL(on.users.Attach(on.box, 0, 1), kFlag, ""),
      CALL(on.users.ReadUser(&on.user, 1), kFlag, ""),
      CALL(on.users.ModifyUser(&on.user, 1), kFlag, ""),
      CALL(on.users.RenameUser("Ann", &on.newUser, 1), kFlag, ""),
      CALL(on.users.AddUser(&on.newUser, 1), kFlag, ""),
      CALL(on.users.AddLocal(&on.newUser), Count(1), ""),
      CALL(on.user.SetOwner(&on.users) == 1 && on.user.MarkOnce(1) == 1, kFlag, ""),
      CALL(on.user.SetOwner(&on.users) == 1 && on.user.TurnOn(1) == 1, kFlag, ""),
      CALL(on.user.SetOwner(&on.users) == 1 && on.user.TurnOff(1) == 1, kFlag, ""),
  };
}

// The rows that read a public list, with OpenEmailBook.
Operations PublicListCopies() {
  return {
      CALL(on.priv->CopyPublicList(on.email.ListAt(0), "Choir", 0), kFlag, ""),
      CALL(on.priv->CopyPublicListLocal(on.email.ListAt(0), "Choir"), kFlag, ""),
  };
}

std::int32_t FillFaxEntries(Stage& on) {
  CFaxEntryList list;
  return list.Init(1, &on.fax) != 0 && list.Grow(2) ? list.Append(on.faxAnn) : -1;
}

std::int32_t FillAccounts(Stage& on) {
  CUserList list;
  list.Init(1, &on.users);
  return list.Grow(2) ? list.Append(on.user) : -1;
}

template <class Page, class Book>
std::int32_t FillPage(const Stage& on, const Book& book) {
  Page page;
  page.Attach(1, book);
  return page.Resize(2) ? page.Append(on.ann) : -1;
}

// The blocks of records that the books consist of.
Operations BlockOperations() {
  return {
      CALL(FillFaxEntries(on) == 3, kFlag, ""),
      CALL(FillAccounts(on) == 3, kFlag, ""),
      CALL(FillPage<CEntryPage>(on, on.email.Entries()) == 3, kFlag, ""),
      CALL(FillPage<CPrivEntryPage>(on, on.priv) == 3, kFlag, ""),
  };
}

// Stores a text in the profile of the long name, and ends the enumeration of the profiles.
void StoreSetting(Stage& /*on*/) {
  SetLdapString(kLongName.c_str(), kLongName.c_str(), kLongName.c_str());
  while (EnumLdapProfiles(profile, &(length = sizeof profile)) == 0) {
  }
}

Operations TextOperations() {
  return {
      CALL(AttachHandle<0>(on), kFlag, "ListAB, SizeofAB (ends), ReadAB (ignored)"),
      CALL(AttachHandle<1>(on), kFlag, "ListAB, SizeofAB (ends), ReadAB (ignored)"),
      CALL(WalkHandle(on), kFlag, ""),
      CALL(CPrivEmailDL().AssignFrom(*on.email.ListAt(0)), kFlag, ""),
      CALL(on.email.CopyListLocal(*on.email.ListAt(0), kLongName), Count(2), ""),
      CALL(on.fax.FastDuplicateList(*on.fax.ListAt(0), kLongName), kFlag, ""),
      CALL(on.priv->CopyListLocal(*on.priv->ListAt(0), kLongName), kFlag, ""),
      CALL(on.user.CreatePrivateBook(), kFlag, ""),
      CALL(SetLdapString(kLongName.c_str(), kLongName.c_str(), kLongName.c_str()), kFlag, ""),
      CALL(GetLdapString(kLongName.c_str(), kLongName.c_str()) == kLongName, kFlag, "", "",
           StoreSetting),
      CALL(DeleteLdapProfile(kLongName.c_str()), kFlag, "", "", StoreSetting),
      CALL(EnumLdapProfiles(profile, &(length = sizeof profile)), kStatus, "", "", StoreSetting),
      CALL((SetLdapDword(kLongName.c_str(), kLongName.c_str(), 7), true), kFlag, ""),
      CALL(GetLdapDword(kLongName.c_str(), kLongName.c_str(), 7) == 7, kFlag, "", "", StoreSetting),
      CALL((ReportRegistryError(0, 0, ""), true), kFlag, ""),
  };
}

}  // namespace

Operations ClassOperations() {
  Operations all;
  const auto add = [&](const std::string& prefix, Operations table,
                       void (*prepare)(Stage&) = nullptr) {
    for (Operation& each : table) {
      each.name.insert(0, prefix);
      if (prepare != nullptr) each.prepare = prepare;
      all.push_back(each);
    }
  };
  add("sliding view ", ViewOperations<0>());
  add("sliding view ", SlidingViewOperations());
  add("letter view ", ViewOperations<1>());
  add("full view ", ViewOperations<2>());
  add("full view ", FullViewOperations());
  add("emptied full view ", EmptiedViewOperations(), OpenEmptied);
  add("", ArchiveOperations());
  add("", AgentOperations());
  add("", TextOperations());
  add("long names: ", LongNameOperations(), GiveLongNames);
  add("long names on the appliance: ", SentNameOperations(), PutLongNames);
  add("", AccountOperations());
  add("dropped accounts: ", AccountReloads(), DropAccounts);
  add("lists without members: ", PublicListCopies(), OpenEmailBook);
  add("", BlockOperations());
  return all;
}

}  // namespace quillkit
