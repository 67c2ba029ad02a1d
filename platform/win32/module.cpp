#include "platform/module.h"

#include <windows.h>

#include <string>

namespace quillkit {

ModuleHandle LoadModule(const char* name) {
  return LoadLibraryA((std::string(name) + ".DLL").c_str());
}

EntryPoint FindEntryPoint(ModuleHandle module, const char* name) {
  if (module == nullptr) return nullptr;
  return reinterpret_cast<EntryPoint>(GetProcAddress(static_cast<HMODULE>(module), name));
}

void UnloadModule(ModuleHandle module) {
  if (module != nullptr) FreeLibrary(static_cast<HMODULE>(module));
}

}  // namespace quillkit
