// The start and the stop of the DLL. If the start fails, the DLL is not loaded.

#include <windows.h>

#include "platform/win32/process_end.h"
#include "toolkit/toolkit_app.h"

// Static objects are constructed before the first call and destroyed after the last one. Everything
// runs under the loader lock of the system. The start loads the server library and may show a
// message box: until the user closes it, every other thread that needs the lock waits. At the stop,
// `reserved` is not null if the process ends, and null if the DLL is unloaded. At the end of the
// process the server library is not called.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, void* reserved) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (quillkit::CToolkitApp::Start()) return TRUE;
    quillkit::CToolkitApp::Stop();
    return FALSE;
  }
  if (reason == DLL_PROCESS_DETACH) {
    if (reserved != nullptr) quillkit::DisableModules();
    quillkit::CToolkitApp::Stop();
  }
  return TRUE;
}
