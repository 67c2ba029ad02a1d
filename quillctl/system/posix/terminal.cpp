#include "quillctl/system/terminal.h"

#include <termios.h>
#include <unistd.h>

#include <optional>

#include "quillctl/system/posix/caught_signals.h"

namespace quillkit {
namespace {

// Of the one HiddenInput.
termios shown;
termios hidden;

// The signal's own effect comes when this returns.
extern "C" void ShowAndEnd(int number) {
  tcsetattr(STDIN_FILENO, TCSANOW, &shown);
  static_cast<void>(std::signal(number, SIG_DFL));
  static_cast<void>(raise(number));
}

extern "C" void HideAgain(int) {
  tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
}

struct Effects {
  CaughtSignals ending{ShowAndEnd};
  SignalEffect suspension{SIGTSTP, SIG_IGN};  // it would leave a shell in which nothing shows
  SignalEffect goingOn{SIGCONT, HideAgain};   // behind a halt, at which a shell shows all
};
std::optional<Effects> effects;  // where the terminal hides what is typed

}  // namespace

bool IsInputTyped() {
  return isatty(STDIN_FILENO) != 0;
}

// In the background, the drain stops the program until it comes to the front: before that, the
// settings of the terminal are those of the shell's own line.
HiddenInput::HiddenInput() {
  static_cast<void>(tcdrain(STDIN_FILENO));
  if (tcgetattr(STDIN_FILENO, &shown) != 0) return;
  hidden = shown;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  hidden.c_cc[VSUSP] = _POSIX_VDISABLE;
  effects.emplace();
  tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
}

HiddenInput::~HiddenInput() {
  if (!effects) return;
  tcsetattr(STDIN_FILENO, TCSANOW, &shown);
  effects.reset();
}

}  // namespace quillkit
