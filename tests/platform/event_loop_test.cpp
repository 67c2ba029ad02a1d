// POSIX: an application's own event loop keeps a session alive.

#include "platform/posix/event_loop.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <algorithm>
#include <chrono>
#include <string>
#include <thread>

#include "bridge/the_agent.h"
#include "platform/thread_timer.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::Contains;
using testing::Each;
using testing::IsEmpty;
using testing::SizeIs;

constexpr int kPatience = 20'000;  // milliseconds until a timer that does not fire is given up

bool IsReadable(int descriptor, int milliseconds) {
  pollfd wanted{descriptor, POLLIN, 0};
  return poll(&wanted, 1, milliseconds) == 1 && (wanted.revents & POLLIN) != 0;
}

// A session whose sign of life is due every so many milliseconds.
class EventLoop : public ApplianceTest {
 protected:
  static CScanner* LogInWithPeriod(std::uint32_t milliseconds) {
    SimulatorSetWakeupPeriod(2 * milliseconds);
    return LogIn();
  }

  static void WaitUntilDue() {
    ASSERT_TRUE(IsReadable(QuillkitEventDescriptor(), kPatience)) << "the timer did not fire";
  }
};

TEST_F(EventLoop, DispatchesTheSignOfLifeWhenItIsDue) {
  const int descriptor = QuillkitEventDescriptor();
  ASSERT_NE(descriptor, -1);
  LogInWithPeriod(30);
  EXPECT_EQ(QuillkitEventDescriptor(), descriptor);
  for (int round = 0; round < 3; ++round) {
    WaitUntilDue();
    EXPECT_EQ(QuillkitDispatchEvents(), 1);
  }
  const auto calls = TakeCalls();
  EXPECT_THAT(calls, SizeIs(3));
  EXPECT_THAT(calls, Each("IMSPWakeup"));
}

TEST_F(EventLoop, IsQuietUntilThen) {
  LogInWithPeriod(60'000);
  EXPECT_FALSE(IsReadable(QuillkitEventDescriptor(), 0));
  EXPECT_EQ(QuillkitDispatchEvents(), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(EventLoop, AnExportedFunctionAlsoSendsADueSignOfLife) {
  LogInWithPeriod(30);
  WaitUntilDue();
  // Functions look at a clock that may be some milliseconds late.
  std::vector<std::string> calls;
  for (int waited = 0; calls.empty() && waited < kPatience; ++waited) {
    GetLastToolkitError();
    calls = TakeCalls();
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  EXPECT_THAT(calls, Contains("IMSPWakeup"));
}

TEST_F(EventLoop, AFailingSignOfLifeChangesNothingThatAnApplicationSees) {
  CScanner* box = LogInWithPeriod(30);
  CTopLevelAB* book = GetTopLevelAbook(box);
  constexpr Status kEarlierError = 17;
  TheAgent.SetError(kEarlierError);
  SimulatorFail("IMSPWakeup", 0, 18);
  WaitUntilDue();
  EXPECT_EQ(QuillkitDispatchEvents(), 1);
  EXPECT_THAT(TakeCalls(), Contains("IMSPWakeup"));
  EXPECT_EQ(GetLastToolkitError(), kEarlierError);
  EXPECT_EQ(GetTopLevelAbook(box), book);
  EXPECT_EQ(IsAdminConnected(box), 1);

  // The timer goes on.
  WaitUntilDue();
  EXPECT_EQ(QuillkitDispatchEvents(), 1);
}

class SilencedEventLoop : public EventLoop, public testing::WithParamInterface<void (*)()> {};

TEST_P(SilencedEventLoop, SendsNothingMore) {
  LogInWithPeriod(10);
  WaitUntilDue();
  GetParam()();
  TakeCalls();
  EXPECT_FALSE(IsReadable(QuillkitEventDescriptor(), 50));
  EXPECT_EQ(QuillkitDispatchEvents(), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(AfterTheEnd, SilencedEventLoop, testing::Values(Logout, Exit));

int runsWithin = -1;

TEST(EventDispatch, FromWithinATimersOwnRunDoesNothing) {
  const TimerId timer = StartThreadTimer(10, [] { runsWithin = QuillkitDispatchEvents(); });
  ASSERT_NE(timer, 0U);
  ASSERT_TRUE(IsReadable(QuillkitEventDescriptor(), kPatience));
  EXPECT_EQ(QuillkitDispatchEvents(), 1);
  EXPECT_EQ(runsWithin, 0);
  StopThreadTimer(timer);
}

}  // namespace
}  // namespace quillkit
