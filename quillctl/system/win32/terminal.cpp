#include "quillctl/system/terminal.h"

#include <windows.h>

namespace quillctl {
namespace {

// Belong to the one EchoOff. A console keeps its mode when the program terminates.
bool isEchoOff = false;
DWORD withEcho = 0;

HANDLE Input() {
  return GetStdHandle(STD_INPUT_HANDLE);
}

// FALSE passes Ctrl-C on to the next handler, which terminates the program.
BOOL WINAPI RestoreEcho(DWORD) {
  SetConsoleMode(Input(), withEcho);
  return FALSE;
}

}  // namespace

bool StdinIsTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(Input(), &mode) != 0;
}

EchoOff::EchoOff() {
  if (GetConsoleMode(Input(), &withEcho) == 0) return;
  isEchoOff = true;
  SetConsoleCtrlHandler(RestoreEcho, TRUE);
  SetConsoleMode(Input(), withEcho & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
}

EchoOff::~EchoOff() {
  if (!isEchoOff) return;
  isEchoOff = false;
  SetConsoleMode(Input(), withEcho);
  SetConsoleCtrlHandler(RestoreEcho, FALSE);
}

}  // namespace quillctl
