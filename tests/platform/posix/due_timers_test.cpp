// What timers are on POSIX alone: a descriptor, a dispatch call that is safe to re-enter, and no
// part of a forked child.

#include "platform/posix/due_timers.h"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <thread>

#include "platform/call_scope.h"
#include "platform/thread_timer.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kPeriod = 20;  // milliseconds
constexpr int kLongEnough = 60'000;    // milliseconds
constexpr std::chrono::milliseconds kSeveralPeriods(100);

int runs;
int nested;

void Count() {
  ++runs;
}

bool IsReadable(int descriptor, int wait) {
  pollfd asked{descriptor, POLLIN, 0};
  return poll(&asked, 1, wait) == 1;
}

class DueTimersTest : public testing::Test {
 protected:
  DueTimersTest() { runs = nested = 0; }
  ~DueTimersTest() override { StopThreadTimer(timer); }

  TimerId timer = 0;
};

TEST_F(DueTimersTest, StoppedTimerIsDueNoMore) {
  const int descriptor = TimerDescriptor();
  ASSERT_NE(descriptor, -1);
  EXPECT_NE(fcntl(descriptor, F_GETFD) & FD_CLOEXEC, 0);
  EXPECT_FALSE(IsReadable(descriptor, 0));

  timer = StartThreadTimer(kPeriod, Count);
  ASSERT_TRUE(IsReadable(descriptor, kLongEnough));
  StopThreadTimer(timer);
  EXPECT_FALSE(IsReadable(descriptor, 0));
  EXPECT_EQ(RunDueTimers(), 0);
}

TEST_F(DueTimersTest, DescriptorTakesUpATimerThatRunsAlready) {
  std::thread([] {
    EXPECT_NE(StartThreadTimer(kPeriod, Count), 0U);
    EXPECT_TRUE(IsReadable(TimerDescriptor(), kLongEnough));
  }).join();
}

TEST_F(DueTimersTest, MissedPeriodsRunOnceAndNeverWithinARun) {
  timer = StartThreadTimer(kPeriod, [] {
    ++runs;
    std::this_thread::sleep_for(kSeveralPeriods);
    nested += RunDueTimers();
    const CallScope scope;
  });
  std::this_thread::sleep_for(kSeveralPeriods);
  EXPECT_EQ(RunDueTimers(), 1);
  EXPECT_EQ(runs, 1);
  EXPECT_EQ(nested, 0);
}

TEST_F(DueTimersTest, MissedPeriodsAreNotCaughtUpWith) {
  timer = StartThreadTimer(kPeriod, Count);
  std::this_thread::sleep_for(3 * kSeveralPeriods);
  for (int i = 0; i < 15; ++i) RunDueTimers();  // as many as have passed
  EXPECT_LT(runs, 10);
}

TEST_F(DueTimersTest, ThreadThatEndsClosesItsDescriptor) {
  int descriptor = -1;
  std::thread([&] {
    StartThreadTimer(kPeriod, Count);
    descriptor = TimerDescriptor();
    EXPECT_NE(fcntl(descriptor, F_GETFD), -1);
  }).join();
  EXPECT_EQ(fcntl(descriptor, F_GETFD), -1);
}

// What a forked child sees, told by its exit status.
int LookAtTimersInChild(TimerId inherited) {
  std::this_thread::sleep_for(kSeveralPeriods);
  if (RunDueTimers() != 0 || runs != 0) return 1;
  StopThreadTimer(inherited);
  if (StartThreadTimer(kPeriod, Count) == 0) return 2;
  if (!IsReadable(TimerDescriptor(), kLongEnough)) return 3;
  return RunDueTimers() == 1 && runs == 1 ? 0 : 4;
}

TEST_F(DueTimersTest, ForkedChildHasNoneAndDisturbsNone) {
  timer = StartThreadTimer(kPeriod, Count);
  const int descriptor = TimerDescriptor();
  const pid_t child = fork();
  ASSERT_NE(child, -1);
  if (child == 0) _exit(LookAtTimersInChild(timer));
  int status = 0;
  ASSERT_EQ(waitpid(child, &status, 0), child);
  EXPECT_TRUE(WIFEXITED(status));
  EXPECT_EQ(WEXITSTATUS(status), 0);
  EXPECT_TRUE(IsReadable(descriptor, kLongEnough));
  EXPECT_EQ(RunDueTimers(), 1);
}

}  // namespace
}  // namespace quillkit
