// The start and the stop of the DLL. A failed start fails its loading.

#include <windows.h>

#include "platform/win32/process_end.h"
#include "toolkit/toolkit_app.h"

// Static objects are constructed before the first call and destroyed after the last one. Everything
// runs under the loader lock of the system, where the start loads the server library and may show a
// message box: no other thread of the application may wait for it. `reserved` is not null if the
// process ends, otherwise the DLL is unloaded. At the end of the process the server library is not
// called.
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
