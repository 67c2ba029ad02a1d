#include "tests/platform/posix/inside_module.h"

#include <dlfcn.h>
#include <execinfo.h>

#include <algorithm>
#include <array>

namespace quillkit {

bool IsInsideModuleOf(const void* address) {
  const auto baseInMemory = [](const void* place) {
    Dl_info info{};
    return dladdr(place, &info) != 0 ? info.dli_fbase : nullptr;
  };
  const void* const base = baseInMemory(address);
  std::array<void*, 128> frames{};
  const int count = backtrace(frames.data(), static_cast<int>(frames.size()));
  return std::any_of(frames.begin(), frames.begin() + count,
                     [&](const void* frame) { return baseInMemory(frame) == base; });
}

}  // namespace quillkit
