// Where a password comes from when it does not stand on the command line.

#ifndef QUILLCTL_PASSWORD_H_
#define QUILLCTL_PASSWORD_H_

#include <optional>
#include <string>

namespace quillctl {

// The first line of a file or of standard input. Throw a UsageError when there is none, and when it
// holds a character 0, behind which the library would not look.
std::string PasswordInFile(const std::string& path);
std::string PasswordInInput();

// The environment's, where it has one.
std::optional<std::string> PasswordInEnvironment();

// Asks whoever sits at the terminal, which does not show what is typed. Empty where standard input
// is no terminal: GUEST has no password. Throws a UsageError as the others do.
std::string AskForPassword(const std::string& user, const std::string& host);

}  // namespace quillctl

#endif  // QUILLCTL_PASSWORD_H_
