// The scope of a call of an exported function.

#ifndef QUILLKIT_PLATFORM_CALL_SCOPE_H_
#define QUILLKIT_PLATFORM_CALL_SCOPE_H_

namespace quillkit {

// Created at the start of every exported function. On POSIX, the constructor runs the due timers of
// the thread. On Windows it does nothing: resources are found through the library's own module
// handle. Scopes may nest.
class CallScope {
 public:
  CallScope();
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;
  ~CallScope() = default;
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_CALL_SCOPE_H_
