#include "quillctl/system/terminal.h"

#include <termios.h>
#include <unistd.h>

#include <optional>

#include "quillctl/system/posix/caught_signals.h"

namespace quillctl {
namespace {

// Belong to the one EchoOff.
termios withEcho;
termios withoutEcho;

// The default action takes place when this handler returns.
extern "C" void RestoreEchoAndTerminate(int number) {
  tcsetattr(STDIN_FILENO, TCSANOW, &withEcho);
  static_cast<void>(std::signal(number, SIG_DFL));
  static_cast<void>(raise(number));
}

extern "C" void TurnEchoOffAgain(int) {
  tcsetattr(STDIN_FILENO, TCSANOW, &withoutEcho);
}

struct Actions {
  CaughtSignals termination{RestoreEchoAndTerminate};
  SignalAction suspension{SIGTSTP, SIG_IGN};             // would leave the shell without echo
  SignalAction continuation{SIGCONT, TurnEchoOffAgain};  // after a stop the shell restores the echo
};
std::optional<Actions> actions;  // set while the echo is off

}  // namespace

bool StdinIsTerminal() {
  return isatty(STDIN_FILENO) != 0;
}

// In the background, tcdrain stops the program until it is in the foreground. Until then the
// settings of the terminal are those of the shell's command line.
EchoOff::EchoOff() {
  static_cast<void>(tcdrain(STDIN_FILENO));
  if (tcgetattr(STDIN_FILENO, &withEcho) != 0) return;
  withoutEcho = withEcho;
  withoutEcho.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  withoutEcho.c_cc[VSUSP] = _POSIX_VDISABLE;
  actions.emplace();
  tcsetattr(STDIN_FILENO, TCSANOW, &withoutEcho);
}

EchoOff::~EchoOff() {
  if (!actions) return;
  tcsetattr(STDIN_FILENO, TCSANOW, &withEcho);
  actions.reset();
}

}  // namespace quillctl
