// The scope of a call of an exported function.

#ifndef QUILLKIT_PLATFORM_CALL_SCOPE_H_
#define QUILLKIT_PLATFORM_CALL_SCOPE_H_

namespace quillkit {

// Activates the library's module context on the calling thread, and restores the previous one at
// the end. Scopes nest. On Windows, nothing needs to be switched: resources are found through the
// library's own module handle. On POSIX, entering runs the thread's due timers.
class CallScope {
 public:
  CallScope();
  CallScope(const CallScope&) = delete;
  CallScope& operator=(const CallScope&) = delete;
  ~CallScope() = default;
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_CALL_SCOPE_H_
