#include "platform/forked_child.h"

#include <pthread.h>

namespace quillkit {
namespace {

// Written only in a child, before its only thread continues.
constinit bool isForkedChild = false;

[[maybe_unused]] const int watched = pthread_atfork(nullptr, nullptr, [] { isForkedChild = true; });

}  // namespace

bool IsForkedChild() {
  return isForkedChild;
}

}  // namespace quillkit
