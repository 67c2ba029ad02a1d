#include "tests/platform/system.h"

#include <windows.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace quillkit {
namespace {

constexpr int kMessageText = 0xFFFF;  // the control of a message box that holds its text

// Sees every window of the thread as it is activated: a message box then has its text.
LRESULT CALLBACK OnWindowEvent(int code, WPARAM first, LPARAM second) {
  if (code == HCBT_ACTIVATE) {
    auto* box = reinterpret_cast<HWND>(first);
    std::array<char, 256> text{};
    if (GetDlgItemTextA(box, kMessageText, text.data(), static_cast<int>(text.size())) != 0) {
      std::puts(text.data());
      PostMessageA(box, WM_COMMAND, IDOK, 0);
    }
  }
  return CallNextHookEx(nullptr, code, first, second);
}

// A file that a child program may write its output to.
HANDLE CreateOutputFile(const std::string& path) {
  SECURITY_ATTRIBUTES inherited{sizeof inherited, nullptr, TRUE};
  return CreateFileA(path.c_str(), GENERIC_WRITE, FILE_SHARE_READ, &inherited, CREATE_ALWAYS,
                     FILE_ATTRIBUTE_NORMAL, nullptr);
}

int WaitForStatus(const PROCESS_INFORMATION& process) {
  WaitForSingleObject(process.hProcess, INFINITE);
  DWORD status = 0;
  GetExitCodeProcess(process.hProcess, &status);
  CloseHandle(process.hThread);
  CloseHandle(process.hProcess);
  return static_cast<int>(status);
}

}  // namespace

const char* const kLibraryFile = "Quillkit.dll";
const char* const kServerLibraryFile = "IMSPAPI.DLL";
const char* const kStartWithoutServerLibrary = "refused\n";

std::string ProgramFile(const std::string& name) {
  return name + ".exe";
}

std::string ProgramFolder() {
  std::array<char, MAX_PATH + 1> path{};
  GetModuleFileNameA(nullptr, path.data(), MAX_PATH);
  return std::filesystem::path(path.data()).parent_path().string();
}

bool IsLoaded(const char* file) {
  return GetModuleHandleA(file) != nullptr;
}

void ReportMessageBoxes() {
  SetWindowsHookExA(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
}

Outcome RunProgram(const std::string& folder, const std::string& name,
                   const std::string& argument) {
  const std::string path = folder + "\\" + ProgramFile(name);
  const std::string outputPath = path + ".output";
  std::string command = "\"" + path + "\" " + argument;
  STARTUPINFOA start{};
  start.cb = sizeof start;
  start.dwFlags = STARTF_USESTDHANDLES;
  start.hStdOutput = start.hStdError = CreateOutputFile(outputPath);
  PROCESS_INFORMATION process{};
  const BOOL started = CreateProcessA(path.c_str(), command.data(), nullptr, nullptr, TRUE, 0,
                                      nullptr, folder.c_str(), &start, &process);
  Outcome outcome{started != FALSE ? WaitForStatus(process) : -1, {}};
  CloseHandle(start.hStdOutput);
  std::ifstream output(outputPath);  // as text, whose lines end alike everywhere
  outcome.output.assign(std::istreambuf_iterator<char>(output), {});
  output.close();
  DeleteFileA(outputPath.c_str());
  return outcome;
}

}  // namespace quillkit
