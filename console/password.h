// Sources of the password other than the command line.

#ifndef CONSOLE_PASSWORD_H_
#define CONSOLE_PASSWORD_H_

#include <optional>
#include <string>

namespace console {

// Return the first line of a file, which `option` names, or of standard input, also for "-". Throw
// a UsageError if there is none, and if it contains a NUL, because the library ignores what follows
// it.
std::string PasswordFromFile(const std::string& path, const std::string& option);
std::string PasswordFromStdin();

// Returns the value of QUILLCTL_PASSWORD, or none if it is not set or empty.
std::optional<std::string> PasswordFromEnvironment();

// Asks the user at the terminal, without echo, for the password that `title` describes. Returns an
// empty password if standard input is not a terminal: the account GUEST has no password. Throws a
// UsageError as the other functions do.
std::string AskForPassword(const std::string& title);

// Asks twice for the new password of an account. Throws a UsageError also if the answers differ,
// and if standard input is not a terminal.
std::string AskForNewPassword(const std::string& account);

}  // namespace console

#endif  // CONSOLE_PASSWORD_H_
