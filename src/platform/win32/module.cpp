#include "platform/module.h"

#include <windows.h>

#include <string>

#include "platform/win32/process_end.h"

namespace quillkit {
namespace {

// Whether other modules may have been detached before this one.
bool processEnds = false;

}  // namespace

void DisableModules() {
  processEnds = true;
}

ModuleHandle LoadModule(const char* name) {
  return LoadLibraryA((std::string(name) + ".DLL").c_str());
}

EntryPoint FindEntryPoint(ModuleHandle module, const char* name) {
  if (module == nullptr || processEnds) return nullptr;
  return reinterpret_cast<EntryPoint>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void UnloadModule(ModuleHandle module) {
  if (module != nullptr && !processEnds) FreeLibrary(static_cast<HMODULE>(module));
}

}  // namespace quillkit
