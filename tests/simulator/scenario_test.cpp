// Scenarios: the books, limits, settings and faults of a file.

#include "tests/simulator/server_fixture.h"
#include "tests/support/program_run.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

using testing::HasSubstr;

class ScenarioTest : public ServerTest {
 protected:
  // Returns the description of an error, or "".
  std::string Load(const std::string& lines) const {
    const std::string path = folder.Write("scenario", "quillbox scenario 1\n" + lines);
    const char* const fault = SimulatorLoadScenario(path.c_str());
    return fault != nullptr ? fault : "";
  }

  // The statuses of calls that are separated by commas.
  static std::string StatusesOf(const std::string& calls) {
    std::string statuses;
    for (std::size_t begin = 0; begin < calls.size();) {
      const std::size_t end = std::min(calls.find(',', begin), calls.size());
      statuses += std::to_string(Call(calls.substr(begin, end - begin))) + ' ';
      begin = end + 1;
    }
    return statuses;
  }

  const ScratchFolder folder;
};

TEST_F(ScenarioTest, ReportsTheLineAndTheReasonOfAnError) {
  const struct {
    const char *line, *fault;
  } cases[] = {
      {"bgin empty", "line 2: unknown directive \"bgin\""},
      {"\n# comment\nbegin empty twice", "line 4: unexpected \"twice\""},
      {"begin empty\nbegin office", "line 3: a second line \"begin\""},
      {"begin missing.dump", "missing.dump: cannot read"},
      {"account \"Eve", "line 2: a name is not a valid text in quotes"},
      {"account \"\"", "the account has no name"},
      {"account Eve 0123456789012345", "is too long"},
      {"limit key 3", "unknown limit \"key\""},
      {"limit keys 0", "neither a number above 0 nor"},
      {"keep-alive soon", "\"soon\" is not a time in milliseconds from 0 to 86400000"},
      {"latency IMSPReed 5", "unknown entry point \"IMSPReed\""},
      {"clock simulated start 2026-02-30", "is not a date"},
      {"clock unreal", "neither real nor simulated"},
      {"replies wrong", "unknown kind of wrong replies"},
      {"journal calls xml", "unknown form \"xml\""},
      {"unfired maybe", "either allowed or refused"},
      {"fault IMSPCreateEntri status 8", "unknown entry point"},
      {"fault * book 5 status 8", "is not a book"},
      {"fault * nth 2 from 2 status 8", "only one of nth, first and from"},
      {"fault * nth 2 nth 3 status 8", "two parts \"nth\""},
      {"fault * nth 0 status 8", "is not a number of calls from 1"},
      {"fault * probability 1.5 status 8", "is not a probability"},
      {"fault * status 32", "is not a status from 0 to 31"},
      {"fault * reply wrong", "unknown kind of reply"},
      {"fault * session found", "can only be lost"},
      {"fault * nth 2", "needs a status, reply, delay or session"},
      {"fault * status", "a status is missing"},
      {"fault * soon status 8", "unknown part \"soon\""},
      {"fault * status 0 reply short", "a call with a status has no such reply"},
      {"fault * reply lost status 8", "a call with a status has no such reply"},
      {"fault * delay 0", "is not a time in milliseconds from 1"},
      {"fault * name Bob\" status 8", "has a quote inside"},
      {"clock simulated step 1 step 2", "two parts \"step\""},
      {"limit keys 3\nlimit email 4\nlimit keys 5", "line 4: a second line \"limit keys\""},
      {"latency 3\nlatency IMSPAbort 4\nlatency * 5", "line 4: a second line \"latency *\""},
  };
  for (const auto& each : cases) EXPECT_THAT(Load(each.line), HasSubstr(each.fault)) << each.line;
  EXPECT_THAT(SimulatorLoadScenario("missing"), HasSubstr("cannot read"));
  const std::string other = folder.Write("other", "quillbox state 2\n");
  EXPECT_THAT(SimulatorLoadScenario(other.c_str()), HasSubstr("line 1: the first line must be"));
}

TEST_F(ScenarioTest, BeginsWithTheBooksTheAccountsAndTheSettings) {
  EXPECT_EQ(Load("account \"Eve \\x41\" apple\nlimit keys 1\nlimit email none\nkeep-alive 5000\n"
                 "timeout 700\nclock simulated step 3000\n"),
            "");
  EXPECT_EQ(Size(BookKind::kTop), 3);
  EXPECT_EQ(SimulatorTimeout(), 700U);
  EXPECT_EQ(StatusesOf("Login TOOLKIT KELP,CreateAB 512:New,Wakeup"), "0 24 0 ");
  SimulatorAdvanceClock(2000);
  EXPECT_EQ(Call("Wakeup"), kNotLoggedIn) << "2 seconds, and 3 for the call";
  folder.Write("dump", "quillbox state 2\nbook 64 \"Team\" \"\"\nend\n");
  EXPECT_EQ(Load("begin dump\n"), "");
  EXPECT_EQ(Size(BookKind::kPublicList, "Team"), 0);
  EXPECT_EQ(Size(BookKind::kTop), 0);
  SimulatorReset();
  folder.Write("dump", "quillbox state 2\nbook 64 \"Lost\" \"\"\nend\nclear\nend\n");
  EXPECT_THAT(Load("begin dump\n"), HasSubstr("nothing to clear"));
  EXPECT_EQ(Size(BookKind::kPublicList, "Lost"), -1) << "no half of the books";
}

