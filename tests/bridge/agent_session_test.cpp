// The agent's list of scanners, its server library, its sessions and their keep-alive.

#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/user_record.h"
#include "bridge/identity.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/platform/pumping.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using Calls = std::vector<std::string>;

constexpr std::uint32_t kAddress = 0x0100007F;

const std::string kLoginCall = "IMSPLogin 127.0.0.1 ADMINISTRATOR ***";
const std::string kProbeCall = "IMSPLogin 127.0.0.1 TOOLKIT ***";
const std::string kGuestCall = "IMSPLogin 127.0.0.1 GUEST \"\"";
const std::string kPeriodCall = "IMSPIOCtl 6 0";
const std::string kReadCall = "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR";
const std::string kEnrolCall = "IMSPCreateEntry 4:USERSAB Ann";
const std::string kLogoutCall = "IMSPLogout";

const std::string kIdentity = "Quillbox 40 - 3.1 - K7";
const std::string kNamed = " the box/Quillbox 40 /3.1 /16777343";
const std::string kUnnamed = kNamed.substr(0, 1) + kNamed.substr(8);

class AgentSession : public ApplianceTest {
 protected:
  AgentSession() {
    const std::uint32_t word = 0;
    user.SetFrom(nullptr, kAdministrator, kPassword, "3rd", "4th", &word, &word);
    target.Init("the box", &kAddress, "", "", &TheAgent);
    account.SetName("Ann");
    record.address = kAddress;
    record.user.Assign(kAdministrator);
    record.password.Assign(kPassword);
    SimulatorClearJournal();
  }

  Status Login() { return TheAgent.Login(&user, &target, text, 0); }

  // What an attempt left: "session", each scanner, "user" and "account".
  static std::string Left() {
    std::string left = TheAgent.IsConnected() != 0 ? "session" : "";
    for (int i = 0; i < TheAgent.ScannerCount(); ++i) {
      const CScanner& each = *TheAgent.ScannerAt(i);
      left += ' ' + each.Name() + '/' + each.Model() + '/' + each.Version() + '/' +
              std::to_string(each.Address());
    }
    if (TheAgent.CurrentUser() != nullptr) left += " user";
    CUserEntry found;
    if (SimulatorFindEntry(BookKind::kUsers, "", nullptr, "Ann", &found) == 1) left += " account";
    return left;
  }

  static void Add(const std::string& name, std::uint32_t address) {
    auto* scanner = new CScanner;
    scanner->Init(name, &address, "", "", &TheAgent);
    EXPECT_EQ(TheAgent.AddScanner(scanner), 1);
  }

  CUserRecord user;
  CScanner target;
  LoginRecord record;
  CUserEntry account;
  std::string text;
};

// --- The list of scanners ---

constexpr std::uint32_t kTwo = 2;

TEST_F(AgentSession, HoldsOneScannerPerAddressAndAddsAtTheEnd) {
  Add("one", 1);
  Add("two", kTwo);
  Add("uno", 1);
  EXPECT_EQ(Left(), " two///2 uno///1");
  EXPECT_EQ(TheAgent.AddScanner(TheAgent.FindScanner(&kTwo)), 1);
  EXPECT_EQ(Left(), " uno///1 two///2") << "adding a scanner of the list moves it to the end";
  EXPECT_EQ(TheAgent.AddScanner(nullptr), 0);
  for (const int index : {-1, 2}) EXPECT_EQ(TheAgent.ScannerAt(index), nullptr) << index;
  EXPECT_EQ(TheAgent.RemoveScanner(&kTwo), 1);
  EXPECT_EQ(TheAgent.RemoveScanner(&kTwo), 0);
  EXPECT_EQ(TheAgent.FindScanner(&kTwo), nullptr);
  const std::string bytes = Stored(TheAgent);
  Add("two", kTwo);
  Load(TheAgent, bytes);
  EXPECT_EQ(Left(), " uno///1") << "an archive replaces the list";
}

TEST_F(AgentSession, IterationContinuesAfterARemovedScanner) {
  EXPECT_EQ(TheAgent.FirstScanner(), nullptr);
  Add("one", 1);
  EXPECT_EQ(TheAgent.NextScanner(), nullptr) << "only FirstScanner begins an iteration";
  Add("two", kTwo);
  Add("three", 3);
  EXPECT_EQ(TheAgent.FirstScanner()->Name(), "one");
  TheAgent.RemoveScanner(&kTwo);
  EXPECT_EQ(TheAgent.NextScanner()->Name(), "three");
  EXPECT_EQ(TheAgent.NextScanner(), nullptr);
  TheAgent.FirstScanner();
  TheAgent.DeleteScanners();
  EXPECT_EQ(TheAgent.NextScanner(), nullptr);
}

