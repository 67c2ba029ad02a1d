#include "tests/platform/process.h"

#include <sys/time.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <sstream>

#include "platform/posix/event_loop.h"

namespace quillkit {

const char* const kLibraryFile = "libQuillkit.so";
const char* const kServerLibraryFile = "libIMSPAPI.so";
const char* const kProbeFile = "quillkit_start_probe";
const char* const kStartWithoutServerLibrary = "loaded\nstatus 20\n";

// The name of the mapped file ends with its version.
bool IsLoaded(const char* file) {
  std::ostringstream mapped;
  mapped << std::ifstream("/proc/self/maps").rdbuf();
  return mapped.str().find(std::string("/") + file) != std::string::npos;
}

// A message box is a line on standard error.
void ReportMessageBoxes() {
  dup2(STDOUT_FILENO, STDERR_FILENO);
}

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
