#include "tests/platform/process.h"

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>

#include "platform/posix/event_loop.h"

namespace quillkit {

int DispatchTimers() {
  return QuillkitDispatchEvents();
}

int StatusInForkedChild(int (*work)()) {
  const pid_t child = fork();
  if (child == 0) {
    alarm(20);
    _exit(work());
  }
  int status = 0;
  if (child == -1 || waitpid(child, &status, 0) != child) return -1;
  return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

bool InterruptSoon(void (*handler)(int)) {
  const itimerval soon = {{0, 0}, {0, 200'000}};
  return std::signal(SIGALRM, handler) != SIG_ERR && setitimer(ITIMER_REAL, &soon, nullptr) == 0;
}

}  // namespace quillkit
