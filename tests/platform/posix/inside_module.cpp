#include "tests/platform/inside_module.h"

#include <execinfo.h>
#include <link.h>

#include <algorithm>
#include <array>
#include <cstdint>

namespace quillkit {
namespace {

// A loaded module that contains an address.
struct Module {
  explicit Module(const void* inside) : address(reinterpret_cast<std::uintptr_t>(inside)) {
    dl_iterate_phdr(Search, this);
  }

  static int Search(dl_phdr_info* module, std::size_t /*size*/, void* found) {
    Module& self = *static_cast<Module*>(found);
    std::uintptr_t first = UINTPTR_MAX;
    std::uintptr_t last = 0;
    for (int i = 0; i < module->dlpi_phnum; ++i) {
      const auto& part = module->dlpi_phdr[i];
      if (part.p_type != PT_LOAD) continue;
      first = std::min<std::uintptr_t>(first, module->dlpi_addr + part.p_vaddr);
      last = std::max<std::uintptr_t>(last, module->dlpi_addr + part.p_vaddr + part.p_memsz);
    }
    if (self.address < first || self.address >= last) return 0;
    self.begin = first;
    self.end = last;
    return 1;
  }

  std::uintptr_t address;
  std::uintptr_t begin = 0;
  std::uintptr_t end = 0;
};

}  // namespace

bool IsInsideModuleOf(const void* address) {
  static Module module(address);
  if (module.address != reinterpret_cast<std::uintptr_t>(address)) module = Module(address);
  std::array<void*, 12> frames{};
  const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
  return std::any_of(frames.begin(), frames.begin() + count, [](const void* frame) {
    const auto at = reinterpret_cast<std::uintptr_t>(frame);
    return at >= module.begin && at < module.end;
  });
}

}  // namespace quillkit
