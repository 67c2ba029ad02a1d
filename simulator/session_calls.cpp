// The entry points for the library, the session and everything that does not concern a book.

#include <algorithm>
#include <cstring>
#include <optional>
#include <string>
#include <string_view>

#include "bridge/imsp_api.h"
#include "simulator/batch.h"
#include "simulator/call.h"
#include "simulator/database.h"
#include "simulator/rights.h"

namespace quillbox {
namespace {

// Copies `text` and its NUL, as far as there is room.
void CopyText(const std::string& text, char* buffer, std::size_t capacity) {
  if (capacity != 0) std::memcpy(buffer, text.c_str(), std::min(text.size() + 1, capacity));
}

std::optional<CUserEntry> FindAccount(Appliance& appliance, const EntryKey& name) {
  const Record* const record =
      appliance.contents.store.Find({BookKind::kUsers, {}, {}})->Find(name);
  if (record == nullptr) return std::nullopt;
  CUserEntry account;
  record->CopyTo(&account);
  return account;
}

Status LogIn(Appliance& appliance, const LoginRecord& login) {
  EntryKey name;
  name.name = login.user;
  const std::optional<CUserEntry> account = FindAccount(appliance, name);
  if (!account || !(account->password == login.password)) return kWrongUser;
  appliance.session.Open(name.name.View(), appliance.clock);
  appliance.timeout = appliance.settings.timeout;
  appliance.log.Add(name.name.View(), "login");
  return kNoError;
}

Status Control(Appliance& appliance, IOCtlRecord& record) {
  switch (record.code) {
    case IOCtlCode::kSetTimeout:
      appliance.timeout = record.value;
      return kNoError;
    case IOCtlCode::kGetTimeout:
      record.value = appliance.timeout;
      return kNoError;
    case IOCtlCode::kGetWakeupPeriod:
      record.value = appliance.settings.wakeupPeriod;
      return kNoError;
    case IOCtlCode::kDatabaseCommand:
      if (record.text == nullptr) return kInvalidField;
      if (!IsPrivileged(appliance.session.User())) return kAccessDenied;
      return RunDatabaseCommand(appliance.contents, CommandText(record.text));
    case IOCtlCode::kGetText:
      record.text =
          appliance.settings.hasServerText ? appliance.settings.serverText.data() : nullptr;
      return kNoError;
  }
  return kBadCommand;
}

bool IsAccepted(std::string_view text) {
  return std::none_of(text.begin(), text.end(), [](char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte < ' ' || byte == 0x7F || c == '"';
  });
}

// The transfers, which this appliance does not support.
Status RejectTransfer(Appliance&) {
  return kNotImplemented;
}

}  // namespace
}  // namespace quillbox

namespace quillkit {

using namespace quillbox;

extern "C" {

Status IMSPInit() {
  return Serve({"IMSPInit", Precondition::kNothing}, [](Appliance& appliance) {
    appliance.isInitialised = true;
    return kNoError;
  });
}

Status IMSPTerminate() {
  return Serve({"IMSPTerminate", Precondition::kLibrary}, [](Appliance& appliance) {
    appliance.session.Close();
    appliance.isInitialised = false;
    return kNoError;
  });
}

Status IMSPLogin(LoginRecord* login, char* identity, std::uint32_t capacity) {
  return Serve(
      {"IMSPLogin", Precondition::kLibrary},
      [=](Appliance& appliance) {
        if (login == nullptr || (identity == nullptr && capacity != 0)) return kInvalidField;
        const Status status = LogIn(appliance, *login);
        if (status == kNoError) CopyText(appliance.settings.identity, identity, capacity);
        return status;
      },
      login);
}

Status IMSPLogout() {
  return Serve({"IMSPLogout"}, [](Appliance& appliance) {
    appliance.log.Add(appliance.session.Account(), "logout");
    appliance.session.Close();
    return kNoError;
  });
}

Status IMSPWakeup() {
  return Serve({"IMSPWakeup"}, [](Appliance&) { return kNoError; });
}

Status IMSPAbort() {
  return Serve({"IMSPAbort"}, [](Appliance&) { return kNoError; });
}

Status IMSPIOCtl(IOCtlRecord* record) {
  return Serve(
      {"IMSPIOCtl"},
      [record](Appliance& appliance) {
        return record != nullptr ? Control(appliance, *record) : kInvalidField;
      },
      record);
}

Status IMSPCheckString(const char* text, std::int32_t maximumLength) {
  return Serve(
      {"IMSPCheckString"},
      [=](Appliance&) {
        if (text == nullptr || maximumLength < 0) return kInvalidField;
        const std::string_view view(text);
        const bool isShort = view.size() <= static_cast<std::size_t>(maximumLength);
        return isShort && IsAccepted(view) ? kNoError : kInvalidField;
      },
      text, maximumLength);
}

Status IMSPBatchConfiguration(const char* path) {
  return Serve(
      {"IMSPBatchConfiguration"},
      [path](Appliance& appliance) {
        if (path == nullptr) return kInvalidField;
        const std::string& user = appliance.session.User();
        const Status status = user == kGuestName ? kAccessDenied
                                                 : RunBatch(appliance.contents.store,
                                                            appliance.settings.limits, user, path);
        appliance.log.Add(user, "batch " + std::to_string(status));
        return status;
      },
      path);
}

Status IMSPChangeIdentity(EntryKey* user) {
  return Serve(
      {"IMSPChangeIdentity"},
      [user](Appliance& appliance) {
        if (user == nullptr) return kInvalidField;
        if (appliance.session.Account() != kAdministratorName) return kAccessDenied;
        if (!FindAccount(appliance, *user)) return kWrongUser;
        appliance.session.ChangeUser(user->name.View());
        return kNoError;
      },
      user);
}

Status IMSPExport(std::uint32_t first, std::uint32_t second) {
  return Serve({"IMSPExport"}, RejectTransfer, first, second);
}

Status IMSPGetExportFile(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
  return Serve({"IMSPGetExportFile"}, RejectTransfer, first, second, third);
}

Status IMSPImport(std::uint32_t first, std::uint32_t second, std::uint32_t third) {
  return Serve({"IMSPImport"}, RejectTransfer, first, second, third);
}

Status IMSPImpExpState(std::uint32_t first, std::uint32_t second) {
  return Serve({"IMSPImpExpState"}, RejectTransfer, first, second);
}

Status IMSPImpExpAbort() {
  return Serve({"IMSPImpExpAbort"}, RejectTransfer);
}

}  // extern "C"

}  // namespace quillkit
