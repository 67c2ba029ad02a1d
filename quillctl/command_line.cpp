#include "quillctl/command_line.h"

#include <optional>
#include <string>
#include <vector>

#include "quillctl/check_command.h"
#include "quillctl/commands.h"
#include "quillctl/completion.h"
#include "quillctl/demo_command.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/import_command.h"
#include "quillctl/info_command.h"
#include "quillctl/item_commands.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set_commands.h"
#include "quillctl/password.h"
#include "toolkit/version.h"

namespace quillctl {
namespace {

constexpr const char* kVersion = "quillctl " QUILLKIT_VERSION;

constexpr const char* kFooter =
    "These options stand before or behind the command; quillctl COMMAND --help tells its own.\n"
    "Without a password quillctl takes that of the variable QUILLCTL_PASSWORD, or asks for it, or\n"
    "takes the empty one where nobody can type.\n"
    "\n"
    "Exit status:\n"
    "  0  good\n"
    "  1  the appliance or the library refused, does not have what is named, or fails a check\n"
    "  2  the command line or a file cannot be carried out as it stands\n"
    "  3  an import of which some rows did not become entries\n"
    "  4  nobody could be logged in: no appliance is there, or it refused the account";

constexpr const char* kCommandFooter =
    "\nThe options for the login, and the exit statuses: quillctl --help";

// A run of each command.
struct Example {
  const char* command;
  const char* arguments;
};
constexpr Example kExamples[] = {
    {"info", "--host quillbox.example"},
    {"check", "--host quillbox.example --write"},
    {"keys", "--json"},
    {"add-key", "Accounting"},
    {"rename-key", "Archive Records"},
    {"delete-key", "Accounting"},
    {"items", "Desks"},
    {"find", "Inv"},
    {"add-item", "Desks Dora --address 10.0.4.24 --path /inbox"},
    {"edit-item", "Desks Agnes --address 10.0.4.25"},
    {"rename-item", "Desks Ewa \"Ewa Lind\""},
    {"move", "Desks Ewa --to Workshop"},
    {"delete-item", "Desks Ewa"},
    {"export", "keys.json"},
    {"apply", "keys.json --dry-run"},
    {"import", "contacts.csv --format csv --map 2,10 --skip-header"},
};

// For a program that has all its commands.
void AddHelpTexts(CLI::App& app) {
  app.footer(kFooter);
  app.set_version_flag("--version", kVersion, "Print the version and exit");
  for (const Example& each : kExamples) {
    CLI::App* command = app.get_subcommand(each.command);
    const std::string own = command->get_footer();
    command->footer("Example: quillctl " + command->get_name() + ' ' + each.arguments + '\n' +
                    (own.empty() ? "" : '\n' + own + '\n'));
  }
  for (CLI::App* command : app.get_subcommands(nullptr)) {
    command->footer(command->get_footer() + kCommandFooter);
  }
}

class Parser {
 public:
  Parser();

  void Run(int argc, const char* const* argv);

 private:
  void AddCredentials();
  void TakePassword();

  std::string WhatIsWrong(const CLI::ParseError& error) const;

  CLI::App app{"Looks after the soft keys and the address books of a Quillbox."};
  Commands commands{app};
  Credentials credentials;
  std::optional<std::string> passwordFile;
  bool passwordIsInput = false;
};

Parser::Parser() {
  app.name("quillctl");
  app.fallthrough();
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.require_subcommand(1);
  AddCredentials();
  for (const auto add :
       {AddInfoCommand, AddCheckCommand, AddKeyCommands, AddItemCommands, AddKeySetCommands,
        AddImportCommand, AddDemoCommand, AddCompletionCommand}) {
    add(commands);
  }
  AddHelpTexts(app);
}

void Parser::Run(int argc, const char* const* argv) {
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    app.exit(help);
    return;
  } catch (const CLI::ParseError& error) {
    throw UsageError(WhatIsWrong(error));
  }
  TakePassword();
  commands.Run(credentials);
}

void Parser::AddCredentials() {
  app.add_option("--host", credentials.host, "The appliance: a name or a dotted address")
      ->capture_default_str();
  app.add_option("--user", credentials.user, "The account")->capture_default_str();
  auto* option = app.add_option("--password", credentials.password,
                                "Its password; others may see it in the list of processes");
  auto* file = app.add_option("--password-file", passwordFile, "A file whose first line is it")
                   ->type_name("FILE")
                   ->excludes(option);
  app.add_flag("--password-stdin", passwordIsInput, "The first line of standard input is it")
      ->disable_flag_override()
      ->excludes(option)
      ->excludes(file);
  app.add_option("--third", credentials.third, "The third field of the login");
}

void Parser::TakePassword() {
  std::optional<std::string>& password = credentials.password;
  if (password) return;
  if (passwordFile) {
    password = PasswordInFile(*passwordFile);
  } else if (passwordIsInput) {
    password = PasswordInInput();
  } else {
    password = PasswordInEnvironment();
  }
}

// What CLI11 says quotes arguments that it does not expect; one may be a password that follows a
// misspelt option.
std::string Parser::WhatIsWrong(const CLI::ParseError& error) const {
  const std::vector<std::string> unexpected = app.remaining(true);
  if (unexpected.empty()) {
    const bool needsCommand = app.get_subcommands().empty() && error.get_name() == "RequiredError";
    return needsCommand ? "a command is needed; quillctl --help tells them" : error.what();
  }
  const std::string& first = unexpected.front();
  if (first.starts_with("--password")) return "unknown option that begins with --password";
  if (first.starts_with("--")) return "unknown option " + Quoted(first.substr(0, first.find('=')));
  if (first.starts_with('-')) return "unknown option " + Quoted(first.substr(0, 2));
  if (app.get_subcommands().empty()) return "unknown command";
  return "an argument too many; one with blanks needs quotes";
}

}  // namespace

void RunCommandLine(int argc, const char* const* argv) {
  Parser().Run(argc, argv);
}

}  // namespace quillctl
