#include "quillbox/system/child_process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <cerrno>
#include <csignal>
#include <cstdlib>

namespace quillbox {
namespace {

// Ignores the interrupts from a terminal while the object exists.
class InterruptsIgnored {
 public:
  InterruptsIgnored() : interrupt(signal(SIGINT, SIG_IGN)), quit(signal(SIGQUIT, SIG_IGN)) {}
  InterruptsIgnored(const InterruptsIgnored&) = delete;
  InterruptsIgnored& operator=(const InterruptsIgnored&) = delete;
  ~InterruptsIgnored() {
    signal(SIGINT, interrupt);
    signal(SIGQUIT, quit);
  }

  // The ignored signals that a child must not ignore.
  sigset_t OfChild() const {
    sigset_t signals;
    sigemptyset(&signals);
    if (interrupt != SIG_IGN) sigaddset(&signals, SIGINT);
    if (quit != SIG_IGN) sigaddset(&signals, SIGQUIT);
    return signals;
  }

 private:
  void (*interrupt)(int);
  void (*quit)(int);
};

}  // namespace

const char* const kSimulatorFile = "libIMSPAPI.so";
const char* const kLibraryPathVariable = "LD_LIBRARY_PATH";
const char kLibraryPathSeparator = ':';

void SetVariable(const char* name, const std::string& value) {
  setenv(name, value.c_str(), 1);
}

int RunProgram(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& each : command) arguments.push_back(const_cast<char*>(each.c_str()));
  arguments.push_back(nullptr);
  const InterruptsIgnored ignored;
  const sigset_t signals = ignored.OfChild();
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigdefault(&attributes, &signals);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGDEF);
  pid_t child = 0;
  const int failure =
      posix_spawnp(&child, arguments[0], nullptr, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  if (failure != 0) return -1;
  int status = 0;
  while (waitpid(child, &status, 0) == -1 && errno == EINTR) {
  }
  return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
}

}  // namespace quillbox
