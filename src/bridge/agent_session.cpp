// The life of the server library and the ways to log in and out.

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

// What one login sends.
struct Credentials : Wiped<LoginRecord> {
  Credentials(std::uint32_t newAddress, std::string_view newUser, std::string_view newPassword) {
    address = newAddress;
    user.Assign(newUser);
    password.Assign(newPassword);
  }
};

// The server's 256 bytes of identity, and one more that ends them whatever the server wrote.
class IdentityBuffer {
 public:
  static constexpr std::uint32_t kCapacity = 256;

  char* data() { return bytes_.data(); }
  std::string_view View() const { return {bytes_.data(), std::strlen(bytes_.data())}; }

 private:
  std::array<char, kCapacity + 1> bytes_ = {};
};

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
  Credentials login(target->Address(), user->name.View(), user->password.View());
  IdentityBuffer reply;
  const Status status = IMSPLogin(&login, reply.data(), IdentityBuffer::kCapacity);
  const Identity identity = ParseIdentity(reply.View());
  third = identity.third.View();
  if (status != kNoError) return status;
  connected = 1;
  StartWakeup();
  if (lastError != kNoError) return lastError;
  AddScannerFor(target, target->Address(), identity);
  return AdoptUser(*user, loadPrivateBook);
}

Status CAgent::Relogin(CUserRecord* user, CScanner* target, std::string& third,
                       std::int32_t loadPrivateBook) {
  connected = 0;
  Credentials login(target->Address(), user->name.View(), user->password.View());
  IdentityBuffer reply;
  const Status status = IMSPLogin(&login, reply.data(), IdentityBuffer::kCapacity);
  if (status != kNoError) return status;
  third = ParseIdentity(reply.View()).third.View();
  connected = 1;
  StartWakeup();
  if (lastError != kNoError) return lastError;
  return AdoptUser(*user, loadPrivateBook);
}

Status CAgent::LoginByRecord(LoginRecord* login, std::string& identity) {
  IdentityBuffer reply;
  const Status status = IMSPLogin(login, reply.data(), IdentityBuffer::kCapacity);
  identity = reply.View();
  const Identity fields = ParseIdentity(identity);
  if (status != kNoError) return status;
  connected = 1;
  StartWakeup();
  if (lastError != kNoError) return lastError;
  AddScannerFor(nullptr, login->address, fields);
  return status;
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
  Credentials login(target->Address(), kToolkitName, kProbePassword);
  IdentityBuffer reply;
  const Status status = IMSPLogin(&login, reply.data(), IdentityBuffer::kCapacity);
  const Identity identity = ParseIdentity(reply.View());
  if (status != kNoError) return status;
  const Status started = StartWakeup();
  if (started != kNoError) return started;
  third = identity.third.View();
  lastError = IMSPLogout();
  return lastError;
}

Status CAgent::EnrolUser(std::uint32_t address, CUserEntry* entry) {
  Credentials login(address, kGuestName, {});
  IdentityBuffer reply;
  const Status status = IMSPLogin(&login, reply.data(), IdentityBuffer::kCapacity);
  if (status != kNoError) return status;
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
  // A copy: a server that writes into it changes nothing here.
  Wiped<CUserEntry> sent(*user);
  return IMSPModifyEntry(&book, &key, &sent);
}

// Makes `user` the current one as the server knows it; on a failure there is none.
Status CAgent::AdoptUser(const CUserRecord& user, std::int32_t loadPrivateBook) {
  auto adopted = std::make_unique<CUserRecord>();
  adopted->SetFrom(nullptr, user);
  currentUser = std::move(adopted);  // only now: `user` may be the record that goes
  const Status status = ReadUser(currentUser.get());
  if (lastError != kNoError) {
    currentUser.reset();
  } else if (loadPrivateBook != 0) {
    currentUser->LoadPrivateBook();
  }
  return status;
}

// A scanner for the appliance that has just let us in. Without a target it has no name.
void CAgent::AddScannerFor(const CScanner* target, std::uint32_t address,
                           const Identity& identity) {
  auto scanner = std::make_unique<CScanner>();
  scanner->Init(target != nullptr ? target->Name() : std::string(), &address,
                std::string(identity.model.View()), std::string(identity.version.View()), this);
  AddScanner(scanner.get());
  static_cast<void>(scanner.release());
}

}  // namespace quillkit
