// The exit statuses of quillbox that other programs do not have, and its failures.

#ifndef QUILLBOX_FAILURE_H_
#define QUILLBOX_FAILURE_H_

#include <string>

#include "console/failure.h"

namespace quillbox {

// Statuses of `quillbox run`, which otherwise has the status of the application.
inline constexpr int kExitUnfired = 123;
inline constexpr int kExitUnused = 124;
inline constexpr int kExitNotStarted = 125;

// Throws a failure "SUBJECT: FAULT" unless the fault is empty.
inline void Require(const std::string& subject, const std::string& fault,
                    int exitStatus = console::kExitRefused) {
  if (!fault.empty()) throw console::Failure(subject + ": " + fault, exitStatus);
}

}  // namespace quillbox

#endif  // QUILLBOX_FAILURE_H_
