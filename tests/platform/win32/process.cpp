#include "tests/platform/process.h"

#include <windows.h>

namespace quillkit {

// A timer that is due again as soon as it has run does not hold the caller.
int DispatchTimers() {
  int timers = 0;
  for (MSG message; timers < 4 && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0;) {
    if (message.message == WM_TIMER) ++timers;
    DispatchMessageA(&message);
  }
  return timers;
}

int StatusInForkedChild(int (* /*work*/)()) {
  return 0;
}

bool InterruptSoon(void (* /*handler*/)(int)) {
  return false;
}

}  // namespace quillkit
