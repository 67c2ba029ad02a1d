// What LogToQuillbox leaves behind, outcome by outcome: its result, the last error, whether a
// session is open here and on the server, the calls, and what stays allocated.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/case_name.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"

namespace quillkit {
namespace {

constexpr Status kEarlierError = 17;

struct Attempt {
  std::string host = kHost;
  std::string user = kAdministrator;
  std::string password = kPassword;
  std::string third = "";
  std::int32_t loadTopBook = 0;
};

enum Result { kNull, kHandle };
enum Before { kFresh, kInSession };  // the administrator is logged in already

struct Left {
  Status lastError;
  std::int32_t sessionOpen;
  std::string user;  // whose session there is, here and on the server, with its sign of life
  std::int32_t scanners;
  bool hasTopBook;
};

struct Outcome {
  const char* name;
  Before before;
  Attempt attempt;
  const char* failing;  // the entry point that answers 6, or null
  Result result;
  Left left;
  std::vector<std::string> calls;
};

std::ostream& operator<<(std::ostream& out, const Outcome& each) {
  return out << each.name;
}

std::vector<Outcome> Outcomes() {
  const Attempt good;
  const Attempt load = {.loadTopBook = 1};
  const Attempt wrong = {.password = "wrong"};
  const Attempt password = {.password = std::string(16, 'p')};
  const Attempt third = {.third = std::string(256, 't')};
  const Attempt name = {.user = std::string(32, 'n')};
  const Attempt host = {.host = std::string(70, 'x')};  // a label ends at 63 characters
  const Attempt zero = {.host = "0.0.0.0"};
  const Attempt toolkit = {.user = "TOOLKIT", .password = "KELP"};
  const Attempt ann = {.user = "Ann", .password = "", .loadTopBook = 1};

  const std::string admin = kAdministrator;
  const std::string login = "IMSPLogin 127.0.0.1 ADMINISTRATOR quill";
  const std::string refused = "IMSPLogin 127.0.0.1 ADMINISTRATOR wrong";
  const std::string logout = "IMSPLogout";
  const std::string period = "IMSPIOCtl 6 0";
  const std::string user = "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR";
  const std::string list = "IMSPListABEntries 256: [|*|0] 11 1";
  const std::string items = "IMSPReadAB 512:Scan [|*|0] 512 1";

  const Left nothing = {kEarlierError, 0, "", 0, false};
  const Left session = {kEarlierError, 1, admin, 1, true};
  const Left success = {kNoError, 1, admin, 1, true};
  const char* const readUser = "IMSPReadEntryProperties";
  return {
      {"PasswordTooLong", kFresh, password, nullptr, kNull, nothing, {}},
      {"ThirdTooLong", kFresh, third, nullptr, kNull, nothing, {}},
      {"NameTooLong", kFresh, name, nullptr, kNull, nothing, {}},
      {"TooLongInSession", kInSession, password, nullptr, kNull, session, {}},
      {"NoSuchHost", kFresh, host, nullptr, kNull, {25, 0, "", 0, false}, {}},
      {"NoSuchHostInSession", kInSession, host, nullptr, kNull, {25, 0, admin, 1, true}, {}},
      {"HostZero", kFresh, zero, nullptr, kNull, nothing, {}},
      {"HostZeroInSession", kInSession, zero, nullptr, kNull, {17, 0, admin, 1, true}, {}},
      {"Refused", kFresh, wrong, nullptr, kNull, {2, 0, "", 0, false}, {refused, logout}},
      {"RefusedInSession",
       kInSession,
       wrong,
       nullptr,
       kNull,
       {2, 0, "", 1, true},
       {refused, logout}},
      {"NoPeriod", kFresh, good, "IMSPIOCtl", kNull, {6, 0, "", 0, false}, {login, period, logout}},
      {"NoUser",
       kFresh,
       good,
       readUser,
       kNull,
       {6, 0, "", 1, false},
       {login, period, user, logout}},
      {"NoUserInSession",
       kInSession,
       good,
       readUser,
       kNull,
       {6, 0, "", 1, false},
       {login, user, logout}},
      {"Success", kFresh, good, nullptr, kHandle, success, {login, period, user}},
      {"SuccessInSession", kInSession, good, nullptr, kHandle, success, {login, user}},
      {"Load", kFresh, load, nullptr, kHandle, success, {login, period, user, list, items}},
      {"LoadFails",
       kFresh,
       load,
       "IMSPListABEntries",
       kHandle,
       {6, 1, admin, 1, true},
       {login, period, user, list}},
      {"Toolkit",
       kFresh,
       toolkit,
       nullptr,
       kHandle,
       {0, 1, "TOOLKIT", 1, true},
       {"IMSPLogin 127.0.0.1 TOOLKIT KELP", period, "IMSPReadEntryProperties 4:USERSAB TOOLKIT"}},
      {"AnybodyElse",
       kFresh,
       ann,
       nullptr,
       kHandle,
       {0, 1, "Ann", 1, false},
       {"IMSPLogin 127.0.0.1 Ann \"\"", period, "IMSPReadEntryProperties 4:USERSAB Ann"}},
  };
}

class SessionOutcome : public ApplianceTest, public testing::WithParamInterface<Outcome> {};

TEST_P(SessionOutcome, LeavesWhatTheTableTells) {
  const auto& [name, before, attempt, failing, result, left, calls] = GetParam();
  PutKey("Scan", {"Desk"});
  CUserEntry account;
  account.SetName("Ann");
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, &account);
  if (before == kInSession) LogIn();
  TheAgent.SetError(kEarlierError);
  if (failing != nullptr) SimulatorFail(failing, 1, 6);

  CScanner* box = LogToQuillbox(attempt.host, attempt.user, attempt.password, attempt.third,
                                attempt.loadTopBook);

  EXPECT_EQ(box != nullptr, result == kHandle);
  EXPECT_EQ(GetLastToolkitError(), left.lastError);
  EXPECT_EQ(SessionOpen, left.sessionOpen);
  EXPECT_EQ(SimulatorSessionUser(), left.user);
  EXPECT_EQ(TakeCalls(), calls);

  const CUserRecord* user = TheAgent.CurrentUser();
  EXPECT_EQ(user != nullptr ? user->Name() : "", left.user);
  EXPECT_EQ(TheAgent.WakeupPeriod() != 0, user != nullptr);
  EXPECT_EQ(TheAgent.IsConnected() != 0, user != nullptr);
  EXPECT_EQ(TheAgent.ScannerCount(), left.scanners);
  const CScanner* scanner = TheAgent.ScannerAt(0);
  EXPECT_EQ(scanner != nullptr && scanner->TopBook() != nullptr, left.hasTopBook);
  if (box != nullptr) {
    EXPECT_EQ(box, scanner);
    EXPECT_EQ(GetTopLevelAbook(box), box->TopBook());
  }
}

INSTANTIATE_TEST_SUITE_P(Outcomes, SessionOutcome, testing::ValuesIn(Outcomes()),
                         CaseName<Outcome>);

}  // namespace
}  // namespace quillkit
