#include "tests/platform/process.h"

#include <windows.h>

namespace quillkit {

int DispatchTimers() {
  int timers = 0;
  for (MSG message; PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0;) {
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
