#include "quillctl/commands.h"

#include <utility>

namespace quillctl {
namespace {

std::string NameFault(const std::string& name) {
  return name.empty() || name.size() > 31 ? "a name must have 1 to 31 bytes" : "";
}

}  // namespace

CLI::App* Commands::AddWithoutLogin(const char* name, const char* help, Action action) {
  CLI::App* command = app.add_subcommand(name, help);
  command->callback([into = parsed, run = std::move(action)] { *into = run; });
  return command;
}

Commands Commands::AddGroup(const char* name, const char* help) {
  CLI::App* group = app.add_subcommand(name, help);
  group->require_subcommand(1);
  return {*group, parsed};
}

CLI::Option* AsName(CLI::Option* option) {
  return option->type_name("NAME")->check(NameFault, "");
}

CLI::Option* AddName(CLI::App* command, const char* title, std::string& into, const char* help) {
  return AsName(command->add_option(title, into, help)->required());
}

}  // namespace quillctl
