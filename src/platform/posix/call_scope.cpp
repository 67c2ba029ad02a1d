#include "platform/call_scope.h"

#include "platform/posix/due_timers.h"

namespace quillkit {

CallScope::CallScope() {
  PollDueTimers();
}

}  // namespace quillkit
