// Confirmation by the user before something is deleted, cleared or overwritten.

#ifndef QUILLCTL_CONFIRMATION_H_
#define QUILLCTL_CONFIRMATION_H_

#include <CLI/CLI.hpp>

#include <string>

namespace quillctl {

// Adds --yes.
CLI::Option* AddYes(CLI::App* command, bool& into);

// Returns if `yes` is set. Otherwise prints the question, such as "Delete 3 entries?", and waits
// for the answer; the session is kept alive meanwhile. Throws a Refusal if the answer is not "y" or
// "yes", and a UsageError if standard input is not a terminal.
void Confirm(bool yes, const std::string& question);

// Confirms that the file is overwritten. Returns at once if there is no such file, or if it is not
// a regular file, such as a pipe. `path` is empty or "-" for standard output.
void ConfirmOverwrite(bool yes, const std::string& path);

}  // namespace quillctl

#endif  // QUILLCTL_CONFIRMATION_H_
