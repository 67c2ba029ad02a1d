// The command line of quillctl.

#ifndef QUILLKIT_EXAMPLES_COMMAND_LINE_H_
#define QUILLKIT_EXAMPLES_COMMAND_LINE_H_

#include <functional>

#include "quillctl/session.h"

namespace quillctl {

struct CommandLine {
  // Carries a command out, with a login where it needs one.
  using Action = std::function<void(const Credentials&)>;

  Credentials credentials;
  Action action;  // empty when help was asked for, which is then printed
};

// Throws a UsageError. Its text tells no argument's value that may be a password.
CommandLine ParseCommandLine(int argc, const char* const* argv);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_COMMAND_LINE_H_