// --- The server library ---

TEST_F(AgentSession, ShutdownUnloadsTheServerLibraryEvenIfTerminateFails) {
  Login();
  SimulatorFail("IMSPTerminate", 1, kFault);
  TheAgent.Shutdown();
  EXPECT_EQ(TheAgent.LastError(), kFault);
  EXPECT_EQ(TheAgent.ServerLibrary(), nullptr);
  EXPECT_EQ(Left(), "session") << "the session on the server remains open";
  EXPECT_EQ(TheAgent.WakeupTimer(), 0U);
  EXPECT_NE(TheAgent.WakeupPeriod(), 0U);
  SimulatorFail("IMSPInit", 1, kFault);
  EXPECT_EQ(TheAgent.LoadServerLibrary(), kFault);
  EXPECT_EQ(TheAgent.LastError(), kFault);
}

// --- Login ---

TEST_F(AgentSession, AFailedCallEndsALoginWithoutUndoingEarlierSteps) {
  struct Outcome {
    Status status;  // which is the last error, too
    std::size_t calls;
    std::string text;  // the argument that receives the identity or its third field
    std::string left;
  };
  const struct {
    const char* name;
    Calls calls;
    std::function<Status()> run;
    std::vector<Outcome> outcomes;  // of a failure of call 1, of call 2, ...; the last: of none
  } attempts[] = {
      {"Login",
       {kLoginCall, kPeriodCall, kReadCall},
       [&] { return Login(); },
       {{kFault, 1, "", ""},
        {kFault, 2, "K7", "session"},
        {kFault, 3, "K7", "session" + kNamed},
        {kNoError, 3, "K7", "session" + kNamed + " user"}}},
      {"Relogin",
       {kLoginCall, kPeriodCall, kReadCall},
       [&] { return TheAgent.Relogin(&user, &target, text, 0); },
       {{kFault, 1, "before", ""},
        {kFault, 2, "K7", "session"},
        {kFault, 3, "K7", "session"},
        {kNoError, 3, "K7", "session user"}}},
      {"LoginByRecord",
       {kLoginCall, kPeriodCall},
       [&] { return TheAgent.LoginByRecord(&record, text); },
       {{kFault, 1, "", ""},
        {kFault, 2, kIdentity, "session"},
        {kNoError, 2, kIdentity, "session" + kUnnamed}}},
      {"EnrolUser",
       {kGuestCall, kEnrolCall, kLogoutCall},
       [&] { return TheAgent.EnrolUser(kAddress, &account); },
       {{kFault, 1, "before", ""},
        {kFault, 3, "before", ""},
        {kNoError, 3, "before", " account"},
        {kNoError, 3, "before", " account"}}},
      {"ProbeIdentity",
       {kProbeCall, kPeriodCall, kLogoutCall},
       [&] { return TheAgent.ProbeIdentity(&target, text); },
       {{kFault, 1, "before", ""},
        {kFault, 2, "before", ""},
        {kFault, 3, "K7", ""},
        {kNoError, 3, "K7", ""}}},
  };
  for (const auto& [name, calls, run, outcomes] : attempts) {
    for (std::size_t failing = 0; failing < outcomes.size(); ++failing) {
      SCOPED_TRACE(testing::Message()
                   << name << ", call " << failing + 1 << " fails, if there is one");
      const Outcome& expected = outcomes[failing];
      TheAgent.Logout(1);
      SimulatorReset();
      SimulatorRecordCalls(1);
      SimulatorFail(nullptr, static_cast<std::int32_t>(failing) + 1, kFault);
      TheAgent.SetError(kEarlier);
      text = "before";
      EXPECT_EQ(run(), expected.status);
      EXPECT_EQ(TheAgent.LastError(), expected.status);
      const auto end = calls.begin() + static_cast<std::ptrdiff_t>(expected.calls);
      EXPECT_EQ(TakeCalls(), Calls(calls.begin(), end));
      EXPECT_EQ(text, expected.text);
      EXPECT_EQ(Left(), expected.left);
    }
  }
  EXPECT_NE(TheAgent.WakeupPeriod(), 0U) << "the keep-alive of a probe keeps its period";
}

