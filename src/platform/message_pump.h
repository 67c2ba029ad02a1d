// The calling thread's messages and the application's wait cursor.

#ifndef QUILLKIT_PLATFORM_MESSAGE_PUMP_H_
#define QUILLKIT_PLATFORM_MESSAGE_PUMP_H_

namespace quillkit {

// A window of the application, a HWND on Windows; null is no window.
using WindowHandle = void*;

// Removes the thread's pending messages, but for a request to quit, up to the first that arrives
// while this runs; each goes to `window` as a dialog message and, where
// that refuses it, is translated and dispatched. On POSIX the thread's due timers run.
// REQUIRES: `window` is not null.
void PumpThreadMessages(WindowHandle window);

// The wait cursor: shown, taken away, shown again after something else changed it. Nothing happens
// where there is no cursor.
void BeginWaitCursor();
void EndWaitCursor();
void RestoreWaitCursor();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_MESSAGE_PUMP_H_
