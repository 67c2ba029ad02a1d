// The session: who is let in, what may be done without one, and when it ends.

#include "simulator/status_codes.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

using SessionTest = ServerTest;

TEST_F(SessionTest, RefusedLoginLeavesTheOpenSession) {
  ASSERT_EQ(LogIn("TOOLKIT", "KELP"), kNoError);
  EXPECT_EQ(LogIn("ADMINISTRATOR", "Quill"), kWrongUser);
  EXPECT_EQ(LogIn("administrator", "quill"), kWrongUser);
  EXPECT_STREQ(SimulatorSessionUser(), "TOOLKIT");
  EXPECT_EQ(LogIn("GUEST", ""), kNoError);
  EXPECT_STREQ(SimulatorSessionUser(), "GUEST");
}

TEST_F(SessionTest, IdentityIsCutAtTheCallersBuffer) {
  SimulatorSetIdentity("ABCDEF", 6);
  LoginRecord login = MakeLogin("TOOLKIT", "KELP");
  char buffer[10] = {'#', '#', '#', '#', '#', '#', '#', '#', '#', '#'};
  EXPECT_EQ(IMSPLogin(&login, buffer, 6), kNoError);
  EXPECT_EQ(std::string(buffer, 10), "ABCDEF####");
  EXPECT_EQ(IMSPLogin(&login, buffer, 10), kNoError);
  EXPECT_EQ(std::string(buffer, 10), std::string("ABCDEF\0###", 10));
  EXPECT_EQ(IMSPLogin(&login, nullptr, 0), kNoError);
}

TEST_F(SessionTest, OtherCallsNeedASession) {
  ABIdent lists(BookKind::kPublicList, "");
  IOCtlRecord control;
  std::uint32_t count = 0;
  const auto callAll = [&] {
    return std::vector<Status>{IMSPLogout(), IMSPAbort(), IMSPIOCtl(&control),
                               IMSPListAB(&lists, nullptr, nullptr, &count, 1),
                               IMSPImport(0, 0, 0)};
  };
  EXPECT_THAT(callAll(), testing::Each(kNotLoggedIn));
  ASSERT_EQ(IMSPTerminate(), kNoError);
  EXPECT_THAT(callAll(), testing::Each(kNotInitialised));
  EXPECT_EQ(LogIn("ADMINISTRATOR", "quill"), kNotInitialised);
  EXPECT_EQ(IMSPTerminate(), kNotInitialised);
}

TEST_F(SessionTest, TerminateEndsTheSessionAndKeepsTheBooks) {
  LogInAsAdministrator();
  PutEmail("Ann");
  IMSPTerminate();
  IMSPInit();
  EXPECT_EQ(IMSPWakeup(), kNotLoggedIn);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), 1);
}

TEST_F(SessionTest, SilentSessionIsDropped) {
  SimulatorSetWakeupPeriod(5000);
  LogInAsAdministrator();
  SimulatorAdvanceClock(4000);
  EXPECT_EQ(IMSPWakeup(), kNoError);
  SimulatorAdvanceClock(4000);
  SimulatorFail("IMSPWakeup", 1, kBadCommand);
  EXPECT_EQ(IMSPWakeup(), kBadCommand) << "a faulted call is no sign of life";
  SimulatorAdvanceClock(1000);
  EXPECT_STREQ(SimulatorSessionUser(), "");
  EXPECT_EQ(IMSPWakeup(), kNotLoggedIn);
}

}  // namespace
}  // namespace quillkit
