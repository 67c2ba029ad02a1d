// What every exported function enters first and leaves last.

#ifndef QUILLKIT_PLATFORM_CALL_SCOPE_H_
#define QUILLKIT_PLATFORM_CALL_SCOPE_H_

namespace quillkit {

// Puts the library's own module context in force on the calling thread and restores the one it
// found; scopes nest. Neither platform needs a context switched: on Windows resources are looked up
// by the library's own module handle. On POSIX entering runs the thread's due timers.
class CallScope {
 public:
  CallScope();
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;
  ~CallScope() = default;
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_CALL_SCOPE_H_
