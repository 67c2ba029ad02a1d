// The commands of quillctl as they are added to its command line. Each family has a file of its
// own.

#ifndef QUILLKIT_EXAMPLES_COMMANDS_H_
#define QUILLKIT_EXAMPLES_COMMANDS_H_

#include <CLI/CLI.hpp>

#include <functional>
#include <string>

#include "quillctl/command_line.h"

namespace quillctl {

class Commands {
 public:
  // Both stay as long as this object and what it made.
  Commands(CLI::App& app, CommandLine& line) : app_(app), line_(line) {}

  // Adds a command that logs in and then runs `action`.
  CLI::App* Add(const char* name, const char* help, std::function<void(Session&)> action);

  // Adds a command that decides itself whether it logs in.
  CLI::App* AddOffline(const char* name, const char* help, CommandLine::Action action);

  CLI::App& app() { return app_; }

 private:
  CLI::App& app_;
  CommandLine& line_;
};

// A positional argument that names a key or an item.
CLI::Option* AddName(CLI::App* command, const char* title, std::string& into, const char* help);

void AddKeyCommands(Commands& commands);
void AddItemCommands(Commands& commands);
void AddKeySetCommands(Commands& commands);
void AddImportCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_COMMANDS_H_