TEST_F(ScenarioTest, MakesTheCallsFailThatAFaultDescribes) {
  const std::string wake = "Wakeup,Wakeup,Wakeup,Wakeup";
  const struct {
    std::string lines, calls, statuses;
  } cases[] = {
      {"fault IMSPWakeup nth 2 status 8", wake, "0 8 0 0 "},
      {"fault IMSPWakeup first 2 status 8", wake, "8 8 0 0 "},
      {"fault * from 3 status 8", wake, "0 8 8 8 "},  // the login is the first call
      {"fault IMSPWakeup nth 1 status 8\nfault IMSPWakeup from 1 status 9", wake, "8 9 9 9 "},
      {"fault * book 64 status 8", "SizeofAB 1:,SizeofAB 64:Team", "0 8 "},
      {"fault * book 64:Team status 8", "CreateAB 64:Tea,CreateAB 64:Team", "0 8 "},
      {"fault * name Bob status 8", "CreateEntry 1: Ann,CreateEntry 1: Bob,DeleteEntry 1: Bob",
       "0 8 8 "},
      {"fault IMSPWakeup account GUEST status 8", "Wakeup,Login GUEST '',Wakeup", "0 0 8 "},
      {"fault IMSPLogin account GUEST status 8", "Login GUEST '',Login TOOLKIT KELP", "8 0 "},
      {"fault IMSPWakeup account TOOLKIT status 8", "Wakeup,ChangeIdentity TOOLKIT,Wakeup",
       "0 0 8 "},
      {"unfired allowed\nkeep-alive 1\nfault IMSPWakeup account ADMINISTRATOR status 8", "Wakeup",
       "10 "},  // the session is dropped
      {"fault IMSPCreateEntry nth 1 reply lost", "CreateEntry 1: Ann,CreateEntry 1: Ann", "19 14 "},
      {"fault IMSPWakeup nth 2 session lost", wake, "0 10 10 10 "},
      {"fault * after 3000 session lost\nclock simulated step 1000", wake, "0 10 10 10 "},
      {"fault IMSPWakeup nth 2 delay 30001", wake, "0 19 0 0 "},
      {"fault IMSPWakeup nth 2 delay 200\nkeep-alive 100", wake, "0 10 10 10 "},
      {"latency IMSPAbort 30001", "Wakeup,Abort", "0 19 "},
      {"latency 30001\nlatency IMSPLogin 0", "Wakeup", "19 "},
      {"seed 5\nfault IMSPWakeup probability 0.5 status 8", wake + ',' + wake, "0 8 0 8 8 0 0 0 "},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.lines);
    ASSERT_EQ(Load("begin empty\n" + each.lines + '\n'), "");
    LogInAsAdministrator();
    EXPECT_EQ(StatusesOf(each.calls), each.statuses);
    EXPECT_EQ(SimulatorUnfiredFault(0), nullptr);
  }
}

TEST_F(ScenarioTest, SendsAWrongReplyInOneCall) {
  ASSERT_EQ(Load("fault IMSPReadAB nth 2 reply short\nfault IMSPReadAB nth 3 reply oversized\n"),
            "");
  LogInAsAdministrator();
  std::vector<CEmailEntry> records(10);
  for (const std::uint32_t delivered : {10U, 9U, 1010U, 10U}) {
    std::uint32_t count = 10;
    EXPECT_EQ(IMSPReadAB(&email, nullptr, records.data(), &count, 1), kMoreData);
    EXPECT_EQ(count, delivered);
  }
}

TEST_F(ScenarioTest, NamesTheFaultsThatHaveNotFired) {
  ASSERT_EQ(Load("fault IMSPWakeup nth 2 status 8\nfault IMSPWakeup nth 2 status 9\n"), "");
  LogInAsAdministrator();
  Call("Wakeup");
  SimulatorFail("IMSPAbort", 0, 1);
  EXPECT_STREQ(SimulatorUnfiredFault(1), "line 3: fault IMSPWakeup nth 2 status 9");
  EXPECT_STREQ(SimulatorUnfiredFault(2), "IMSPAbort:0=1");
  Expect(8, {"Wakeup"});
  Expect(1, {"Abort"});
  EXPECT_STREQ(SimulatorUnfiredFault(0), "line 3: fault IMSPWakeup nth 2 status 9")
      << "the earlier fault applied to the same call";
  EXPECT_EQ(SimulatorUnfiredFault(1), nullptr);
  ASSERT_EQ(Load("unfired allowed\nfault IMSPWakeup nth 2 status 8\n"), "");
  EXPECT_EQ(SimulatorUnfiredFault(0), nullptr);
  SimulatorReset();
}

TEST(PanelExample, PassesItsTests) {
  EXPECT_THAT(OutputOf(ProgramFolder(), "panel_test"), HasSubstr("[  PASSED  ] 2 tests.\nexit 0"));
}

}  // namespace
}  // namespace quillkit
