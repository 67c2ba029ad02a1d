// Session keep-alive from an application's own event loop, on POSIX systems.
//
// Poll the descriptor for reading together with your own descriptors. When it is readable, call
// QuillkitDispatchEvents().
//
// libQuillkit.so and libquillkit_c.so both export these two functions, each for its own timers:
// link only the library that logs in. Both functions work on the timers of the calling thread: call
// them on the thread that logged in. A forked child process has no timers.

#ifndef QUILLKIT_PLATFORM_POSIX_EVENT_LOOP_H_
#define QUILLKIT_PLATFORM_POSIX_EVENT_LOOP_H_

#ifdef __cplusplus
extern "C" {
#endif

// Returns a descriptor that is readable while a timer of the calling thread is due, or -1 if the
// system cannot create one. It stays the same for the life of the thread. The library owns it: do
// not read, write or close it. Makes no server call.
__attribute__((visibility("default"))) int QuillkitEventDescriptor(void);

// Runs the due timers of the calling thread. Returns the number of timers run. A call from within a
// running timer does nothing and returns 0.
// Server calls: IMSPWakeup if the keep-alive timer is due; its status is discarded.
// In libquillkit_c.so, if another thread is inside the library, that thread makes the call at the
// end of its own.
__attribute__((visibility("default"))) int QuillkitDispatchEvents(void);

#ifdef __cplusplus
}
#endif

#endif  // QUILLKIT_PLATFORM_POSIX_EVENT_LOOP_H_
