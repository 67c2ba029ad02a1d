// The start and the stop of the DLL. A failed start fails its loading.

#include <windows.h>

#include "toolkit/library.h"

// The static objects are constructed before the first call, and destroyed after the last.
extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, void* /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) {
    if (quillkit::StartLibrary()) return TRUE;
    quillkit::StopLibrary();
    return FALSE;
  }
  if (reason == DLL_PROCESS_DETACH) quillkit::StopLibrary();
  return TRUE;
}
