#include "quillctl/command_line.h"

#include <optional>
#include <string>
#include <vector>

#include "quillctl/commands.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/password.h"
#include "toolkit/version.h"

namespace quillctl {
namespace {

constexpr const char* kVersion = "quillctl " QUILLKIT_VERSION;

constexpr const char* kFooter =
    "These options can be given before or after the command. Each command has more options; see\n"
    "quillctl COMMAND --help. If no option gives a password, quillctl uses the environment "
    "variable\n"
    "QUILLCTL_PASSWORD. If that is not set or is empty, it asks at the terminal; without a\n"
    "terminal, the password is empty.\n"
    "\n"
    "Exit status:\n"
    "  0  success\n"
    "  1  the appliance or the library refused the operation, a key or an item does not exist, a\n"
    "     check failed, the command was interrupted or not confirmed, or a file or the output\n"
    "     cannot be written\n"
    "  2  the command line or an input file is invalid\n"
    "  3  some rows of a file were not imported\n"
    "  4  the login failed: the appliance cannot be reached, or it refused the account\n"
    "  5  it is unknown which rows an import added: the address book could not be read";

constexpr const char* kCommandFooter =
    "\nFor the login options and the exit statuses, see quillctl --help";

// An example for the help of a command.
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

// Call this after all commands have been added.
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
    for (CLI::App* each : command->get_subcommands(nullptr)) each->footer(kCommandFooter);
  }
}

class Parser {
 public:
  Parser();

  void Run(int argc, const char* const* argv);

 private:
  void AddCredentials();
  void ReadPassword();

  std::string HelpOfMissingCommand() const;
  std::string ErrorText(const CLI::ParseError& error) const;

  CLI::App app{"Manage the soft keys and address books of a Quillbox."};
  Commands commands{app};
  Credentials credentials;
  std::optional<std::string> passwordFile;
  bool passwordFromStdin = false;
};

Parser::Parser() {
  app.name("quillctl");
  app.fallthrough();
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.require_subcommand(1);
  AddCredentials();
  for (const auto add : {AddInfoCommand, AddCheckCommand, AddKeyCommands, AddItemCommands,
                         AddKeySetCommands, AddBookCommands, AddEntryCommands, AddImportCommand,
                         AddDemoCommand, AddCompletionCommand}) {
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
    throw UsageError(ErrorText(error));
  }
  ReadPassword();
  commands.Run(credentials);
}

void Parser::AddCredentials() {
  app.add_option("--host", credentials.host, "The appliance: a name or a dotted address")
      ->capture_default_str();
  app.add_option("--user", credentials.user, "The account name")->capture_default_str();
  auto* option = app.add_option("--password", credentials.password,
                                "The password; other users may see it in the process list");
  auto* file = app.add_option("--password-file", passwordFile,
                              "Read the password from the first line of a file")
                   ->type_name("FILE")
                   ->excludes(option);
  app.add_flag("--password-stdin", passwordFromStdin,
               "Read the password from the first line of standard input")
      ->disable_flag_override()
      ->excludes(option)
      ->excludes(file);
  app.add_option("--third", credentials.third,
                 "The third text of the account record, at most 255 characters");
}

void Parser::ReadPassword() {
  std::optional<std::string>& password = credentials.password;
  if (password) return;
  if (passwordFile) {
    password = PasswordFromFile(*passwordFile);
  } else if (passwordFromStdin) {
    password = PasswordFromStdin();
  } else {
    password = PasswordFromEnvironment();
  }
}

// If the command or its second word is missing, returns the command line whose help lists the
// possible words; otherwise an empty text.
std::string Parser::HelpOfMissingCommand() const {
  const std::vector<CLI::App*> parsed = app.get_subcommands();
  if (parsed.empty()) return "quillctl --help";
  const CLI::App& command = *parsed.front();
  const bool isGroup = !command.get_subcommands(nullptr).empty();
  if (!isGroup || !command.get_subcommands().empty()) return {};
  return "quillctl " + command.get_name() + " --help";
}

// Messages of CLI11 quote unexpected arguments. One of them may be a password after a misspelt
// option.
std::string Parser::ErrorText(const CLI::ParseError& error) const {
  const std::vector<std::string> unexpected = app.remaining(true);
  if (unexpected.empty()) {
    const std::string help = HelpOfMissingCommand();
    const bool isMissing = !help.empty() && error.get_name() == "RequiredError";
    return isMissing ? "missing command; see " + help : error.what();
  }
  const std::string& first = unexpected.front();
  if (first.starts_with("--password")) return "unknown option that begins with --password";
  if (first.starts_with("--")) return "unknown option " + Quoted(first.substr(0, first.find('=')));
  if (first.starts_with('-')) return "unknown option " + Quoted(first.substr(0, 2));
  const std::string help = HelpOfMissingCommand();
  if (!help.empty()) return "unknown command; see " + help;
  return "unexpected argument; quote arguments that contain spaces";
}

}  // namespace

void RunCommandLine(int argc, const char* const* argv) {
  Parser().Run(argc, argv);
}

}  // namespace quillctl
