#include "tests/platform/inside_module.h"

namespace quillkit {

bool IsInsideModuleOf(const void* /*address*/) {
  return false;
}

}  // namespace quillkit
