// The outcomes of LogToQuillbox: its result, the last error, whether a session is open here and on
// the server, the calls, and the objects that remain.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"

namespace quillkit {
namespace {

struct Attempt {
  std::string host = kHost;
  std::string user = kAdministrator;
  std::string password = kPassword;
  std::string third = "";
  std::int32_t loadTopBook = 0;
};

enum Before { kFresh, kInSession };  // the administrator is logged in already

struct Left {
  Status lastError;
  std::int32_t sessionOpen;
  std::string user;  // who is logged in, here and on the server; empty without a session
  std::int32_t scanners;
  bool hasTopBook;
};

struct Outcome {
  const char* name;
  Before before;
  Attempt attempt;
  Left left;
  std::vector<std::string> calls;
};

std::ostream& operator<<(std::ostream& out, const Outcome& each) {
  return out << each.name;
}

const std::string kLongestName(31, 'n');
const std::string kLongestPassword(15, 'p');
const std::string kLongestThird(255, 't');
const std::string kLogout = "IMSPLogout";

std::vector<Outcome> Outcomes() {
  const Attempt wrong = {.password = "wrong"};
  const Attempt password = {.password = kLongestPassword + 'p'};
  const Attempt third = {.third = kLongestThird + 't'};
  const Attempt name = {.user = kLongestName + 'n'};
  const Attempt longest = {kHost, kLongestName, kLongestPassword, kLongestThird};
  const Attempt host = {.host = std::string(70, 'x')};  // a label has at most 63 characters
  const Attempt zero = {.host = "0.0.0.0"};
  const Attempt toolkit = {.user = "TOOLKIT", .password = "KELP"};
  const Attempt ann = {.user = "Ann", .password = "", .loadTopBook = 1};

  const std::string admin = kAdministrator;
  const auto as = [](const std::string& user, const std::string& shownPassword) {
    return std::vector{"IMSPLogin 127.0.0.1 " + user + " " + shownPassword,
                       "IMSPReadEntryProperties 4:USERSAB " + user};
  };
  const std::vector<std::string> refused = {as(admin, "***").front(), kLogout};

  constexpr Status kEarlier = ApplianceTest::kEarlier;
  const Left nothing = {kEarlier, 0, "", 0, false};
  std::vector<Outcome> outcomes;
  const auto add = [&](const char* outcome, Before before, const Attempt& attempt, const Left& left,
                       const std::vector<std::string>& calls) {
    outcomes.push_back({outcome, before, attempt, left, calls});
  };
  add("PasswordTooLong", kFresh, password, nothing, {});
  add("ThirdTooLong", kFresh, third, nothing, {});
  add("NameTooLong", kInSession, name, {kEarlier, 1, admin, 1, true}, {});
  add("NoSuchHost", kInSession, host, {25, 0, admin, 1, true}, {});
  add("HostZero", kInSession, zero, {kEarlier, 0, admin, 1, true}, {});
  add("Refused", kFresh, wrong, {2, 0, "", 0, false}, refused);
  add("RefusedInSession", kInSession, wrong, {2, 0, "", 1, true}, refused);
  add("SuccessInSession", kInSession, {}, {0, 1, admin, 1, true}, as(admin, "***"));
  add("Toolkit", kInSession, toolkit, {0, 1, "TOOLKIT", 1, true}, as("TOOLKIT", "***"));
  add("OtherUser", kInSession, ann, {0, 1, "Ann", 1, false}, as("Ann", "\"\""));
  add("Longest", kInSession, longest, {0, 1, kLongestName, 1, false}, as(kLongestName, "***"));
  return outcomes;
}

class SessionOutcome : public ApplianceTest, public testing::WithParamInterface<Outcome> {
 protected:
  static void PutAccount(const std::string& name, const std::string& password) {
    CUserEntry account;
    account.SetName(name);
    account.SetPassword(password);
    SimulatorPutEntry(BookKind::kUsers, "", nullptr, &account);
  }
};

TEST_P(SessionOutcome, LoginLeavesThePredictedSession) {
  const auto& [name, before, attempt, left, calls] = GetParam();
  PutAccount("Ann", "");
  PutAccount(kLongestName, kLongestPassword);
  if (before == kInSession) LogIn();
  TheAgent.SetError(kEarlier);

  CScanner* box = LogToQuillbox(attempt.host, attempt.user, attempt.password, attempt.third,
                                attempt.loadTopBook);

  const bool isSuccess = !calls.empty() && calls.back() != kLogout;
  EXPECT_EQ(box != nullptr, isSuccess);
  EXPECT_EQ(GetLastToolkitError(), left.lastError);
  EXPECT_EQ(SessionOpen, left.sessionOpen);
  EXPECT_EQ(SimulatorSessionUser(), left.user);
  EXPECT_EQ(TakeCalls(), calls);

  const CUserRecord* user = TheAgent.CurrentUser();
  EXPECT_EQ(user != nullptr ? user->Name() : "", left.user);
  EXPECT_EQ(IsAdminConnected(box), left.user == kAdministrator ? 1 : 0);
  EXPECT_EQ(TheAgent.WakeupPeriod() != 0, user != nullptr);
  EXPECT_EQ(TheAgent.IsConnected() != 0, user != nullptr);
  EXPECT_EQ(TheAgent.ScannerCount(), left.scanners);
  const CScanner* scanner = TheAgent.ScannerAt(0);
  EXPECT_EQ(scanner != nullptr && scanner->TopBook() != nullptr, left.hasTopBook);
  if (!isSuccess) return;
  EXPECT_EQ(box, scanner);
  EXPECT_EQ(GetTopLevelAbook(box), box->TopBook());
  EXPECT_EQ(GetCurrentConnectedUser(box), user);
}

INSTANTIATE_TEST_SUITE_P(Outcomes, SessionOutcome, testing::ValuesIn(Outcomes()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillkit
