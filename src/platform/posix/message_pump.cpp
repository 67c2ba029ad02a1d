#include "platform/message_pump.h"

#include "platform/posix/due_timers.h"

namespace quillkit {

void PumpThreadMessages(WindowHandle /*window*/) {
  RunDueTimers();
}

void BeginWaitCursor() {}
void EndWaitCursor() {}
void RestoreWaitCursor() {}

}  // namespace quillkit
