#include "platform/module.h"

#include <dlfcn.h>

#include <string>

namespace quillkit {
namespace {

// The folder of the file that contains this code, with its slash. Empty if the system knows the
// file without a folder.
std::string OwnFolder() {
  Dl_info info{};
  if (dladdr(reinterpret_cast<void*>(&OwnFolder), &info) == 0) return {};
  const std::string file = info.dli_fname;
  return file.substr(0, file.rfind('/') + 1);
}

}  // namespace

ModuleHandle LoadModule(const char* name) {
  const std::string file = std::string("lib") + name + ".so";
  if (ModuleHandle module = dlopen(file.c_str(), RTLD_NOW | RTLD_LOCAL)) return module;
  return dlopen((OwnFolder() + file).c_str(), RTLD_NOW | RTLD_LOCAL);
}

EntryPoint FindEntryPoint(ModuleHandle module, const char* name) {
  if (module == nullptr) return nullptr;
  return reinterpret_cast<EntryPoint>(dlsym(module, name));
}

void UnloadModule(ModuleHandle module) {
  if (module != nullptr) dlclose(module);
}

}  // namespace quillkit
