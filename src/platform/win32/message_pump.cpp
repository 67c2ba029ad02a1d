#include "platform/message_pump.h"

#include <windows.h>

namespace quillkit {
namespace {

// The number of nested wait cursors, and the cursor before the outermost.
int waitDepth = 0;
HCURSOR cursorBefore = nullptr;

HCURSOR ShowWaitCursor() {
  return SetCursor(LoadCursorA(nullptr, IDC_WAIT));
}

bool IsAfter(DWORD time, DWORD other) {
  return static_cast<LONG>(time - other) > 0;  // tick counts wrap around
}

}  // namespace

// A message that arrives during the pump ends it. Otherwise a timer that is due again after every
// run would never let the caller continue.
void PumpThreadMessages(WindowHandle window) {
  const DWORD start = GetTickCount();
  MSG message{};
  bool quit = false;
  WPARAM exitCode = 0;
  while (PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0) {
    if (message.message == WM_QUIT) {
      quit = true;
      exitCode = message.wParam;
    } else if (IsDialogMessageA(static_cast<HWND>(window), &message) == 0) {
      TranslateMessage(&message);
      DispatchMessageA(&message);
    }
    if (IsAfter(message.time, start)) break;
  }
  if (quit) PostQuitMessage(static_cast<int>(exitCode));
}

void BeginWaitCursor() {
  const HCURSOR found = ShowWaitCursor();
  if (waitDepth++ == 0) cursorBefore = found;
}

void EndWaitCursor() {
  if (waitDepth == 0 || --waitDepth != 0) return;
  SetCursor(cursorBefore);
}

void RestoreWaitCursor() {
  if (waitDepth != 0) ShowWaitCursor();
}

}  // namespace quillkit
