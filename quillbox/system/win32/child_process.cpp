#include "quillbox/system/child_process.h"

#include <process.h>
#include <stdlib.h>
#include <windows.h>

#include <cstdint>

namespace quillbox {
namespace {

constexpr const char* kPlainCharacters =
    "abcdefghijklmnopqrstuvwxyzABCDEFGHIJKLMNOPQRSTUVWXYZ0123456789-_.:/\\";

// The argument as the C library of the program reads it back: in quotes, with a backslash before
// each quote and before the backslashes that precede one. A plain word stays as it is, because
// cmd.exe knows no option in quotes.
std::string Quoted(const std::string& argument) {
  if (!argument.empty() && argument.find_first_not_of(kPlainCharacters) == std::string::npos) {
    return argument;
  }
  std::string quoted = "\"";
  std::size_t backslashes = 0;
  for (const char c : argument) {
    if (c == '"') quoted.append(backslashes + 1, '\\');
    backslashes = c == '\\' ? backslashes + 1 : 0;
    quoted += c;
  }
  quoted.append(backslashes, '\\');
  return quoted + '"';
}

// Does nothing when the console is interrupted, and waits when it is closed: the system ends this
// process when the handler returns. The console does the same to the program.
BOOL WINAPI LetProgramEnd(DWORD kind) {
  if (kind != CTRL_C_EVENT && kind != CTRL_BREAK_EVENT) Sleep(INFINITE);
  return TRUE;
}

}  // namespace

const char* const kSimulatorFile = "IMSPAPI.DLL";
const char* const kLibraryPathVariable = "PATH";
const char kLibraryPathSeparator = ';';

void SetVariable(const char* name, const std::string& value) {
  _putenv_s(name, value.c_str());
}

// A handler is not inherited: the program handles its own interrupts.
void DeferTermination() {
  SetConsoleCtrlHandler(LetProgramEnd, TRUE);
}

std::optional<int> RunProgram(const std::vector<std::string>& command) {
  std::vector<std::string> quoted;
  for (const std::string& each : command) quoted.push_back(Quoted(each));
  std::vector<const char*> arguments;
  for (const std::string& each : quoted) arguments.push_back(each.c_str());
  arguments.push_back(nullptr);
  const std::intptr_t started = _spawnvp(_P_NOWAIT, command[0].c_str(), arguments.data());
  if (started == -1) return std::nullopt;
  const auto program = reinterpret_cast<HANDLE>(started);
  DWORD status = 0;
  WaitForSingleObject(program, INFINITE);
  GetExitCodeProcess(program, &status);
  CloseHandle(program);
  return static_cast<int>(status);
}

}  // namespace quillbox
