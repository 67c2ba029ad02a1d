#include "platform/forked_child.h"

namespace quillkit {

bool IsForkedChild() {
  return false;
}

}  // namespace quillkit
