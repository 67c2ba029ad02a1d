// Options that commands share, and the names that a command line can contain.

#ifndef CONSOLE_OPTIONS_H_
#define CONSOLE_OPTIONS_H_

#include <CLI/CLI.hpp>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace console {

// Returns a check of a number's text. The error message gives the range.
CLI::Validator NumberInRange(std::uint32_t min, std::uint32_t max);

// Adds an option whose value is a number from `min` to `max`, in decimal or, after "0x", in
// hexadecimal digits. Number is an unsigned integer, or an optional one.
template <class Number>
CLI::Option* AddNumber(CLI::App* command, const char* title, Number& into, const char* help,
                       std::uint32_t min, std::uint32_t max) {
  return command->add_option(title, into, help)
      ->type_name("NUMBER")
      ->check(NumberInRange(min, max));
}

// Returns the long options of a command and of the program, each once, with "--".
std::vector<std::string> OptionNames(const CLI::App& command, const CLI::App& program);

// Returns the commands of a group, or of the program.
std::vector<std::string> CommandNames(const CLI::App& group);

// Makes every flag of the command, and of the commands below it, refuse a value. Otherwise a
// message could repeat what follows a mistyped "=".
void RefuseValuesOfFlags(CLI::App& command);

// Adds --json.
void AddJson(CLI::App* command, bool& into);

// Adds --json and --json-lines. Only one of them can be given.
void AddJsonLines(CLI::App* command, bool& json, bool& lines);

}  // namespace console

#endif  // CONSOLE_OPTIONS_H_
