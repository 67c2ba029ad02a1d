// The start and the stop of the DLL. A failed start fails its loading.

#include <windows.h>

#include "platform/win32/process_end.h"
#include "toolkit/toolkit_app.h"

// The static objects are constructed before the first call, and destroyed after the last. All of it
// runs under the system's loader lock: the start loads the server library and may show a message
// box there, which no other thread of the application may wait for. `reserved` is not null when the
// process ends rather than the DLL is unloaded; the server library then hears nothing.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (quillkit::CToolkitApp::Start()) return TRUE;
    quillkit::CToolkitApp::Stop();
    return FALSE;
  }
  if (reason == DLL_PROCESS_DETACH) {
    if (reserved != nullptr) quillkit::LeaveModulesAlone();
    quillkit::CToolkitApp::Stop();
  }
  return TRUE;
}
