// The command line of quillctl.

#ifndef QUILLCTL_COMMAND_LINE_H_
#define QUILLCTL_COMMAND_LINE_H_

namespace quillctl {

// Parses the command line and runs the command, with a login where it needs one, or prints the help
// that is asked for. Throws a UsageError for an invalid command line; its text contains no value
// that may be a password. Otherwise throws as the command does.
void RunCommandLine(int argc, const char* const* argv);

}  // namespace quillctl

#endif  // QUILLCTL_COMMAND_LINE_H_
