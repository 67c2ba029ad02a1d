#include "platform/posix/event_loop.h"

#include "platform/posix/due_timers.h"

int QuillkitEventDescriptor() {
  return quillkit::TimerDescriptor();
}

int QuillkitDispatchEvents() {
  return quillkit::RunDueTimers();
}
