// The two functions with which a POSIX application's own event loop keeps a session alive. They are
// exported by libQuillkit.so beside the toolkit's 60 functions, and belong to the calling thread:
// call them on the thread that logged in. A forked child has none of its parent's timers.
//
//   poll the descriptor for reading together with your own; when it is readable, call
//   QuillkitDispatchEvents().

#ifndef QUILLKIT_PLATFORM_POSIX_EVENT_LOOP_H_
#define QUILLKIT_PLATFORM_POSIX_EVENT_LOOP_H_

#ifdef __cplusplus
extern "C" {
#endif

// A descriptor that is readable while one of the calling thread's timers is due. It stays the same
// for the thread's life and belongs to the library: do not read, write or close it. -1 when the
// system has no descriptor to give.
__attribute__((visibility("default"))) int QuillkitEventDescriptor(void);

// Runs the calling thread's due timers and gives the number that ran. The one timer of the library
// calls IMSPWakeup, whose result is discarded. A call from within a timer's own run does nothing
// and gives 0.
__attribute__((visibility("default"))) int QuillkitDispatchEvents(void);

#ifdef __cplusplus
}
#endif

#endif  // QUILLKIT_PLATFORM_POSIX_EVENT_LOOP_H_
