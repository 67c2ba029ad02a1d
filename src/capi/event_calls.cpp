// The keep-alive of a program without and with an event loop. These functions take no turn: the
// keep-alive takes one itself, and a wait must not keep other threads out.

#include "capi/call_turn.h"
#include "capi/quillkit_c.h"
#include "platform/event_wait.h"

using namespace quillkit;
using namespace quillkit::capi;

int32_t quill_wait(uint32_t milliseconds) {
  const int32_t fault = FaultOfThread();
  return fault != 0 ? fault : WaitForEvents(milliseconds);
}

int32_t quill_event_descriptor(void) {
  const int32_t fault = FaultOfThread();
  return fault != 0 ? fault : EventDescriptor();
}

int32_t quill_dispatch_events(void) {
  const int32_t fault = FaultOfThread();
  return fault != 0 ? fault : DispatchEvents();
}
