// The POSIX part of timers: a descriptor, a dispatch call that is safe to re-enter, and no timers
// in a forked child.

#include "platform/posix/due_timers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>

#include <chrono>
#include <thread>

#include "platform/posix/event_loop.h"
#include "platform/thread_timer.h"
#include "tests/platform/process.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kPeriod = 20;  // milliseconds
constexpr std::chrono::milliseconds kSeveralPeriods(100);

TimerId timer;
int runs;
int nested;

bool IsReadable(int descriptor, int milliseconds = 60'000) {
  pollfd asked{descriptor, POLLIN, 0};
  return poll(&asked, 1, milliseconds) == 1;
}

class DueTimersTest : public testing::Test {
 protected:
  DueTimersTest() { runs = nested = 0; }
  ~DueTimersTest() override { StopThreadTimer(timer); }
};

TEST_F(DueTimersTest, DescriptorIsReadableWhileATimerIsDueAndClosedWithItsThread) {
  int descriptor = -1;
  std::thread([&] {
    descriptor = QuillkitEventDescriptor();
    EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
    EXPECT_FALSE(IsReadable(descriptor, 0));
    const TimerId due = StartThreadTimer(kPeriod, [] { ++runs; });
    for (int round = 0; round < 3; ++round) {
      ASSERT_TRUE(IsReadable(descriptor));
      EXPECT_EQ(QuillkitDispatchEvents(), 1);
    }
    ASSERT_TRUE(IsReadable(descriptor));
    EXPECT_EQ(QuillkitEventDescriptor(), descriptor);
    StopThreadTimer(due);
    EXPECT_FALSE(IsReadable(descriptor, 0));
    EXPECT_EQ(QuillkitDispatchEvents(), 0);
    EXPECT_EQ(runs, 3);
  }).join();
  EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
}

TEST_F(DueTimersTest, MissedPeriodsCauseOneRunAndTimerRunsDoNotNest) {
  timer = StartThreadTimer(kPeriod, [] {
    if (++runs == 1) std::this_thread::sleep_for(kSeveralPeriods);
    nested += RunDueTimers();
    EnterLibrary();
  });
  std::this_thread::sleep_for(3 * kSeveralPeriods);
  EXPECT_EQ(RunDueTimers(), 1);
  EXPECT_EQ(runs, 1);
  for (int i = 0; i < 15; ++i) RunDueTimers();  // as often as periods have passed
  EXPECT_LT(runs, 10);
  EXPECT_EQ(nested, 0);
}

TEST_F(DueTimersTest, ForkedChildHasNoTimersAndDoesNotStopThoseOfItsParent) {
  timer = StartThreadTimer(kPeriod, [] { ++runs; });
  const int descriptor = TimerDescriptor();
  const auto lookAtTimers = [] {
    std::this_thread::sleep_for(kSeveralPeriods);
    if (RunDueTimers() != 0 || runs != 0) return 1;
    StopThreadTimer(timer);
    const bool hasItsOwn = StartThreadTimer(kPeriod, [] { ++runs; }) != 0;
    return hasItsOwn && IsReadable(TimerDescriptor()) && RunDueTimers() == 1 && runs == 1 ? 0 : 2;
  };
  EXPECT_EQ(StatusInForkedChild(lookAtTimers), 0);
  EXPECT_TRUE(IsReadable(descriptor));
  EXPECT_EQ(RunDueTimers(), 1);
}

}  // namespace
}  // namespace quillkit
