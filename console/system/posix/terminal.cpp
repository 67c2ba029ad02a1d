#include "console/system/terminal.h"

#include <poll.h>
#include <sys/ioctl.h>
#include <termios.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <iostream>
#include <optional>
#include <string_view>

#include "console/system/posix/caught_signals.h"
#include "platform/posix/event_loop.h"

namespace console {
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

// Waits for an event of a descriptor, and runs the keep-alive meanwhile.
void WaitFor(int descriptor, short events) {
  pollfd sources[] = {{descriptor, events, 0}, {QuillkitEventDescriptor(), POLLIN, 0}};
  while (sources[0].revents == 0) {
    if (poll(sources, std::size(sources), -1) < 0 && errno != EINTR) break;
    if (sources[1].revents != 0) QuillkitDispatchEvents();
  }
}

std::size_t ColumnsOf(int descriptor) {
  if (isatty(descriptor) == 0) return 0;
  winsize size = {};
  const bool isKnown = ioctl(descriptor, TIOCGWINSZ, &size) == 0 && size.ws_col != 0;
  return isKnown ? size.ws_col : 80;
}

}  // namespace

bool StdinIsTerminal() {
  return isatty(STDIN_FILENO) != 0;
}

// A terminal is readable when a whole line can be read.
std::string ReadLineFromTerminal() {
  WaitFor(STDIN_FILENO, POLLIN);
  std::string line;
  std::getline(std::cin, line);
  return line;
}

void ReadStdinAsBinary() {}

void WaitForStdout() {
  WaitFor(STDOUT_FILENO, POLLOUT);
}

void KeepSessionAlive() {
  QuillkitDispatchEvents();
}

std::size_t StdoutColumns() {
  return ColumnsOf(STDOUT_FILENO);
}

std::size_t StderrColumns() {
  return ColumnsOf(STDERR_FILENO);
}

bool StdoutHasColours() {
  const char* const terminal = std::getenv("TERM");
  return isatty(STDOUT_FILENO) != 0 && terminal != nullptr && std::string_view(terminal) != "dumb";
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

}  // namespace console
