#include "platform/terminal.h"

#include <termios.h>
#include <unistd.h>

#include <optional>

#include "platform/posix/caught_signals.h"

namespace quillkit {
namespace {

// Of the one HiddenInput.
termios shown;
std::optional<CaughtSignals> caught;  // where the terminal hides what is typed

// The signal's own effect comes when this returns.
extern "C" void ShowAndEnd(int number) {
  tcsetattr(STDIN_FILENO, TCSANOW, &shown);
  static_cast<void>(std::signal(number, SIG_DFL));
  static_cast<void>(raise(number));
}

}  // namespace

bool IsInputTyped() {
  return isatty(STDIN_FILENO) != 0;
}

HiddenInput::HiddenInput() {
  if (tcgetattr(STDIN_FILENO, &shown) != 0) return;
  caught.emplace(ShowAndEnd);
  termios hidden = shown;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  hidden.c_cc[VSUSP] = _POSIX_VDISABLE;  // it would leave a shell in which nothing shows
  tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
}

HiddenInput::~HiddenInput() {
  if (!caught) return;
  tcsetattr(STDIN_FILENO, TCSANOW, &shown);
  caught.reset();
}

}  // namespace quillkit
