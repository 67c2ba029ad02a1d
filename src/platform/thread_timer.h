// Periodic timers that run on the thread that started them, and only when that thread looks for due
// ones: on Windows while it dispatches messages; on POSIX when it enters an exported function,
// pumps messages, or calls the dispatch function of platform/posix/event_loop.h.

#ifndef QUILLKIT_PLATFORM_THREAD_TIMER_H_
#define QUILLKIT_PLATFORM_THREAD_TIMER_H_

#include <cstdint>

namespace quillkit {

using TimerId = std::uintptr_t;
using TimerRoutine = void (*)();

// Starts a timer on the calling thread that runs `routine` every `period` milliseconds; the system
// may raise a very short period. 0 when no timer could be had.
TimerId StartThreadTimer(std::uint32_t period, TimerRoutine routine);

// Stops a timer of the calling thread. An identifier that names none is ignored.
void StopThreadTimer(TimerId timer);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_THREAD_TIMER_H_
