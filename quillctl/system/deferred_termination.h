// Defers termination until the program has finished a task.

#ifndef QUILLCTL_SYSTEM_DEFERRED_TERMINATION_H_
#define QUILLCTL_SYSTEM_DEFERRED_TERMINATION_H_

namespace quillctl {

// While this object exists, it records requests to terminate the program, such as Ctrl-C. The first
// one prints to standard error what the program still does. A second request terminates; on POSIX,
// SIGHUP does not. Writing to a closed pipe fails and does not terminate. Only one object may exist
// at a time.
class DeferredTermination {
 public:
  // `reason` is what the program does before it stops, such as "finishing the import". It must be a
  // literal. Null: nothing is printed.
  explicit DeferredTermination(const char* reason);
  DeferredTermination(const DeferredTermination&) = delete;
  DeferredTermination& operator=(const DeferredTermination&) = delete;
  ~DeferredTermination();

  // Whether termination was requested.
  bool IsRequested() const;
};

}  // namespace quillctl

#endif  // QUILLCTL_SYSTEM_DEFERRED_TERMINATION_H_
