#include "quillctl/system/terminal.h"

#include <windows.h>

namespace quillkit {
namespace {

// Of the one HiddenInput. A console keeps its mode when the program ends.
bool isHidden = false;
DWORD shown = 0;

HANDLE Input() {
  return GetStdHandle(STD_INPUT_HANDLE);
}

// What else ends the program at Ctrl-C comes behind this.
BOOL WINAPI ShowAndEnd(DWORD) {
  SetConsoleMode(Input(), shown);
  return FALSE;
}

}  // namespace

bool IsInputTyped() {
  DWORD mode = 0;
  return GetConsoleMode(Input(), &mode) != 0;
}

HiddenInput::HiddenInput() {
  if (GetConsoleMode(Input(), &shown) == 0) return;
  isHidden = true;
  SetConsoleCtrlHandler(ShowAndEnd, TRUE);
  SetConsoleMode(Input(), shown & ~static_cast<DWORD>(ENABLE_ECHO_INPUT));
}

HiddenInput::~HiddenInput() {
  if (!isHidden) return;
  isHidden = false;
  SetConsoleMode(Input(), shown);
  SetConsoleCtrlHandler(ShowAndEnd, FALSE);
}

}  // namespace quillkit
