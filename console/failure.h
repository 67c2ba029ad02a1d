// The exceptions that commands throw on failure. The text is shown to the user; each type has its
// exit status.

#ifndef CONSOLE_FAILURE_H_
#define CONSOLE_FAILURE_H_

#include <stdexcept>
#include <string>

namespace console {

inline constexpr int kExitSuccess = 0;
inline constexpr int kExitRefused = 1;
inline constexpr int kExitUsage = 2;

// A failure with its exit status.
class Failure : public std::runtime_error {
 public:
  Failure(const std::string& text, int exitStatus) : runtime_error(text), status(exitStatus) {}

  int ExitStatus() const { return status; }

 private:
  int status;
};

// A Base with an exit status of its own.
template <class Base, int kStatus>
class FailureWith : public Base {
 public:
  explicit FailureWith(const std::string& text, int exitStatus = kStatus)
      : Base(text, exitStatus) {}
};

// What was asked for was refused, a check failed, or a file cannot be written.
using Refusal = FailureWith<Failure, kExitRefused>;

// The command line or an input file is invalid.
using UsageError = FailureWith<Failure, kExitUsage>;

}  // namespace console

#endif  // CONSOLE_FAILURE_H_
