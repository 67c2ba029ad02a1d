// The agent's life and its ways in and out of a session: calls, last errors, and what stays.

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kEarlier = 11;
constexpr Status kFault = 6;
constexpr std::uint32_t kAddress = 0x0100007F;

const std::string kLoginCall = "IMSPLogin 127.0.0.1 ADMINISTRATOR ***";
const std::string kProbeCall = "IMSPLogin 127.0.0.1 TOOLKIT ***";
const std::string kGuestCall = "IMSPLogin 127.0.0.1 GUEST \"\"";
const std::string kPeriodCall = "IMSPIOCtl 6 0";
const std::string kReadCall = "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR";
const std::string kLogoutCall = "IMSPLogout";

class AgentSession : public ApplianceTest {
 protected:
  AgentSession() {
    const std::uint32_t flags = 0;
    const std::uint32_t nibbles = 1;
    user.SetFrom(nullptr, kAdministrator, kPassword, "3rd", "4th", &flags, &nibbles);
    target.Init("the box", &kAddress, "", "", &TheAgent);
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  Status Login() { return TheAgent.Login(&user, &target, third, 0); }

  CUserRecord user;
  CScanner target;
  std::string third = "before";
};

// --- The server library ---

TEST_F(AgentSession, ShutdownUndoesWhatIsThereAndNoMore) {
  ASSERT_EQ(Login(), kNoError);
  TakeCalls();
  TheAgent.Shutdown();
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPTerminate"));
  EXPECT_EQ(TheAgent.CurrentUser(), nullptr);
  EXPECT_EQ(TheAgent.ScannerCount(), 0);
  EXPECT_EQ(TheAgent.WakeupTimer(), 0U);
  EXPECT_EQ(TheAgent.ServerLibrary(), nullptr);
  EXPECT_EQ(TheAgent.IsConnected(), 1) << "nothing was sent that ends the session";
  EXPECT_NE(TheAgent.WakeupPeriod(), 0U);
  TheAgent.Shutdown();
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(AgentSession, LoadingGivesWhatTheLibraryAnswers) {
  SimulatorFail("IMSPTerminate", 1, kFault);
  TheAgent.Shutdown();
  EXPECT_EQ(TheAgent.LastError(), kFault);
  EXPECT_EQ(TheAgent.ServerLibrary(), nullptr);
  SimulatorFail("IMSPInit", 1, kFault);
  EXPECT_EQ(TheAgent.LoadServerLibrary(), kFault);
  EXPECT_EQ(TheAgent.LastError(), kFault);
  TheAgent.Shutdown();
  EXPECT_EQ(TheAgent.LoadServerLibrary(), kNoError);
  EXPECT_EQ(TheAgent.LastError(), kNoError);
}

// --- Login ---

TEST_F(AgentSession, ASecondLoginOfTheSameApplianceTakesThePlaceOfTheFirst) {
  Login();
  auto* const other = new CScanner;
  other->SetName("other");
  TheAgent.AddScanner(other);
  TakeCalls();

  // With the record and the scanner that go in its course.
  EXPECT_EQ(TheAgent.Login(TheAgent.CurrentUser(), TheAgent.ScannerAt(0), third, 0), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre(kLoginCall, kReadCall)) << "the timer runs already";
  ASSERT_EQ(TheAgent.ScannerCount(), 2);
  EXPECT_EQ(TheAgent.ScannerAt(0)->Name(), "other");
  EXPECT_EQ(TheAgent.ScannerAt(1)->Name(), "the box");
  EXPECT_TRUE(TheAgent.CurrentUser()->IsAdministrator());

  SimulatorFail("IMSPLogin", 0, kFault);
  for (const auto login : {&CAgent::Login, &CAgent::Relogin}) {
    EXPECT_EQ((TheAgent.*login)(&user, &target, third, 0), kFault);
    EXPECT_NE(TheAgent.CurrentUser(), nullptr) << "one that is refused takes nothing away";
    EXPECT_EQ(TheAgent.ScannerCount(), 2);
  }
}

// The journal of a login up to each of its calls, and what is left where that one fails.
TEST_F(AgentSession, AFailureLeavesWhatWasDoneBefore) {
  const std::vector<std::string> calls = {kLoginCall, kPeriodCall, kReadCall};
  for (const auto login : {&CAgent::Login, &CAgent::Relogin}) {
    const bool isLogin = login == &CAgent::Login;
    for (int failing = 1; failing <= 4; ++failing) {  // the last one: none
      SCOPED_TRACE(testing::Message() << isLogin << ", call " << failing);
      TheAgent.Logout(1);
      TakeCalls();
      third = "before";
      SimulatorClearFaults();
      SimulatorFail(nullptr, failing, kFault);
      EXPECT_EQ((TheAgent.*login)(&user, &target, third, 0), failing < 4 ? kFault : kNoError);
      EXPECT_EQ(TheAgent.LastError(), failing < 4 ? kFault : kNoError);
      EXPECT_EQ(TheAgent.IsConnected(), failing > 1 ? 1 : 0);
      EXPECT_EQ(TheAgent.ScannerCount(), isLogin && failing > 2 ? 1 : 0);
      EXPECT_EQ(TheAgent.CurrentUser() != nullptr, failing == 4);
      const std::string refused = isLogin ? "" : "before";
      EXPECT_EQ(third, failing > 1 ? "K7" : refused);
      EXPECT_EQ(TakeCalls(), std::vector(calls.begin(), calls.begin() + std::min(failing, 3)));
    }
  }
}

TEST_F(AgentSession, LoginByRecordMakesAScannerWithoutANameAndNoUser) {
  LoginRecord login;
  login.address = kAddress;
  login.user.Assign(kAdministrator);
  login.password.Assign(kPassword);
  std::string identity = "before";
  SimulatorFail("IMSPLogin", 1, kFault);
  EXPECT_EQ(TheAgent.LoginByRecord(&login, identity), kFault);
  EXPECT_EQ(identity, "");
  EXPECT_EQ(TheAgent.ScannerCount(), 0);
  TakeCalls();
  EXPECT_EQ(TheAgent.LoginByRecord(&login, identity), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre(kLoginCall, kPeriodCall));
  EXPECT_EQ(identity, "Quillbox 40 - 3.1 - K7");
  EXPECT_EQ(TheAgent.IsConnected(), 1);
  EXPECT_EQ(TheAgent.CurrentUser(), nullptr);
  ASSERT_EQ(TheAgent.ScannerCount(), 1);
  EXPECT_EQ(TheAgent.ScannerAt(0)->Name(), "");
  EXPECT_EQ(TheAgent.ScannerAt(0)->Model(), "Quillbox 40 ");
  EXPECT_EQ(TheAgent.ScannerAt(0)->Address(), kAddress);
}

// The buffer of a login has 256 bytes, and nothing in a full one ends the text.
TEST_F(AgentSession, AnIdentityThatFillsItsBufferIsCutAtEachField) {
  const std::string identity =
      std::string(100, 'm') + "-" + std::string(100, 'v') + "-" + std::string(200, 't');
  SimulatorSetIdentity(identity.data(), static_cast<std::uint32_t>(identity.size()));
  EXPECT_EQ(Login(), kNoError);
  EXPECT_EQ(TheAgent.ScannerAt(0)->Model(), std::string(63, 'm'));
  EXPECT_EQ(TheAgent.ScannerAt(0)->Version(), std::string(63, 'v'));
  EXPECT_EQ(third, std::string(54, 't'));
}

// --- Sessions of their own ---

TEST_F(AgentSession, ProbeIdentityEndsAtTheFirstFailureAndLeavesItsTimerBehind) {
  SimulatorFail("IMSPLogin", 1, kFault);
  EXPECT_EQ(TheAgent.ProbeIdentity(&target, third), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre(kProbeCall));
  SimulatorFail("IMSPIOCtl", 1, kFault);
  EXPECT_EQ(TheAgent.ProbeIdentity(&target, third), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre(kProbeCall, kPeriodCall)) << "the session stays open";
  EXPECT_EQ(third, "before");

  EXPECT_EQ(TheAgent.ProbeIdentity(&target, third), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre(kProbeCall, kPeriodCall, kLogoutCall));
  EXPECT_EQ(third, "K7");
  EXPECT_NE(TheAgent.WakeupPeriod(), 0U);
  EXPECT_EQ(TheAgent.IsConnected(), 0);
  EXPECT_EQ(TheAgent.ScannerCount(), 0);
  SimulatorFail("IMSPLogout", 1, kFault);
  EXPECT_EQ(TheAgent.ProbeIdentity(&target, third), kFault);
  EXPECT_EQ(TheAgent.LastError(), kFault) << "this logout is recorded";
}

TEST_F(AgentSession, EnrolUserAddsAnAccountAsAGuest) {
  CUserEntry entry;
  entry.SetName("Ann");
  EXPECT_EQ(TheAgent.EnrolUser(kAddress, &entry), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre(kGuestCall, "IMSPCreateEntry 4:USERSAB Ann", kLogoutCall));
  EXPECT_EQ(SimulatorFindEntry(BookKind::kUsers, "", nullptr, "Ann", &entry), 1);
  EXPECT_EQ(TheAgent.IsConnected(), 0);

  EXPECT_EQ(TheAgent.EnrolUser(kAddress, &entry), 14);
  EXPECT_EQ(TheAgent.LastError(), 14) << "that of the create, not of the logout";
  EXPECT_EQ(TakeCalls().size(), 3U);

  SimulatorFail("IMSPLogin", 1, kFault);
  EXPECT_EQ(TheAgent.EnrolUser(kAddress, &entry), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre(kGuestCall));
}

TEST_F(AgentSession, ReadsAndWritesTheAccountOfTheRecord) {
  Login();
  SimulatorFail("IMSPModifyEntry", 1, kFault);
  EXPECT_EQ(TheAgent.ModifyUser(&user), kFault);
  SimulatorSetLies(kLieUnterminated);
  EXPECT_EQ(TheAgent.ReadUser(&user), kNoError);
  EXPECT_TRUE(user.IsValid());
}

// --- Logout ---

TEST_F(AgentSession, LogoutKeepsTheLastErrorAndTheScannersItIsNotToldToDelete) {
  Login();
  TheAgent.SetError(kEarlier);
  TakeCalls();
  SimulatorFail("IMSPLogout", 1, kFault);
  EXPECT_EQ(TheAgent.Logout(0), kFault);
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_EQ(TheAgent.CurrentUser(), nullptr);
  EXPECT_EQ(TheAgent.IsConnected(), 0);
  EXPECT_EQ(TheAgent.WakeupPeriod(), 0U);
  EXPECT_NE(TheAgent.WakeupTimer(), 0U) << "the identifier stays, of a timer that is gone";
  EXPECT_EQ(TheAgent.ScannerCount(), 1);

  EXPECT_EQ(TheAgent.Logout(1), kNoError);
  EXPECT_EQ(TheAgent.ScannerCount(), 0);
  EXPECT_THAT(TakeCalls(), ElementsAre(kLogoutCall, kLogoutCall));
}

}  // namespace
}  // namespace quillkit
