// The calling thread's timers, as those see them who run the due ones.

#ifndef QUILLKIT_PLATFORM_POSIX_DUE_TIMERS_H_
#define QUILLKIT_PLATFORM_POSIX_DUE_TIMERS_H_

namespace quillkit {

// Runs each due timer of the calling thread once and gives the number that ran; 0 from within a
// run.
int RunDueTimers();

// The same, for what is called often: a thread without a due timer pays some nanoseconds. A timer
// may be found due a few milliseconds late.
void RunDueTimersInPassing();

// The descriptor that is readable while a timer of the calling thread is due, or -1.
int TimerDescriptor();

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_DUE_TIMERS_H_
