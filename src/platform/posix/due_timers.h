// Runs the due timers of the calling thread.

#ifndef QUILLKIT_PLATFORM_POSIX_DUE_TIMERS_H_
#define QUILLKIT_PLATFORM_POSIX_DUE_TIMERS_H_

namespace quillkit {

// Runs each due timer of the calling thread once. Returns the number of timers run. A call from
// within a running timer does nothing and returns 0.
int RunDueTimers();

// Returns the descriptor that is readable while a timer of the calling thread is due, or -1.
int TimerDescriptor();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_DUE_TIMERS_H_
