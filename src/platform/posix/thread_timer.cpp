// The timers of a thread are a list of due times. After the first request for the descriptor, there
// is also one kernel timer, set to the earliest due time.

#include "platform/thread_timer.h"

#include <pthread.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <ctime>
#include <limits>
#include <vector>

#include "platform/posix/due_timers.h"

namespace quillkit {
namespace {

using Nanoseconds = std::int64_t;  // of the monotonic clock

constexpr Nanoseconds kNever = std::numeric_limits<Nanoseconds>::max();
constexpr Nanoseconds kSecond = 1'000'000'000;
constexpr Nanoseconds kMillisecond = 1'000'000;
constexpr Nanoseconds kShortestPeriod = 10 * kMillisecond;

Nanoseconds Now(clockid_t clock) {
  timespec now{};
  clock_gettime(clock, &now);
  return now.tv_sec * kSecond + now.tv_nsec;
}

struct Timer {
  TimerId id;
  TimerRoutine routine;
  Nanoseconds period;
  Nanoseconds due;
  bool pending;  // was due when the current run began, and has not run yet
};

class ThreadTimers {
 public:
  ThreadTimers() = default;
  ThreadTimers(const ThreadTimers&) = delete;
  ThreadTimers& operator=(const ThreadTimers&) = delete;
  ~ThreadTimers();

  TimerId Start(std::uint32_t period, TimerRoutine routine);
  void Stop(TimerId id);
  int RunDue();
  int Descriptor();

 private:
  void Schedule();
  void SetDescriptor() const;

  std::vector<Timer> timers;
  int descriptor = -1;
  bool isRunning = false;
};

// The data of a thread. Neither variable has a destructor, so both can be read even while the
// thread or the process ends. Exported functions read the first one: with this TLS model, that is a
// load and no call. It uses a few bytes of the static TLS space that the C library reserves for
// libraries loaded with dlopen.
[[gnu::tls_model("initial-exec")]] constinit thread_local Nanoseconds firstDue = kNever;
// Null until the first timer is started.
[[gnu::tls_model("initial-exec")]] constinit thread_local ThreadTimers* ownTimers = nullptr;

constinit std::atomic<TimerId> lastId = 0;

ThreadTimers::~ThreadTimers() {
  if (descriptor != -1) close(descriptor);
  firstDue = kNever;
}

TimerId ThreadTimers::Start(std::uint32_t period, TimerRoutine routine) {
  const Nanoseconds length = std::max(period * kMillisecond, kShortestPeriod);
  const TimerId id = ++lastId;
  timers.push_back({id, routine, length, Now(CLOCK_MONOTONIC) + length, false});
  Schedule();
  return id;
}

void ThreadTimers::Stop(TimerId id) {
  if (std::erase_if(timers, [id](const Timer& each) { return each.id == id; }) != 0) Schedule();
}

// Several missed periods count as one; the next due time is the first future multiple of the
// period. A routine may start and stop timers, so the list is searched again after each.
int ThreadTimers::RunDue() {
  const Nanoseconds now = Now(CLOCK_MONOTONIC);
  if (isRunning || now < firstDue) return 0;
  for (Timer& each : timers) {
    each.pending = each.due <= now;
    if (each.pending) each.due += ((now - each.due) / each.period + 1) * each.period;
  }
  Schedule();
  isRunning = true;
  int count = 0;
  const auto next = [this] {
    return std::find_if(timers.begin(), timers.end(),
                        [](const Timer& each) { return each.pending; });
  };
  for (auto timer = next(); timer != timers.end(); timer = next()) {
    timer->pending = false;
    timer->routine();
    ++count;
  }
  isRunning = false;
  return count;
}

int ThreadTimers::Descriptor() {
  if (descriptor != -1) return descriptor;
  descriptor = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC | TFD_NONBLOCK);
  if (descriptor != -1) SetDescriptor();
  return descriptor;
}

void ThreadTimers::Schedule() {
  firstDue = kNever;
  for (const Timer& each : timers) firstDue = std::min(firstDue, each.due);
  if (descriptor != -1) SetDescriptor();
}

// Sets the kernel timer to the earliest due time, or disables it with a time of 0. The descriptor
// is not readable until that time.
void ThreadTimers::SetDescriptor() const {
  itimerspec expiry{};
  if (firstDue != kNever) {
    // The fields have the width of the system.
    expiry.it_value.tv_sec = static_cast<decltype(timespec::tv_sec)>(firstDue / kSecond);
    expiry.it_value.tv_nsec = static_cast<decltype(timespec::tv_nsec)>(firstDue % kSecond);
  }
  timerfd_settime(descriptor, TFD_TIMER_ABSTIME, &expiry, nullptr);
}

void EndTimers(void* timers) {
  delete static_cast<ThreadTimers*>(timers);
  ownTimers = nullptr;
}

// Destroys the timers of a thread when it ends or unloads the library, and in a forked child,
// because the descriptor belongs to the parent. This is not a thread_local destructor, which would
// keep the library in memory until the thread ends. The timers of other threads are not freed when
// the library is unloaded.
class TimerCleanup {
 public:
  TimerCleanup() {
    watching = pthread_key_create(&key, EndTimers) == 0 &&
               pthread_atfork(nullptr, nullptr, EndInForkedChild) == 0;
  }
  TimerCleanup(const TimerCleanup&) = delete;
  TimerCleanup& operator=(const TimerCleanup&) = delete;
  ~TimerCleanup() {
    if (!watching) return;
    watching = false;
    pthread_key_delete(key);
    EndTimers(ownTimers);
  }

  static bool Watch(ThreadTimers* timers) {
    return watching && pthread_setspecific(key, timers) == 0;
  }

 private:
  static void EndInForkedChild() {
    if (ownTimers == nullptr) return;
    pthread_setspecific(key, nullptr);
    EndTimers(ownTimers);
  }

  static inline constinit bool watching = false;
  static inline constinit pthread_key_t key = 0;
};

const TimerCleanup timerCleanup;

// Returns the timers of the calling thread. Creates them if needed. Returns null before the library
// is started and after it is stopped.
ThreadTimers* OwnTimers() {
  if (ownTimers != nullptr) return ownTimers;
  auto* timers = new ThreadTimers;
  if (TimerCleanup::Watch(timers)) return ownTimers = timers;
  delete timers;
  return nullptr;
}

}  // namespace

TimerId StartThreadTimer(std::uint32_t period, TimerRoutine routine) {
  ThreadTimers* timers = OwnTimers();
  return timers != nullptr ? timers->Start(period, routine) : 0;
}

void StopThreadTimer(TimerId timer) {
  if (ownTimers != nullptr) ownTimers->Stop(timer);
}

void EnterLibrary() {
  if (firstDue == kNever || Now(CLOCK_MONOTONIC_COARSE) < firstDue) return;
  RunDueTimers();
}

int RunDueTimers() {
  return ownTimers != nullptr ? ownTimers->RunDue() : 0;
}

int TimerDescriptor() {
  ThreadTimers* timers = OwnTimers();
  return timers != nullptr ? timers->Descriptor() : -1;
}

}  // namespace quillkit
