// Periodic timers. A timer runs on the thread that started it: on Windows while the thread
// dispatches messages; on POSIX when it enters an exported function, pumps messages, or calls the
// dispatch function of platform/posix/event_loop.h.

#ifndef QUILLKIT_PLATFORM_THREAD_TIMER_H_
#define QUILLKIT_PLATFORM_THREAD_TIMER_H_

#include <cstdint>

namespace quillkit {

using TimerId = std::uintptr_t;
using TimerRoutine = void (*)();

// Starts a timer on the calling thread that runs `routine` every `period` milliseconds. The system
// may increase a very short period. Returns the id of the timer, or 0 on failure.
TimerId StartThreadTimer(std::uint32_t period, TimerRoutine routine);

// Stops a timer of the calling thread. Ignores an unknown id.
void StopThreadTimer(TimerId timer);

// Exported functions call this before their work. On POSIX it runs the due timers of the calling
// thread, perhaps a few milliseconds late; it takes a few nanoseconds if none is due. On Windows it
// does nothing.
void EnterLibrary();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_THREAD_TIMER_H_
