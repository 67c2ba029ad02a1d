#include "platform/event_wait.h"

#include <poll.h>

#include <algorithm>
#include <chrono>

#include "platform/posix/due_timers.h"

namespace quillkit {

int EventDescriptor() {
  return TimerDescriptor();
}

int DispatchEvents() {
  return RunDueTimers();
}

// A wait that a signal interrupts is continued. poll() ignores a descriptor of -1.
bool WaitForEvents(std::uint32_t milliseconds) {
  using Clock = std::chrono::steady_clock;
  constexpr std::int64_t kLongestPoll = 60'000;
  const Clock::time_point end = Clock::now() + std::chrono::milliseconds(milliseconds);
  pollfd due{TimerDescriptor(), POLLIN, 0};
  do {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    poll(&due, 1, static_cast<int>(std::clamp<std::int64_t>(left, 0, kLongestPoll)));
    RunDueTimers();
  } while (Clock::now() < end);
  return true;
}

}  // namespace quillkit
