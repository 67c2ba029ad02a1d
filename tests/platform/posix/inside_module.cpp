#include "tests/platform/posix/inside_module.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <array>

namespace quillkit {
namespace {

// Where the module begins in memory.
void* BaseOf(const void* address) {
  Dl_info info{};
  return dladdr(address, &info) != 0 ? info.dli_fbase : nullptr;
}

}  // namespace

bool IsInsideModuleOf(const void* address) {
  std::array<void*, 128> frames{};
  const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
  const void* const base = BaseOf(address);
  return std::any_of(frames.begin(), frames.begin() + count,
                     [&](const void* frame) { return BaseOf(frame) == base; });
}

}  // namespace quillkit
