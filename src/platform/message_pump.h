// The message queue of the calling thread, and the wait cursor of the application.

#ifndef QUILLKIT_PLATFORM_MESSAGE_PUMP_H_
#define QUILLKIT_PLATFORM_MESSAGE_PUMP_H_

namespace quillkit {

// A window of the application: a HWND on Windows. Null means no window.
using WindowHandle = void*;

// Handles the pending messages of the thread. Stops after the first message that arrives during the
// call. A quit message is posted again. Each message is offered to `window` as a dialog message; if
// it is not one, it is translated and dispatched. On POSIX, runs the thread's due timers.
// REQUIRES: `window` is not null.
void PumpThreadMessages(WindowHandle window);

// Show the wait cursor, remove it, and show it again after other code changed it. No effect on
// systems without a cursor.
void BeginWaitCursor();
void EndWaitCursor();
void RestoreWaitCursor();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_MESSAGE_PUMP_H_
