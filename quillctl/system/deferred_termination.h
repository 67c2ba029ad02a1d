// Defers termination until the program has finished a task.

#ifndef QUILLCTL_SYSTEM_DEFERRED_TERMINATION_H_
#define QUILLCTL_SYSTEM_DEFERRED_TERMINATION_H_

namespace quillctl {

// While this object exists, it records requests to terminate the program, such as Ctrl-C. A second
// request terminates; on POSIX, SIGHUP does not. Writing to a closed pipe fails and does not
// terminate. Only one object may exist at a time.
class DeferredTermination {
 public:
  DeferredTermination();
  DeferredTermination(const DeferredTermination&) = delete;
  DeferredTermination& operator=(const DeferredTermination&) = delete;
  ~DeferredTermination();

  // Whether termination was requested.
  bool IsRequested() const;
};

}  // namespace quillctl

#endif  // QUILLCTL_SYSTEM_DEFERRED_TERMINATION_H_
