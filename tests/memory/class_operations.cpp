#include "tests/memory/class_operations.h"

#include <algorithm>
#include <iterator>
#include <memory>

#include "books/email_ab_handle.h"
#include "bridge/the_agent.h"
#include "settings/ldap_settings_store.h"
#include "simulator/simulator.h"
#include "softkeys/soft_key.h"
#include "softkeys/top_level_ab.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

// Opens the view of a mode and runs an operation of the e-mail book in it.
template <std::int32_t mode>
Operations ViewOperations() {
  const auto open = [](Stage& on) {
    on.email.Attach(on.box, mode);
    if (mode == 1) on.email.First();
  };
  return {
      CALL(on.email.Attach(on.box, mode) == 1 && on.email.First() != nullptr, kFlag, ""),
      CALL(on.email.First(), kFlag, "", "", open),
      CALL(on.email.Last(), kFlag, "", "", open),
      CALL(on.email.GetAt(1), kFlag, "", "", open),
      CALL(on.email.Find("Bob", 1), kFlag, "", "", open),
      CALL((on.email.Find(kLongName, 0), true), kFlag, "", "", open),
      CALL(on.email.FindLetter('B'), kFlag, "", "", open),
      CALL(on.email.FindPrefix("Bo"), kFlag, "", "", open),
      CALL(on.email.FirstLetter() == 'A', kFlag, "", "", open),
      CALL(on.email.NextLetter('A') == 'B', kFlag, "", "", open),
      CALL(on.email.LetterStart('B'), Count(1), "", "", open),
      CALL(on.email.View()->LoadBoundaries(1), kStatus, "", "", open),
      CALL(on.email.Modify(&on.ann, 1), kStatus, "", "", open),
      CALL((on.email.Remove(&on.ann, 1), true), kFlag, "", "", open),
  };
}

Operations FullViewOperations() {
  const auto open = [](Stage& on) { on.email.Attach(on.box, 2); };
  return {
      CALL(on.email.View()->Add(&on.zoe, 1), kStatus, "", "", open),
      CALL(on.email.AddLocal(&on.zoe), Count(3), "", "", open),
      CALL(on.email.RemoveLocal(&on.ann), Count(1), "", "", open),
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
CFaxAB* Fax(Stage& on) {
  return &on.fax;
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
CAgent* Agent(Stage& /*on*/) {
  return &TheAgent;
}

template <class Object>
bool LoadInto(Object& object) {
  return !Load(object, stored).Failed();
}

bool LoadIntoNewAgent() {
  CAgent agent;
  return LoadInto(agent);
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
      CALL(LoadInto(*on.choir), kFlag, "", "", Store<List>),
      CALL(LoadInto(*on.privChoir), kFlag, "", "", Store<PrivateList>),
      CALL(StoreSection(on.user), kFlag, ""),
      CALL(LoadSection(on.user), kFlag, "", "", [](Stage& on) { StoreSection(on.user); }),
      CALL(LoadIntoNewAgent(), kFlag, "", "", Store<Agent>),
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
      CALL(LoginByRecord(on), kStatus, ""),
      CALL(LoginBy<&CAgent::Login>(on), kStatus, ""),
      CALL(LoginBy<&CAgent::Relogin>(on), kStatus, ""),
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

bool AttachHandle(const Stage& on) {
  CEmailABHandle handle;
  return handle.Attach(&on.email, 0) == 1;
}

Operations TextOperations() {
  return {
      CALL(AttachHandle(on), kFlag, "ListAB, SizeofAB (ends), ReadAB (ignored)"),
      CALL(on.privChoir->AssignFrom(*on.email.ListAt(0)), kFlag, ""),
      CALL((on.choir->SetName(kLongName), true), kFlag, ""),
      CALL((on.choir->Find(kLongName, 1), true), kFlag, ""),
      CALL((on.email.FindFirstList(kLongName, 0), true), kFlag, ""),
      CALL((on.fax.FindFirstEntry(kLongName, 1), true), kFlag, ""),
      CALL((on.users.FindFirst(kLongName, 1, &on.newUser), true), kFlag, ""),
      CALL((on.printers.FindFirstPrinter(kLongName, true), true), kFlag, ""),
      CALL((on.book->FindFirstKey(kLongName, true), true), kFlag, ""),
      CALL(on.user.CreatePrivateBook(), kFlag, ""),
      CALL(SetLdapString(kLongName.c_str(), kLongName.c_str(), kLongName.c_str()), kFlag, ""),
      CALL(GetLdapString(kLongName.c_str(), kLongName.c_str()) == kLongName, kFlag, "", "",
           [](Stage&) { SetLdapString(kLongName.c_str(), kLongName.c_str(), kLongName.c_str()); }),
      CALL(DeleteLdapProfile(kLongName.c_str()), kFlag, "", "",
           [](Stage&) { SetLdapString(kLongName.c_str(), kLongName.c_str(), kLongName.c_str()); }),
  };
}

}  // namespace

Operations ClassOperations() {
  Operations all;
  const auto add = [&](const std::string& prefix, Operations table) {
    for (Operation& each : table) {
      each.name.insert(0, prefix);
      all.push_back(each);
    }
  };
  add("sliding view ", ViewOperations<0>());
  add("letter view ", ViewOperations<1>());
  add("full view ", ViewOperations<2>());
  add("full view ", FullViewOperations());
  add("", ArchiveOperations());
  add("", AgentOperations());
  add("", TextOperations());
  return all;
}

}  // namespace quillkit
