// What a program that calls quillkit_c from several threads asks of the system.

#ifndef QUILLKIT_TESTS_PLATFORM_PROCESS_H_
#define QUILLKIT_TESTS_PLATFORM_PROCESS_H_

namespace quillkit {

// Runs the calling thread's due timers and returns their number.
int DispatchTimers();

// The exit status of a forked child that does `work`; -1 if it was killed or did not end within 20
// seconds. 0 on a system that cannot fork.
int StatusInForkedChild(int (*work)());

// Calls `handler` on the calling thread in a fifth of a second, in the middle of whatever it does
// then. False on a system that cannot.
bool InterruptSoon(void (*handler)(int));

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_PROCESS_H_
