#include "quillbox/system/child_process.h"

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstdlib>

namespace quillbox {
namespace {

struct Signals {
  sigset_t awaited;    // the requests to end, and the end of a child
  sigset_t inherited;  // the signals that this process began with as blocked
};
Signals signals;

// Waits for the end of the program and passes requests to it. The terminal sends its own to both.
int WaitFor(pid_t program) {
  for (int status = 0;;) {
    siginfo_t signal{};
    const int number = sigwaitinfo(&signals.awaited, &signal);
    if (number == SIGCHLD && waitpid(program, &status, WNOHANG) == program) {
      return WIFEXITED(status) ? WEXITSTATUS(status) : 128 + WTERMSIG(status);
    }
    if (number > 0 && number != SIGCHLD && signal.si_code != SI_KERNEL) kill(program, number);
  }
}

}  // namespace

const char* const kSimulatorFile = "libIMSPAPI.so";
const char* const kLibraryPathVariable = "LD_LIBRARY_PATH";
const char kLibraryPathSeparator = ':';

void SetVariable(const char* name, const std::string& value) {
  setenv(name, value.c_str(), 1);
}

void DeferTermination() {
  sigemptyset(&signals.awaited);
  for (const int each : {SIGHUP, SIGINT, SIGQUIT, SIGTERM, SIGCHLD}) {
    sigaddset(&signals.awaited, each);
  }
  // While it is ignored, no status of a child is kept.
  static_cast<void>(std::signal(SIGCHLD, SIG_DFL));
  sigprocmask(SIG_BLOCK, &signals.awaited, &signals.inherited);
}

std::optional<int> RunProgram(const std::vector<std::string>& command) {
  std::vector<char*> arguments;
  arguments.reserve(command.size() + 1);
  for (const std::string& each : command) arguments.push_back(const_cast<char*>(each.c_str()));
  arguments.push_back(nullptr);
  posix_spawnattr_t attributes;
  posix_spawnattr_init(&attributes);
  posix_spawnattr_setsigmask(&attributes, &signals.inherited);
  posix_spawnattr_setflags(&attributes, POSIX_SPAWN_SETSIGMASK);
  pid_t program = 0;
  const int failure =
      posix_spawnp(&program, arguments[0], nullptr, &attributes, arguments.data(), environ);
  posix_spawnattr_destroy(&attributes);
  if (failure != 0) return std::nullopt;
  return WaitFor(program);
}

}  // namespace quillbox
