// System functions for tests that neither the standard library nor platform/ offers. Each system
// has its own implementation.

#ifndef QUILLKIT_TESTS_PLATFORM_PROCESS_H_
#define QUILLKIT_TESTS_PLATFORM_PROCESS_H_

namespace quillkit {

// The file names of the library, the simulated server library, and the start probe.
extern const char* const kLibraryFile;
extern const char* const kServerLibraryFile;
extern const char* const kProbeFile;

// The output of the start probe if the library finds no server library.
extern const char* const kStartWithoutServerLibrary;

// Returns whether the process has loaded a library with this file name.
bool IsLoaded(const char* file);

// From now on the text of every message box of the thread is printed on standard output, one a
// line, and the box is closed.
void ReportMessageBoxes();

// Runs the calling thread's due timers and returns their number.
int DispatchTimers();

// Runs `work` in a forked child and returns its exit status, or -1 if it was killed or did not end
// within 20 seconds. Returns 0 on a system without fork.
int StatusInForkedChild(int (*work)());

// Calls `handler` on the calling thread after 0.2 seconds, interrupting it. Returns false if the
// system does not support this.
bool InterruptSoon(void (*handler)(int));

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_PROCESS_H_
