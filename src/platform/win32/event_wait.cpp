#include "platform/event_wait.h"

#include <windows.h>

#include <algorithm>
#include <chrono>

namespace quillkit {
namespace {

// Dispatches the pending messages of the thread until one of them is a quit message. Stops after
// the first message that arrives meanwhile. Returns the number of messages dispatched.
int DispatchPending(bool* quits) {
  const DWORD start = GetTickCount();
  MSG message{};
  for (int count = 0;; ++count) {
    if (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) == 0) return count;
    if (message.message == WM_QUIT) {
      PostQuitMessage(static_cast<int>(message.wParam));
      *quits = true;
      return count;
    }
    TranslateMessage(&message);
    DispatchMessageA(&message);
    if (static_cast<LONG>(message.time - start) > 0) return count + 1;  // tick counts wrap around
  }
}

}  // namespace

int EventDescriptor() {
  return -1;
}

int DispatchEvents() {
  bool quits = false;
  return DispatchPending(&quits);
}

bool WaitForEvents(std::uint32_t milliseconds) {
  using Clock = std::chrono::steady_clock;
  constexpr std::int64_t kLongestWait = 60'000;
  const Clock::time_point end = Clock::now() + std::chrono::milliseconds(milliseconds);
  bool quits = false;
  do {
    const auto left = std::chrono::ceil<std::chrono::milliseconds>(end - Clock::now()).count();
    const auto wait = static_cast<DWORD>(std::clamp<std::int64_t>(left, 0, kLongestWait));
    MsgWaitForMultipleObjectsEx(0, nullptr, wait, QS_ALLINPUT, MWMO_INPUTAVAILABLE);
    DispatchPending(&quits);
  } while (!quits && Clock::now() < end);
  return !quits;
}

}  // namespace quillkit
