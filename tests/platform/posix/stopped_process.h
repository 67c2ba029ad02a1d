// Processes that are stopped, one at every step of their work.

#ifndef QUILLKIT_TESTS_PLATFORM_POSIX_STOPPED_PROCESS_H_
#define QUILLKIT_TESTS_PLATFORM_POSIX_STOPPED_PROCESS_H_

#include <sys/ptrace.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

namespace quillkit {

// Waits for the end of a process, whose work returns a bool. Returns that, or false if it was
// killed.
inline bool ResultOf(pid_t process) {
  int status = 0;
  waitpid(process, &status, 0);
  return WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

// What becomes of a process that was stopped.
inline bool LetGoOn(pid_t process) {
  ptrace(PTRACE_DETACH, process, nullptr, nullptr);
  return ResultOf(process);
}
inline void Kill(pid_t process) {
  kill(process, SIGKILL);
  waitpid(process, nullptr, 0);
}

// Runs `work`, which returns a bool, in one process after another: stops the first before its first
// system call, the second after that call, the third after two calls, and so on, until one ends by
// itself. Calls `meanwhile` with each that has stopped: it calls LetGoOn or Kill. Returns how many
// there were; 0 where processes cannot be traced.
template <class Work, class Meanwhile>
int StopAtEveryCall(Work work, Meanwhile meanwhile) {
  for (int calls = 0;; ++calls) {
    const pid_t process = fork();
    if (process == 0) {
      ptrace(PTRACE_TRACEME, 0, nullptr, nullptr);
      raise(SIGSTOP);
      _exit(work() ? 0 : 1);
    }
    int status = 0;
    waitpid(process, &status, WUNTRACED);
    bool isTraced = true;
    for (int stop = 0; stop < 2 * calls && WIFSTOPPED(status) && isTraced; ++stop) {  // two a call
      isTraced = ptrace(PTRACE_SYSCALL, process, nullptr, nullptr) == 0;
      if (isTraced) waitpid(process, &status, 0);
    }
    if (WIFEXITED(status)) return calls;
    if (!isTraced) {
      Kill(process);
      return 0;
    }
    meanwhile(process);
  }
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_POSIX_STOPPED_PROCESS_H_
