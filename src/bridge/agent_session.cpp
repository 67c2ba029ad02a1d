// Loading of the server library, and logging in and out.

#include <array>
#include <cstring>
#include <utility>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/agent.h"
#include "bridge/identity.h"
#include "platform/message_box.h"

namespace quillkit {
namespace {

constexpr std::string_view kProbePassword = "KELP";

// The server's reply to a login.
struct LoginReply {
  static constexpr std::uint32_t kCapacity = 256;  // bytes of identity text

  std::string_view Text() const { return {text.data(), std::strlen(text.data())}; }
  Identity Fields() const { return ParseIdentity(Text()); }

  Status status = kNoError;
  std::array<char, kCapacity + 1> text = {};  // the server cannot overwrite the last NUL
};

LoginReply SendLogin(CAgent* agent, LoginRecord* login) {
  LoginReply reply;
  reply.status = agent->IMSPLogin(login, reply.text.data(), LoginReply::kCapacity);
  return reply;
}

LoginReply SendLogin(CAgent* agent, std::uint32_t address, std::string_view user,
                     std::string_view password) {
  Wiped<LoginRecord> login;
  login.address = address;
  login.user.Assign(user);
  login.password.Assign(password);
  return SendLogin(agent, &login);
}

}  // namespace

Status CAgent::LoadServerLibrary() {
  serverLibrary = LoadModule("IMSPAPI");
  if (serverLibrary == nullptr) {
    ShowMessageBox("Cannot Load IMSPAPI.DLL");
    return kRefused;
  }
  const Status status = IMSPInit();
  if (status == kNoError) serverReady = 1;
  return status;
}

void CAgent::Shutdown() {
  currentUser.reset();
  if (serverLibrary != nullptr) {
    IMSPTerminate();
    UnloadModule(serverLibrary);
    serverLibrary = nullptr;
  }
  StopWakeup();
  DeleteScanners();
}

Status CAgent::Login(CUserRecord* user, CScanner* target, std::string& third,
                     std::int32_t loadPrivateBook) {
  connected = 0;
  const LoginReply reply =
      SendLogin(this, target->Address(), user->name.View(), user->password.View());
  const Identity identity = reply.Fields();
  third = identity.third.View();
  if (reply.status != kNoError) return reply.status;
  if (StartSession() != kNoError) return lastError;
  AddScannerFor(target, target->Address(), identity);
  return AdoptUser(*user, loadPrivateBook);
}

Status CAgent::Relogin(CUserRecord* user, CScanner* target, std::string& third,
                       std::int32_t loadPrivateBook) {
  connected = 0;
  const LoginReply reply =
      SendLogin(this, target->Address(), user->name.View(), user->password.View());
  if (reply.status != kNoError) return reply.status;
  third = reply.Fields().third.View();
  if (StartSession() != kNoError) return lastError;
  return AdoptUser(*user, loadPrivateBook);
}

Status CAgent::LoginByRecord(LoginRecord* login, std::string& identity) {
  const LoginReply reply = SendLogin(this, login);
  identity = reply.Text();
  if (reply.status != kNoError) return reply.status;
  if (StartSession() != kNoError) return lastError;
  AddScannerFor(nullptr, login->address, reply.Fields());
  return reply.status;
}

// Marks the session of an accepted login as open and starts its keep-alive.
Status CAgent::StartSession() {
  connected = 1;
  StartWakeup();
  return lastError;
}

Status CAgent::Logout(std::int32_t deleteScanners) {
  const Status status = IMSPLogout();
  currentUser.reset();
  if (deleteScanners != 0) DeleteScanners();
  wakeupPeriod = 0;
  StopThreadTimer(wakeupTimer);
  connected = 0;
  return status;
}

Status CAgent::ProbeIdentity(CScanner* target, std::string& third) {
  const LoginReply reply = SendLogin(this, target->Address(), kToolkitName, kProbePassword);
  if (reply.status != kNoError) return reply.status;
  const Status started = StartWakeup();
  if (started != kNoError) return started;
  third = reply.Fields().third.View();
  lastError = IMSPLogout();
  return lastError;
}

Status CAgent::EnrolUser(std::uint32_t address, CUserEntry* entry) {
  const LoginReply reply = SendLogin(this, address, kGuestName, {});
  if (reply.status != kNoError) return reply.status;
  ABIdent book(BookKind::kUsers, kUsersBook);
  const Status created = IMSPCreateEntry(&book, entry);
  IMSPLogout();
  return created;
}

Status CAgent::ReadUser(CUserRecord* user) {
  ABIdent book(BookKind::kUsers, kUsersBook);
  EntryKey key = EntryKey::Of(user->name.View());
  const Status status = IMSPReadEntryProperties(&book, &key, static_cast<CUserEntry*>(user));
  user->Terminate();
  return status;
}

Status CAgent::ModifyUser(CUserRecord* user) {
  ABIdent book(BookKind::kUsers, kUsersBook);
  EntryKey key = EntryKey::Of(user->name.View());
  // A copy: a server that overwrites it does not change `user`.
  Wiped<CUserEntry> sent(*user);
  return IMSPModifyEntry(&book, &key, &sent);
}

// Makes a copy of `user` the current user and reads its record from the server. If the read fails,
// there is no current user. Returns the status of the read.
Status CAgent::AdoptUser(const CUserRecord& user, std::int32_t loadPrivateBook) {
  auto adopted = std::make_unique<CUserRecord>();
  adopted->SetFrom(nullptr, user);
  currentUser = std::move(adopted);  // only now: this may destroy `user`
  const Status status = ReadUser(currentUser.get());
  if (lastError != kNoError) {
    currentUser.reset();
  } else if (loadPrivateBook != 0) {
    currentUser->LoadPrivateBook();
  }
  return status;
}

// Adds a scanner for the appliance of an accepted login. Without a target it has no name.
void CAgent::AddScannerFor(const CScanner* target, std::uint32_t address,
                           const Identity& identity) {
  auto scanner = std::make_unique<CScanner>();
  scanner->Init(target != nullptr ? target->Name() : std::string(), &address,
                std::string(identity.model.View()), std::string(identity.version.View()), this);
  AddScanner(scanner.get());
  static_cast<void>(scanner.release());
}

}  // namespace quillkit
