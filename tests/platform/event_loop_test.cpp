// POSIX: an application's own event loop keeps a session alive.

#include "platform/posix/event_loop.h"

#include <gtest/gtest.h>
#include <poll.h>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

bool IsReadable(int descriptor, int milliseconds) {
  pollfd wanted{descriptor, POLLIN, 0};
  return poll(&wanted, 1, milliseconds) == 1 && (wanted.revents & POLLIN) != 0;
}

class EventLoop : public ApplianceTest {
 protected:
  // A session whose sign of life is due every so many milliseconds.
  static CScanner* LogInWithPeriod(std::uint32_t milliseconds) {
    SimulatorSetWakeupPeriod(2 * milliseconds);
    return LogIn();
  }

  static void WaitUntilDue() {
    ASSERT_TRUE(IsReadable(QuillkitEventDescriptor(), 20'000)) << "the timer did not fire";
  }
};

TEST_F(EventLoop, DispatchesTheSignOfLifeWheneverItIsDue) {
  const int descriptor = QuillkitEventDescriptor();
  ASSERT_NE(descriptor, -1);
  CScanner* box = LogInWithPeriod(30);
  EXPECT_EQ(QuillkitEventDescriptor(), descriptor);
  TheAgent.SetError(17);
  SimulatorFail("IMSPWakeup", 2, 18);
  for (int round = 0; round < 3; ++round) {
    WaitUntilDue();
    EXPECT_EQ(QuillkitDispatchEvents(), 1);
    EXPECT_THAT(TakeCalls(), ElementsAre("IMSPWakeup"));
  }
  EXPECT_EQ(GetLastToolkitError(), 17) << "nobody is told of one that failed";
  EXPECT_EQ(IsAdminConnected(box), 1);
}

TEST_F(EventLoop, IsQuietAfterLogoutAndAfterExit) {
  for (void (*end)() : {Logout, Exit}) {
    LogInWithPeriod(10);
    WaitUntilDue();
    end();
    TakeCalls();
    EXPECT_FALSE(IsReadable(QuillkitEventDescriptor(), 50));
    EXPECT_EQ(QuillkitDispatchEvents(), 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
  }
}

}  // namespace
}  // namespace quillkit
