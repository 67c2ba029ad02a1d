// The exception that commands throw on failure, and the exit statuses.

#ifndef QUILLBOX_FAILURE_H_
#define QUILLBOX_FAILURE_H_

#include <stdexcept>
#include <string>

namespace quillbox {

inline constexpr int kExitFailed = 1;
inline constexpr int kExitUsage = 2;
// Statuses of `quillbox run`, which otherwise has the status of the application.
inline constexpr int kExitUnfired = 123;
inline constexpr int kExitUnused = 124;
inline constexpr int kExitNotStarted = 125;

// The text is shown to the user.
class CommandFailure : public std::runtime_error {
 public:
  explicit CommandFailure(const std::string& text, int exitStatus = kExitFailed)
      : runtime_error(text), status(exitStatus) {}

  int ExitStatus() const { return status; }

 private:
  int status;
};

// Throws a CommandFailure "SUBJECT: FAULT" unless the fault is empty.
inline void Require(const std::string& subject, const std::string& fault,
                    int exitStatus = kExitFailed) {
  if (!fault.empty()) throw CommandFailure(subject + ": " + fault, exitStatus);
}

}  // namespace quillbox

#endif  // QUILLBOX_FAILURE_H_