TEST_F(AgentSession, ASecondLoginAcceptsTheUserAndTheScannerThatItReplaces) {
  Login();
  TheAgent.AddScanner(new CScanner);
  TakeCalls();
  EXPECT_EQ(TheAgent.Login(TheAgent.CurrentUser(), TheAgent.ScannerAt(0), text, 0), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre(kLoginCall, kReadCall))
      << "the period is not read again because the timer is running";
  EXPECT_EQ(Left(), "session ///0" + kNamed + " user");
  EXPECT_TRUE(TheAgent.CurrentUser()->IsAdministrator());
}

TEST_F(AgentSession, TruncatesEachFieldOfAnIdentityWithoutANul) {
  const std::string identity =
      std::string(100, 'm') + "-" + std::string(100, 'v') + "-" + std::string(200, 't');
  SimulatorSetIdentity(identity.data(), static_cast<std::uint32_t>(identity.size()));
  EXPECT_EQ(Login(), kNoError);
  EXPECT_EQ(TheAgent.ScannerAt(0)->Model(), std::string(63, 'm'));
  EXPECT_EQ(TheAgent.ScannerAt(0)->Version(), std::string(63, 'v'));
  EXPECT_EQ(text, std::string(256 - 202, 't')) << "the buffer has 256 bytes";
}

TEST(ParseIdentity, EndsAtTheFirstMissingField) {
  const std::map<std::string, std::string> identities = {
      {"Box -\t\n 3.1  -  K7 more", "Box |3.1  |K7"},  // spaces before a dash belong to the field
      {" Box-3.1-K7-8", " Box|3.1|K7-8"},
      {"", "||"},
      {"Box -- K7", "Box ||"},
      {"Box - 3.1", "Box |3.1|"},
  };
  for (const auto& [sent, fields] : identities) {
    const Identity identity = ParseIdentity(sent);
    const std::string model(identity.model.View());
    EXPECT_EQ(model + '|' + identity.version.c_str() + '|' + identity.third.c_str(), fields)
        << sent;
  }
}

TEST_F(AgentSession, ModifiesAnAccountUnderItsNameAndTerminatesTheTextsThatItReads) {
  Login();
  TakeCalls();
  SimulatorSetDefects(kDefectScribble);
  SimulatorFail("IMSPModifyEntry", 1, kFault);
  EXPECT_EQ(TheAgent.ModifyUser(&user), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 4:USERSAB ADMINISTRATOR ADMINISTRATOR"));
  SimulatorSetDefects(kDefectUnterminated);
  EXPECT_EQ(TheAgent.ReadUser(&user), kNoError);
  EXPECT_TRUE(user.IsValid());
}

// --- The keep-alive ---

TEST_F(AgentSession, EachStartReplacesTheTimerIfThePeriodIsOneMillisecond) {
  SimulatorSetWakeupPeriod(1);
  Login();
  EXPECT_EQ(TheAgent.WakeupPeriod(), 0U);
  const TimerId first = TheAgent.WakeupTimer();
  TakeCalls();
  EXPECT_EQ(TheAgent.StartWakeup(), kNoError);
  EXPECT_NE(TheAgent.WakeupTimer(), first);
  EXPECT_THAT(TakeCalls(), ElementsAre(kPeriodCall));
  TheAgent.StopWakeup();
  Sleep(std::chrono::milliseconds(50));
  Pump();
  EXPECT_THAT(TakeCalls(), IsEmpty()) << "the second start stopped the first timer";
}

TEST_F(AgentSession, AStoppedTimerCountsAsRunningUntilALogout) {
  Login();
  TheAgent.StopWakeup();
  TakeCalls();
  EXPECT_EQ(TheAgent.StartWakeup(), kNoError);
  EXPECT_TRUE(TheAgent.EnsureWakeup());
  EXPECT_EQ(TheAgent.WakeupTimer(), 0U);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  TheAgent.Logout(0);
  EXPECT_FALSE(TheAgent.EnsureWakeup()) << "without a session the server has no period";
  Login();
  SimulatorFail("IMSPLogout", 1, kFault);
  EXPECT_EQ(TheAgent.Logout(0), kFault);
  TakeCalls();
  EXPECT_TRUE(TheAgent.EnsureWakeup()) << "the logout keeps the id of the stopped timer";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace quillkit
