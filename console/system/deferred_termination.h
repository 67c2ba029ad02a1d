// What happens when the program is asked to terminate, as by Ctrl-C.

#ifndef CONSOLE_SYSTEM_DEFERRED_TERMINATION_H_
#define CONSOLE_SYSTEM_DEFERRED_TERMINATION_H_

#include <cstddef>
#include <string>

namespace console {

// While this object exists, a request that terminates the program deletes the file first. At most
// four objects may exist at a time; a further one has no effect. On Windows, a file that is open is
// not deleted.
class DeletedOnTermination {
 public:
  explicit DeletedOnTermination(const std::string& path);
  DeletedOnTermination(const DeletedOnTermination&) = delete;
  DeletedOnTermination& operator=(const DeletedOnTermination&) = delete;
  ~DeletedOnTermination();

 private:
  std::size_t slot;
};

// While this object exists, it records requests to terminate the program, such as Ctrl-C. The first
// one prints to standard error what the program still does. A second request terminates; on POSIX,
// SIGHUP does not. Writing to a closed pipe fails and does not terminate. An object that is created
// while another exists records the same requests, and prints nothing.
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

 private:
  bool isFirst;
};

// Ends the process as the last request that a DeferredTermination recorded would have done, so that
// a shell stops, too. Returns if there was none. Call it after the work is done and its output is
// written.
void TerminateIfRequested();

}  // namespace console

#endif  // CONSOLE_SYSTEM_DEFERRED_TERMINATION_H_
