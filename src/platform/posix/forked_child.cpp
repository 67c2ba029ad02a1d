#include "platform/forked_child.h"

#include <pthread.h>

namespace quillkit {
namespace {

// Written in a child alone, before its only thread goes on.
constinit bool isForkedChild = false;

[[maybe_unused]] const int watched = pthread_atfork(nullptr, nullptr, [] { isForkedChild = true; });

}  // namespace

bool IsForkedChild() {
  return isForkedChild;
}

}  // namespace quillkit
