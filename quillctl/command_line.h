// The command line of quillctl.

#ifndef QUILLCTL_COMMAND_LINE_H_
#define QUILLCTL_COMMAND_LINE_H_

namespace quillctl {

// Parses the command line and runs the command, or prints the requested help. Logs in first if the
// command needs it. Throws a UsageError for an invalid command line; its text contains no value
// that may be a password. Otherwise throws what the command throws.
void RunCommandLine(int argc, const char* const* argv);

}  // namespace quillctl

#endif  // QUILLCTL_COMMAND_LINE_H_
