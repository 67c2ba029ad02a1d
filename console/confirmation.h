// Confirmation by the user before something is deleted, cleared or overwritten.

#ifndef CONSOLE_CONFIRMATION_H_
#define CONSOLE_CONFIRMATION_H_

#include <CLI/CLI.hpp>

#include <string>

namespace console {

// Adds --yes.
CLI::Option* AddYes(CLI::App* command, bool& into);

// Returns if `yes` is set. Otherwise prints the question, such as "Delete 3 entries?", and waits
// for the answer; the session is kept alive meanwhile. Throws a Refusal if the answer is not "y" or
// "yes", and a UsageError if standard input is not a terminal.
void Confirm(bool yes, const std::string& question);

// How the user agrees to a command that deletes, clears or replaces more than one thing.
struct Consent {
  bool yes = false;
  bool dryRun = false;
};

// Adds --dry-run.
CLI::Option* AddDryRun(CLI::App* command, Consent& into);

// In a dry run prints what the action, such as "Delete 3 entries", would do. Returns whether it is
// a dry run.
bool IsDryRun(const Consent& consent, const std::string& action);

// Adds --yes and --dry-run. Only one of them can be given.
void AddConsent(CLI::App* command, Consent& into);

// Returns true after Confirm() with the action as a question, and false after IsDryRun().
bool Agreed(const Consent& consent, const std::string& action);

// Confirms that the file is overwritten. Returns at once for standard output, if there is no such
// file, or if it is not a regular file, such as a pipe.
void ConfirmOverwrite(bool yes, const std::string& path);

}  // namespace console

#endif  // CONSOLE_CONFIRMATION_H_
