// Timers of the calling thread. Nothing here measures time: a timer that has to run gets the time
// it needs, and one that must not run gets several periods to do so.

#include "platform/thread_timer.h"

#include <gtest/gtest.h>

#include <array>
#include <thread>

#include "tests/platform/pumping.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kPeriod = 15;  // milliseconds
constexpr std::chrono::milliseconds kSeveralPeriods(5 * kPeriod);

// For the timer routines, which have no parameters: their numbers of runs, and the timers.
std::array<int, 3> runs;
std::array<TimerId, 3> timers;

class ThreadTimerTest : public testing::Test {
 protected:
  ThreadTimerTest() { runs = {}; }
  ~ThreadTimerTest() override {
    for (const TimerId timer : timers) StopThreadTimer(timer);
  }
};

// With the shorter periods the timer is due again after each run, but Pump must still return.
TEST_F(ThreadTimerTest, RunsRepeatedlyWhileItsThreadPumpsUntilItIsStopped) {
  for (const std::uint32_t period : {kPeriod, 1U, 0U}) {
    SCOPED_TRACE(testing::Message() << "period " << period);
    runs = {};
    timers[0] = StartThreadTimer(period, [] { ++runs[0], Sleep(std::chrono::milliseconds(20)); });
    Sleep(kSeveralPeriods);
    std::thread(Pump).join();
    EXPECT_EQ(runs[0], 0) << "a timer must not run before its own thread pumps";
    for (const TimerId other : {TimerId{0}, timers[0] + 1000}) StopThreadTimer(other);
    std::thread([] { StopThreadTimer(timers[0]); }).join();
    EXPECT_TRUE(PumpUntil([] { return runs[0] >= 3; })) << "the timer must run until it is stopped";

    Sleep(kSeveralPeriods);  // due once more
    for (int time = 0; time < 2; ++time) StopThreadTimer(timers[0]);
    const int before = runs[0];
    Pump();
    Sleep(kSeveralPeriods);
    Pump();
    EXPECT_EQ(runs[0], before) << "a stopped timer must not run, even if it was due";
  }
}

TEST_F(ThreadTimerTest, RoutineMayStartATimerAndStopItsOwn) {
  timers[0] = StartThreadTimer(kPeriod, [] {
    if (++runs[0] == 1) timers[1] = StartThreadTimer(2 * kPeriod, [] { ++runs[1]; });
    if (runs[1] >= 1) StopThreadTimer(timers[0]);
  });
  timers[2] = StartThreadTimer(0x7FFFFFFF, [] { ++runs[2]; });
  EXPECT_TRUE(PumpUntil([] { return runs[1] >= 2; }));
  const std::array<int, 3> before = runs;
  EXPECT_TRUE(PumpUntil([&] { return runs[1] >= before[1] + 2; }));
  EXPECT_EQ(runs[0], before[0]) << "the timer that its own routine stopped must not run again";
  EXPECT_EQ(runs[2], 0) << "a timer with a period of 25 days must not run";
}

// Both timers are due. The one that runs first stops the other.
TEST_F(ThreadTimerTest, RoutineMayStopATimerThatIsDue) {
  timers[0] = StartThreadTimer(kPeriod, [] { ++runs[0], StopThreadTimer(timers[1]); });
  timers[1] = StartThreadTimer(kPeriod, [] { ++runs[1], StopThreadTimer(timers[0]); });
  Sleep(kSeveralPeriods);
  EXPECT_TRUE(PumpUntil([] { return runs[0] + runs[1] >= 3; }));
  EXPECT_EQ(runs[0] * runs[1], 0) << "the timers ran " << runs[0] << " and " << runs[1] << " times";
}

}  // namespace
}  // namespace quillkit
