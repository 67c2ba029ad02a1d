// Messages for an invalid command line.

#ifndef CONSOLE_PARSE_ERROR_H_
#define CONSOLE_PARSE_ERROR_H_

#include <CLI/CLI.hpp>

#include <string>
#include <vector>

namespace console {

// Returns the message for an error that the program's parser has thrown for these arguments. It
// repeats an unknown command or option, suggests the nearest one, and contains no value that may be
// a password.
std::string ParseErrorText(const CLI::App& program, const CLI::ParseError& error,
                           const std::vector<std::string>& arguments);

}  // namespace console

#endif  // CONSOLE_PARSE_ERROR_H_
