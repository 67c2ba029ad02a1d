// Waiting on a thread that has no event loop of its own.

#ifndef QUILLKIT_PLATFORM_EVENT_WAIT_H_
#define QUILLKIT_PLATFORM_EVENT_WAIT_H_

#include <cstdint>

namespace quillkit {

// Returns a descriptor that is readable while a timer of the calling thread is due; -1 on Windows,
// or if the system cannot create one.
int EventDescriptor();

// Runs the due timers of the calling thread, on Windows by dispatching its pending messages. A quit
// message is posted again and ends the work. Returns the number of timers or messages handled.
int DispatchEvents();

// Does the same for a time. Returns true after the time; false as soon as there is a quit message.
bool WaitForEvents(std::uint32_t milliseconds);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_EVENT_WAIT_H_
