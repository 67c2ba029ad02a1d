// What tests ask of the system that neither the standard library nor platform/ offers. Each system
// has a file of it.

#ifndef QUILLKIT_TESTS_PLATFORM_PROCESS_H_
#define QUILLKIT_TESTS_PLATFORM_PROCESS_H_

namespace quillkit {

// The file names of the library, the simulated server library, and the start probe.
extern const char* const kLibraryFile;
extern const char* const kServerLibraryFile;
extern const char* const kProbeFile;

// What the start probe prints of a library that has found no server library.
extern const char* const kStartWithoutServerLibrary;

// Whether a library with this file name is in the process.
bool IsLoaded(const char* file);

// From now on the text of every message box of the thread is printed on standard output, one a
// line, and the box is closed.
void ReportMessageBoxes();

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
