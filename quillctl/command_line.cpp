#include "quillctl/command_line.h"

#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "quillctl/check_command.h"
#include "quillctl/commands.h"
#include "quillctl/completion.h"
#include "quillctl/demo_command.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/help_texts.h"
#include "quillctl/info_command.h"
#include "quillctl/password.h"

namespace quillctl {
namespace {

// The simulated appliance's, as it is delivered.
constexpr const char* kSimulatedPassword = "quill";

class Parser {
 public:
  Parser();

  CommandLine Parse(int argc, const char* const* argv);

 private:
  void AddCredentials();
  void TakePassword();
  void AddInfoCommand();
  void AddCheckCommand();
  void AddDemoCommand();
  void AddCompletionCommand();

  std::string WhatIsWrong(const CLI::ParseError& error) const;

  CLI::App app_{"Looks after the soft keys and the address books of a Quillbox."};
  CommandLine line_;
  Commands commands_{app_, line_};
  std::optional<std::string> passwordFile_;
  bool passwordIsInput_ = false;
};

Parser::Parser() {
  app_.name("quillctl");
  app_.fallthrough();
  app_.allow_windows_style_options(false);  // a path may begin with a slash
  app_.require_subcommand(1);
  AddCredentials();
  AddInfoCommand();
  AddCheckCommand();
  AddKeyCommands(commands_);
  AddItemCommands(commands_);
  AddKeySetCommands(commands_);
  AddImportCommand(commands_);
  AddDemoCommand();
  AddCompletionCommand();
  AddHelpTexts(app_);
}

CommandLine Parser::Parse(int argc, const char* const* argv) {
  try {
    app_.parse(argc, argv);
  } catch (const CLI::Success& help) {
    app_.exit(help);
    return {};
  } catch (const CLI::ParseError& error) {
    throw UsageError(WhatIsWrong(error));
  }
  TakePassword();
  return line_;
}

void Parser::AddCredentials() {
  Credentials& into = line_.credentials;
  app_.add_option("--host", into.host, "The appliance: a name or a dotted address")
      ->capture_default_str();
  app_.add_option("--user", into.user, "The account")->capture_default_str();
  auto* password = app_.add_option("--password", into.password,
                                   "Its password; others may see it in the list of processes");
  auto* file = app_.add_option("--password-file", passwordFile_, "A file whose first line is it")
                   ->type_name("FILE")
                   ->excludes(password);
  app_.add_flag("--password-stdin", passwordIsInput_, "The first line of standard input is it")
      ->disable_flag_override()
      ->excludes(password)
      ->excludes(file);
  app_.add_option("--third", into.third, "The third field of the login");
}

void Parser::TakePassword() {
  std::optional<std::string>& password = line_.credentials.password;
  if (password) return;
  if (passwordFile_) {
    password = PasswordInFile(*passwordFile_);
  } else if (passwordIsInput_) {
    password = PasswordInInput();
  } else {
    password = PasswordInEnvironment();
  }
}

void Parser::AddInfoCommand() {
  const auto json = std::make_shared<bool>(false);
  CLI::App* info = commands_.Add("info", "Show the appliance and who is logged in",
                                 [json](Session& session) { ShowInfo(session, *json); });
  info->add_flag("--json", *json, "Show it as JSON");
}

void Parser::AddCheckCommand() {
  struct Arguments {
    bool write = false;
    bool json = false;
  };
  const auto a = std::make_shared<Arguments>();
  CLI::App* check =
      commands_.AddOffline("check", "Check that an appliance answers as the toolkit needs it",
                           [a](const Credentials& c) { CheckAppliance(c, a->write, a->json); });
  check->add_flag("--write", a->write,
                  "Also add a soft key of an unused name, change it and delete it again");
  check->add_flag("--json", a->json, "Show it as JSON");
}

void Parser::AddDemoCommand() {
  const auto folder = std::make_shared<std::string>(DemoDataFolder());
  CLI::App* demo =
      commands_.AddOffline("demo", "Show what Quillkit does; adds to the appliance's books",
                           [folder](const Credentials& given) {
                             Credentials credentials = given;
                             if (!credentials.password) credentials.password = kSimulatedPassword;
                             Session session(credentials);
                             RunDemo(session, *folder);
                           });
  demo->add_option("--data", *folder,
                   "The folder of the files to import, else those that came with quillctl");
}

void Parser::AddCompletionCommand() {
  const auto shell = std::make_shared<std::string>();
  CLI::App* completion = app_.add_subcommand(
      "completion", "Print a script by which a shell completes commands and options");
  completion->add_option("shell", *shell, "The shell")
      ->required()
      ->check(CLI::IsMember(CompletionShells()));
  completion->callback([this, shell] {
    line_.action = [script = CompletionScript(app_, *shell)](const Credentials&) {
      std::cout << script;
    };
  });
}

// What CLI11 says quotes arguments that it does not expect; one may be a password that follows a
// misspelt option.
std::string Parser::WhatIsWrong(const CLI::ParseError& error) const {
  const std::vector<std::string> unexpected = app_.remaining(true);
  if (unexpected.empty()) {
    const bool needsCommand = app_.get_subcommands().empty() && error.get_name() == "RequiredError";
    return needsCommand ? "a command is needed; quillctl --help tells them" : error.what();
  }
  const std::string& first = unexpected.front();
  if (first.starts_with("--password")) return "unknown option that begins with --password";
  if (first.starts_with("--")) return "unknown option " + Quoted(first.substr(0, first.find('=')));
  if (first.starts_with('-')) return "unknown option " + Quoted(first.substr(0, 2));
  if (app_.get_subcommands().empty()) return "unknown command";
  return "an argument too many; one with blanks needs quotes";
}

}  // namespace

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  return Parser().Parse(argc, argv);
}

}  // namespace quillctl
