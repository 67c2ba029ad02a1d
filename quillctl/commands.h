// The list of commands, to which each family of commands adds its own.

#ifndef QUILLCTL_COMMANDS_H_
#define QUILLCTL_COMMANDS_H_

#include <CLI/CLI.hpp>

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "quillctl/session.h"

namespace quillctl {

class Commands {
 public:
  using Action = std::function<void(const Credentials&)>;

  // `program` must outlive this object.
  explicit Commands(CLI::App& program) : app(program), parsed(std::make_shared<Action>()) {}

  // A command, and where it stores the arguments that its options parse.
  template <class Arguments>
  struct Added {
    CLI::App* app;
    Arguments& arguments;
  };

  // Adds a command that owns its arguments and calls `run` with the Credentials, or with a Session
  // that it opens.
  template <class Context, class Arguments>
  Added<Arguments> Add(const char* name, const char* help,
                       void (*run)(const Context&, const Arguments&)) {
    const auto a = std::make_shared<Arguments>();
    return {AddWithoutLogin(name, help, [run, a](const Credentials& c) { run(Context(c), *a); }),
            *a};
  }

  // Adds a command that runs without a login. `action` can log in with the credentials.
  CLI::App* AddWithoutLogin(const char* name, const char* help, Action action);

  // Adds a command that consists of further commands. Returns the list to which these are added.
  Commands AddGroup(const char* name, const char* help);

  // Runs the command that was parsed.
  void Run(const Credentials& credentials) const { (*parsed)(credentials); }

 private:
  Commands(CLI::App& group, std::shared_ptr<Action> ofProgram)
      : app(group), parsed(std::move(ofProgram)) {}

  CLI::App& app;
  std::shared_ptr<Action> parsed;
};

// Requires the name of a key, an item or an entry as the option's value.
CLI::Option* AsName(CLI::Option* option);

// Adds a required argument that names a key, an item or an entry.
CLI::Option* AddName(CLI::App* command, const char* title, std::string& into, const char* help);

// Add the commands of each family.
void AddKeyCommands(Commands& commands);
void AddItemCommands(Commands& commands);
void AddBookCommands(Commands& commands);
void AddEntryCommands(Commands& commands);
void AddListCommands(Commands& commands);
void AddUserCommands(Commands& commands);
void AddPrinterCommands(Commands& commands);
void AddLogCommands(Commands& commands);
void AddDatabaseCommands(Commands& commands);
void AddPrivateCommands(Commands& commands);
void AddConfigCommands(Commands& commands);
void AddCheckCommand(Commands& commands);
void AddInfoCommand(Commands& commands);
void AddDemoCommand(Commands& commands);
void AddCompletionCommand(Commands& commands);

// Prints the words that may replace the last one of an incomplete command line, each on a line.
void PrintCompletions(const CLI::App& program, std::span<const std::string> words);

// Adds `entry import`.
void AddImportCommand(Commands& entry);

}  // namespace quillctl

#endif  // QUILLCTL_COMMANDS_H_
