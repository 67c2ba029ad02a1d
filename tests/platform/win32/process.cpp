#include "tests/platform/process.h"

#include <windows.h>

#include <array>
#include <cstdio>

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

}  // namespace

const char* const kLibraryFile = "Quillkit.dll";
const char* const kServerLibraryFile = "IMSPAPI.DLL";
const char* const kProbeFile = "quillkit_start_probe.exe";
const char* const kStartWithoutServerLibrary = "refused\n";

bool IsLoaded(const char* file) {
  return GetModuleHandleA(file) != nullptr;
}

void ReportMessageBoxes() {
  SetWindowsHookExA(WH_CBT, OnWindowEvent, nullptr, GetCurrentThreadId());
}

// A timer that is due again after each run does not block the caller.
int DispatchTimers() {
  int timers = 0;
  for (MSG message; timers < 4 && PeekMessageA(&message, nullptr, 0, 0, PM_REMOVE) != 0;) {
    if (message.message == WM_TIMER) ++timers;
    DispatchMessageA(&message);
  }
  return timers;
}

int StatusInForkedChild(int (* /*work*/)()) {
  return 0;
}

bool InterruptSoon(void (* /*handler*/)(int)) {
  return false;
}

}  // namespace quillkit
