#include "console/system/terminal.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include <cstdio>
#include <iostream>

namespace console {
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

std::size_t ColumnsOf(DWORD stream) {
  CONSOLE_SCREEN_BUFFER_INFO info;
  const bool isConsole = GetConsoleScreenBufferInfo(GetStdHandle(stream), &info) != 0;
  return isConsole ? static_cast<std::size_t>(info.srWindow.Right - info.srWindow.Left) + 1 : 0;
}

DWORD WINAPI ReadLineInto(void* line) {
  std::getline(std::cin, *static_cast<std::string*>(line));
  return 0;
}

}  // namespace

bool StdinIsTerminal() {
  DWORD mode = 0;
  return GetConsoleMode(Input(), &mode) != 0;
}

// Reads on another thread, because the timers of the session need the messages of this one.
std::string ReadLineFromTerminal() {
  std::string line;
  const HANDLE thread = CreateThread(nullptr, 0, ReadLineInto, &line, 0, nullptr);
  if (thread == nullptr) return line;
  while (MsgWaitForMultipleObjects(1, &thread, FALSE, INFINITE, QS_ALLINPUT) == WAIT_OBJECT_0 + 1) {
    KeepSessionAlive();
  }
  CloseHandle(thread);
  if (line.ends_with('\r')) line.pop_back();
  return line;
}

void ReadStdinAsBinary() {
  _setmode(_fileno(stdin), _O_BINARY);
}

void WaitForStdout() {
  KeepSessionAlive();
}

void KeepSessionAlive() {
  MSG message;
  while (PeekMessage(&message, nullptr, 0, 0, PM_REMOVE) != 0) DispatchMessage(&message);
}

std::size_t StdoutColumns() {
  return ColumnsOf(STD_OUTPUT_HANDLE);
}

std::size_t StderrColumns() {
  return ColumnsOf(STD_ERROR_HANDLE);
}

bool StdoutHasColours() {
  const HANDLE output = GetStdHandle(STD_OUTPUT_HANDLE);
  DWORD mode = 0;
  return GetConsoleMode(output, &mode) != 0 &&
         SetConsoleMode(output, mode | ENABLE_VIRTUAL_TERMINAL_PROCESSING) != 0;
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

}  // namespace console
