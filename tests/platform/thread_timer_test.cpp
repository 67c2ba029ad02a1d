// Timers of the calling thread. Nothing here measures time: a timer that has to run gets all it
// needs, and one that must not run is given several periods in which it could.

#include "platform/thread_timer.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "tests/platform/pumping.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kPeriod = 15;  // milliseconds
constexpr std::chrono::milliseconds kSeveralPeriods(5 * kPeriod);

// What the routines, which take no argument, count and work on.
std::array<int, 3> runs;
std::array<TimerId, 3> timers;

template <std::size_t kIndex>
void Count() {
  ++runs[kIndex];
}

class ThreadTimerTest : public testing::Test {
 protected:
  ThreadTimerTest() {
    runs = {};
    timers = {};
  }
  ~ThreadTimerTest() override {
    for (const TimerId timer : timers) StopThreadTimer(timer);
  }

  template <std::size_t kIndex>
  static void Start(TimerRoutine routine, std::uint32_t period = kPeriod) {
    timers[kIndex] = StartThreadTimer(period, routine);
    ASSERT_NE(timers[kIndex], 0U);
  }
};

TEST_F(ThreadTimerTest, RunsAgainAndAgainOnlyWhileItsThreadPumps) {
  Start<0>(Count<0>);
  Sleep(kSeveralPeriods);
  std::thread(Pump).join();
  EXPECT_EQ(runs[0], 0);
  EXPECT_TRUE(PumpUntil([] { return runs[0] >= 3; }));
}

TEST_F(ThreadTimerTest, StoppedTimerNeverRuns) {
  Start<0>(Count<0>);
  ASSERT_TRUE(PumpUntil([] { return runs[0] >= 1; }));
  Sleep(kSeveralPeriods);  // due once more
  StopThreadTimer(timers[0]);
  const int before = runs[0];
  Pump();
  Sleep(kSeveralPeriods);
  Pump();
  EXPECT_EQ(runs[0], before);
}

TEST_F(ThreadTimerTest, StoppingWhatIsNoTimerChangesNothing) {
  Start<0>(Count<0>);
  StopThreadTimer(0);
  StopThreadTimer(timers[0] + 1000);
  std::thread([] { StopThreadTimer(timers[0]); }).join();  // another thread's
  EXPECT_TRUE(PumpUntil([] { return runs[0] >= 1; }));
  StopThreadTimer(timers[0]);
  StopThreadTimer(timers[0]);
}

TEST_F(ThreadTimerTest, SeveralRunSideBySide) {
  // The first starts the second and, when that has run, stops itself.
  Start<0>([] {
    if (++runs[0] == 1) timers[1] = StartThreadTimer(2 * kPeriod, Count<1>);
    if (runs[1] >= 1) StopThreadTimer(timers[0]);
  });
  Start<2>(Count<2>, 0x7FFFFFFF);
  EXPECT_TRUE(PumpUntil([] { return runs[1] >= 2; }));
  const std::array<int, 3> before = runs;
  EXPECT_TRUE(PumpUntil([&] { return runs[1] >= before[1] + 2; }));
  EXPECT_GE(runs[0], 2);
  EXPECT_EQ(runs[0], before[0]);
  EXPECT_EQ(runs[2], 0);
}

// Both are due; whichever runs first takes the other away.
TEST_F(ThreadTimerTest, RunMayStopATimerThatIsDue) {
  Start<0>([] {
    ++runs[0];
    StopThreadTimer(timers[1]);
  });
  Start<1>([] {
    ++runs[1];
    StopThreadTimer(timers[0]);
  });
  Sleep(kSeveralPeriods);
  EXPECT_TRUE(PumpUntil([] { return runs[0] + runs[1] >= 3; }));
  EXPECT_EQ(runs[0] * runs[1], 0) << runs[0] << " and " << runs[1];
}

// A timer that is due again at once must not hold the pump.
TEST_F(ThreadTimerTest, VeryShortPeriodRunsAndLetsThePumpReturn) {
  for (const std::uint32_t period : {0U, 1U}) {
    runs = {};
    Start<0>(
        [] {
          ++runs[0];
          Sleep(std::chrono::milliseconds(20));
        },
        period);
    EXPECT_TRUE(PumpUntil([] { return runs[0] >= 3; })) << period;
    StopThreadTimer(timers[0]);
  }
}

TEST_F(ThreadTimerTest, ThreadThatEndsTakesItsTimersAlong) {
  std::thread([] {
    ASSERT_NE(StartThreadTimer(kPeriod, Count<0>), 0U);
    ASSERT_TRUE(PumpUntil([] { return runs[0] >= 1; }));
  }).join();
  const int before = runs[0];
  Sleep(kSeveralPeriods);
  Pump();
  EXPECT_EQ(runs[0], before);
}

}  // namespace
}  // namespace quillkit
