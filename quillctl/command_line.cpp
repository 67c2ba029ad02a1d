#include "quillctl/command_line.h"

#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "console/displayed_text.h"
#include "console/options.h"
#include "console/parse_error.h"
#include "console/password.h"
#include "console/progress.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
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
    "  1  the appliance or the library refused the operation, a check failed, the user did not\n"
    "     confirm, or a file or the output cannot be written\n"
    "  2  the command line or an input file is invalid, or --yes is missing without a terminal\n"
    "  3  only a part was done: some rows were not imported, or some changes were not made; also\n"
    "     if an interrupted command reports what it did before\n"
    "  4  the login failed: the appliance cannot be reached, or it refused the account\n"
    "  5  it is unknown what a command changed: the result cannot be read\n"
    "  6  something that the command names does not exist on the appliance\n"
    "  7  config diff: the appliance differs from the file";

constexpr const char* kCommandFooter =
    "\nFor the login options and the exit statuses, see quillctl --help";

// Examples for the help of commands.
constexpr const char* kExamples[] = {
    "info --host quillbox.example",
    "check --host quillbox.example --write",
    "key list --json",
    "key add Accounting",
    "key rename Archive Records",
    "key delete Accounting",
    "item list Desks",
    "item find Inv",
    "item show Desks Agnes",
    "item add Desks Dora --address 10.0.4.24 --path /inbox",
    "item edit Desks Agnes --address 10.0.4.25",
    "item rename Desks Ewa \"Ewa Lind\"",
    "item move Desks Ewa --to Workshop",
    "item delete Desks Ewa",
    "config export keys.json",
    "config diff keys.json",
    "config apply keys.json --dry-run",
    "entry list email --from \"All staff\" --limit 20",
    "entry find email Agnes",
    "entry add email \"Ann Lee\" --address ann@example.com",
    "entry edit email \"Ann Lee\" --address lee@example.com",
    "entry export email contacts.csv --spreadsheet",
    "list list email",
    "list show email Minutes",
    "list create email Sales Archive Invoices",
    "list rename email Minutes Protocols",
    "list copy email Minutes Board",
    "list delete email Minutes",
    "list add email Minutes Archive",
    "list remove email Minutes Archive",
    "entry import contacts.csv --format csv --map 2,10 --skip-header",
    "user add Dora --new-password-file password.txt --third-text 10.0.4.24",
    "user edit \"Agnes Moreau\" --fourth-text Reception",
    "user rename \"Agnes Moreau\" \"Agnes Laurent\"",
    "printer default Workshop",
    "log count \"Agnes Moreau\"",
    "log clear --except-system",
    "database backup before-update \"\"",
    "private backup --user \"Ewa Nowicka\" ewa.book",
    "private restore --user \"Ewa Nowicka\" ewa.book",
};

// Returns the command that the example begins with.
CLI::App* CommandOf(CLI::App& app, const std::string& example) {
  CLI::App* command = &app;
  for (const std::string& word : CLI::detail::split(example, ' ')) {
    const std::vector<CLI::App*> commands = command->get_subcommands(nullptr);
    const auto found = std::ranges::find(commands, word, &CLI::App::get_name);
    if (found == commands.end()) break;
    command = *found;
  }
  return command;
}

void AddCommandFooters(CLI::App& app) {
  for (CLI::App* command : app.get_subcommands(nullptr)) {
    command->footer(command->get_footer() + kCommandFooter);
    AddCommandFooters(*command);
  }
}

// Call this after all commands have been added.
void AddHelpTexts(CLI::App& app) {
  app.footer(kFooter);
  app.set_version_flag("--version", kVersion, "Print the version and exit");
  for (const std::string example : kExamples) {
    CLI::App* command = CommandOf(app, example);
    const std::string own = command->get_footer();
    command->footer("Example: quillctl " + example + '\n' + (own.empty() ? "" : '\n' + own + '\n'));
  }
  AddCommandFooters(app);
}

class Parser {
 public:
  Parser();

  void Run(int argc, const char* const* argv);

 private:
  void AddOptions();
  void ReadPassword();

  CLI::App app{"Manage the soft keys and address books of a Quillbox."};
  Commands commands{app};
  Credentials credentials;
  std::optional<std::string> passwordFile;
  bool passwordFromStdin = false;
  bool isQuiet = false;
  std::string displayEncoding;
  std::vector<std::string> arguments;
};

Parser::Parser() {
  app.name("quillctl");
  app.fallthrough();
  app.allow_windows_style_options(false);  // a path may begin with a slash
  app.require_subcommand(1);
  AddOptions();
  for (const auto add : {AddInfoCommand, AddCheckCommand, AddKeyCommands, AddItemCommands,
                         AddConfigCommands, AddBookCommands, AddEntryCommands, AddListCommands,
                         AddUserCommands, AddPrinterCommands, AddLogCommands, AddDatabaseCommands,
                         AddPrivateCommands, AddDemoCommand, AddCompletionCommand}) {
    add(commands);
  }
  AddHelpTexts(app);
  console::RefuseValuesOfFlags(app);
}

void Parser::Run(int argc, const char* const* argv) {
  arguments.assign(argv, argv + argc);
  if (argc > 1 && arguments[1] == "complete") {
    PrintCompletions(app, std::span(arguments).subspan(2));
    return;
  }
  try {
    app.parse(argc, argv);
  } catch (const CLI::Success& help) {
    app.exit(help);
    return;
  } catch (const CLI::ParseError& error) {
    throw UsageError(console::ParseErrorText(app, error, arguments));
  }
  if (isQuiet) console::Progress::Silence();
  if (!displayEncoding.empty()) console::SetDisplayEncoding(displayEncoding);
  ReadPassword();
  commands.Run(credentials);
}

void Parser::AddOptions() {
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
      ->excludes(option)
      ->excludes(file);
  app.add_option("--third", credentials.third,
                 "The third text of the account record, at most 255 bytes");
  app.add_flag("--quiet", isQuiet, "Do not show progress on the terminal");
  app.add_option("--display-encoding", displayEncoding,
                 "The character set of the appliance's texts (default: UTF-8 where a text is valid "
                 "UTF-8, otherwise Windows-1252)")
      ->check(CLI::IsMember(console::DisplayEncodings()));
}

void Parser::ReadPassword() {
  std::optional<std::string>& password = credentials.password;
  if (password) return;
  if (passwordFile) {
    password = console::PasswordFromFile(*passwordFile, "--password-file");
  } else if (passwordFromStdin) {
    password = console::PasswordFromStdin();
  } else {
    password = console::PasswordFromEnvironment();
  }
}

}  // namespace

void RunCommandLine(int argc, const char* const* argv) {
  Parser().Run(argc, argv);
}

}  // namespace quillctl
