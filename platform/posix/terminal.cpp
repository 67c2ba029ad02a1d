#include "platform/terminal.h"

#include <termios.h>
#include <unistd.h>

#include <csignal>
#include <iterator>

namespace quillkit {
namespace {

// The signals that end a program which does nothing about them.
constexpr int kEndings[] = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};

// Of the one HiddenInput.
bool isHidden = false;
termios shown;
struct sigaction before[std::size(kEndings)];

// The signal's own effect comes when this returns.
extern "C" void ShowAndEnd(int signal) {
  tcsetattr(STDIN_FILENO, TCSANOW, &shown);
  static_cast<void>(raise(signal));
}

// One that is ignored stays so.
void CatchEndings() {
  struct sigaction action = {};
  action.sa_handler = ShowAndEnd;
  action.sa_flags = SA_RESETHAND;
  for (std::size_t i = 0; i < std::size(kEndings); ++i) {
    sigaction(kEndings[i], nullptr, &before[i]);
    if (before[i].sa_handler != SIG_IGN) sigaction(kEndings[i], &action, nullptr);
  }
}

}  // namespace

bool IsInputTyped() {
  return isatty(STDIN_FILENO) != 0;
}

HiddenInput::HiddenInput() {
  if (tcgetattr(STDIN_FILENO, &shown) != 0) return;
  isHidden = true;
  CatchEndings();
  termios hidden = shown;
  hidden.c_lflag &= ~static_cast<tcflag_t>(ECHO);
  tcsetattr(STDIN_FILENO, TCSANOW, &hidden);
}

HiddenInput::~HiddenInput() {
  if (!isHidden) return;
  isHidden = false;
  tcsetattr(STDIN_FILENO, TCSANOW, &shown);
  for (std::size_t i = 0; i < std::size(kEndings); ++i) sigaction(kEndings[i], &before[i], nullptr);
}

}  // namespace quillkit
