// When the agent asks for the period of its sign of life, and when it takes the timer to be
// running.

#include <gtest/gtest.h>

#include "bridge/the_agent.h"
#include "platform/thread_timer.h"
#include "simulator/simulator.h"
#include "tests/platform/pumping.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kPeriodCall = "IMSPIOCtl 6 0";

class AgentWakeup : public ApplianceTest {
 protected:
  AgentWakeup() {
    LogIn();
    TheAgent.Logout(0);  // a session that asks for its period
    LoginRecord login;
    login.user.Assign(kAdministrator);
    login.password.Assign(kPassword);
    char identity[256];
    TheAgent.IMSPLogin(&login, identity, sizeof identity);
    TakeCalls();
  }
};

TEST_F(AgentWakeup, APeriodOfOneStartsATimerEachTime) {
  SimulatorSetWakeupPeriod(1);
  EXPECT_EQ(TheAgent.StartWakeup(), kNoError);
  EXPECT_EQ(TheAgent.WakeupPeriod(), 0U);
  const TimerId first = TheAgent.WakeupTimer();
  EXPECT_EQ(TheAgent.StartWakeup(), kNoError);
  EXPECT_NE(TheAgent.WakeupTimer(), first);
  EXPECT_THAT(TakeCalls(), ElementsAre(kPeriodCall, kPeriodCall));
  TheAgent.StopWakeup();
  Sleep(std::chrono::milliseconds(50));
  Pump();
  EXPECT_THAT(TakeCalls(), IsEmpty()) << "the first one went when the second came";
}

TEST_F(AgentWakeup, AStoppedTimerPassesForRunningUntilALogout) {
  TheAgent.StartWakeup();
  TheAgent.StopWakeup();
  TakeCalls();
  EXPECT_EQ(TheAgent.WakeupTimer(), 0U);
  EXPECT_EQ(TheAgent.StartWakeup(), kNoError);
  EXPECT_TRUE(TheAgent.EnsureWakeup());
  EXPECT_EQ(TheAgent.WakeupTimer(), 0U);
  EXPECT_THAT(TakeCalls(), IsEmpty());

  TheAgent.Logout(0);
  EXPECT_FALSE(TheAgent.EnsureWakeup()) << "without a session there is no period to be had";
  LogIn();
  EXPECT_NE(TheAgent.WakeupTimer(), 0U);
  EXPECT_TRUE(TheAgent.EnsureWakeup());
  EXPECT_THAT(TakeCalls(), IsEmpty());

  TheAgent.Logout(0);
  TakeCalls();
  EXPECT_TRUE(TheAgent.EnsureWakeup()) << "the number of the stopped timer stays";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace quillkit
