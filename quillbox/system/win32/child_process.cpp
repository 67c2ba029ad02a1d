#include "quillbox/system/child_process.h"

#include <process.h>
#include <stdlib.h>
#include <windows.h>

namespace quillbox {
namespace {

// The argument as the C library of the program reads it back: in quotes, with a backslash before
// each quote and before the backslashes that precede one.
std::string Quoted(const std::string& argument) {
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

// Handles every interrupt of the console by doing nothing.
BOOL WINAPI IgnoreInterrupt(DWORD /*kind*/) {
  return TRUE;
}

}  // namespace

const char* const kSimulatorFile = "IMSPAPI.DLL";
const char* const kLibraryPathVariable = "PATH";
const char kLibraryPathSeparator = ';';

void SetVariable(const char* name, const std::string& value) {
  _putenv_s(name, value.c_str());
}

int RunProgram(const std::vector<std::string>& command) {
  std::vector<std::string> quoted;
  for (const std::string& each : command) quoted.push_back(Quoted(each));
  std::vector<const char*> arguments;
  for (const std::string& each : quoted) arguments.push_back(each.c_str());
  arguments.push_back(nullptr);
  // A handler is not inherited: the program handles its own interrupts.
  SetConsoleCtrlHandler(IgnoreInterrupt, TRUE);
  return static_cast<int>(_spawnvp(_P_WAIT, command[0].c_str(), arguments.data()));
}

}  // namespace quillbox
