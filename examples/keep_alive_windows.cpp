// Keeping the session alive in a Windows message loop, which needs no code for it: the keep-alive
// is a message timer of the thread that logged in. The appliance ends a session after two
// seconds without a call; the loop runs for three.

#include <windows.h>

#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "simulator/simulator.h"
#include "toolkit/quillkit.h"

namespace {

void CALLBACK EndLoop(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
  KillTimer(nullptr, timer);
  PostQuitMessage(0);
}

// The loop of any Windows application. A modal dialog or message box runs such a loop, too.
void RunMessageLoop() {
  MSG message;
  while (GetMessage(&message, nullptr, 0, 0) > 0) {
    TranslateMessage(&message);
    DispatchMessage(&message);
  }
}

}  // namespace

int main() {
  using namespace quillkit;
  SimulatorSetWakeupPeriod(2'000);
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
  if (box == nullptr || SetTimer(nullptr, 0, 3'000, EndLoop) == 0) return EXIT_FAILURE;

  SimulatorRecordCalls(1);  // the keep-alives alone: the loop makes no other call
  RunMessageLoop();
  const std::int32_t sent = SimulatorCallCount();

  const std::int32_t status = LoadTopLevelAbook(GetTopLevelAbook(box), 0);
  std::cout << "keep-alives sent: " << (sent >= 2 ? "yes" : "no")
            << "\nstatus of the next call: " << status << '\n';
  Logout();
  Exit();
  return sent >= 2 && status == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
