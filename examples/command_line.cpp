#include "examples/command_line.h"

#include <CLI/CLI.hpp>

#include <filesystem>
#include <fstream>
#include <memory>

#include "examples/demo_command.h"
#include "examples/displayed_text.h"
#include "examples/failures.h"
#include "examples/import_command.h"
#include "examples/info_command.h"
#include "examples/item_commands.h"
#include "examples/key_commands.h"

namespace quillctl {
namespace {

constexpr const char* kFooter =
    "The options of quillctl itself (quillctl --help) stand before or behind the command.\n"
    "Exit status: 0 good; 1 the appliance or the library refused, or does not have what is named;\n"
    "2 the command line cannot be carried out as it stands.";

// The simulated appliance's, as it is delivered.
constexpr const char* kSimulatedPassword = "quill";

// Every command puts its arguments here, as only one runs. Its action keeps them alive.
struct Arguments {
  std::string passwordFile;
  std::string key;
  std::string oldName;
  std::string newName;
  ItemFields item;
  bool wholeName = false;
  ImportRequest import;
  std::string dataFolder;
};

// The first line of a file.
std::string ReadPassword(const std::string& path) {
  std::ifstream file(path);
  std::string password;
  if (!std::getline(file, password)) {
    throw UsageError("the password file cannot be read or is empty");
  }
  if (password.ends_with('\r')) password.pop_back();
  return password;
}

std::string NameFault(const std::string& name) {
  return name.empty() || name.size() > 31 ? "a name has 1 to 31 characters" : "";
}

class Parser {
 public:
  explicit Parser(const std::string& program);

  CommandLine Parse(int argc, const char* const* argv);

 private:
  using Action = std::function<void(Session&)>;

  void AddCredentials();
  void AddKeyCommands();
  void AddItemCommands();
  void AddFindCommand();
  void AddImportCommand();
  void AddDemoCommand(const std::string& program);
  CLI::App* AddCommand(const char* name, const char* help, Action action);

  bool IsPasswordGiven() const;
  std::string WhatIsWrong(const CLI::ParseError& error) const;

  CLI::App app_{"Looks after the soft keys and the address books of a Quillbox."};
  std::shared_ptr<Arguments> arguments_ = std::make_shared<Arguments>();
  CommandLine line_;
};

Parser::Parser(const std::string& program) {
  app_.name("quillctl");
  app_.footer(kFooter);
  app_.fallthrough();
  app_.allow_windows_style_options(false);  // a path may begin with a slash
  app_.require_subcommand(1);
  AddCredentials();
  AddCommand("info", "Show the appliance and who is logged in", ShowInfo);
  AddKeyCommands();
  AddItemCommands();
  AddFindCommand();
  AddImportCommand();
  AddDemoCommand(program);
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
  if (!arguments_->passwordFile.empty()) {
    line_.credentials.password = ReadPassword(arguments_->passwordFile);
  }
  return line_;
}

void Parser::AddCredentials() {
  Credentials& into = line_.credentials;
  app_.add_option("--host", into.host, "The appliance: a name or a dotted address")
      ->capture_default_str();
  app_.add_option("--user", into.user, "The account")->capture_default_str();
  auto* password = app_.add_option("--password", into.password,
                                   "Its password; others may see it in the list of processes");
  app_.add_option("--password-file", arguments_->passwordFile, "A file whose first line is it")
      ->excludes(password);
  app_.add_option("--third", into.third, "The third field of the login");
}

CLI::App* Parser::AddCommand(const char* name, const char* help, Action action) {
  CLI::App* command = app_.add_subcommand(name, help);
  command->callback([this, action = std::move(action)] { line_.action = action; });
  return command;
}

// A positional argument that names a key or an item.
CLI::Option* AddName(CLI::App* command, const char* title, std::string& into, const char* help) {
  return command->add_option(title, into, help)->required()->check(NameFault, "NAME");
}

void Parser::AddKeyCommands() {
  const auto& a = arguments_;
  AddCommand("keys", "List the soft keys", ShowKeys);

  CLI::App* add = AddCommand("add-key", "Add a soft key",
                             [a](Session& session) { AddKey(session, a->newName); });
  AddName(add, "name", a->newName, "Its name");

  CLI::App* rename = AddCommand("rename-key", "Rename a soft key", [a](Session& session) {
    RenameKey(session, a->oldName, a->newName);
  });
  AddName(rename, "old", a->oldName, "Its name");
  AddName(rename, "new", a->newName, "Its new name");

  CLI::App* remove = AddCommand("delete-key", "Delete a soft key and the items under it",
                                [a](Session& session) { DeleteKey(session, a->oldName); });
  AddName(remove, "name", a->oldName, "Its name");
}

void Parser::AddItemCommands() {
  const auto& a = arguments_;
  constexpr const char* kKeyHelp = "The soft key";

  CLI::App* items = AddCommand("items", "List the items under the soft keys",
                               [a](Session& session) { ShowItems(session, a->key); });
  AddName(items, "key", a->key, "The soft key; all of them without it")->required(false);

  CLI::App* add = AddCommand("add-item", "Add an item under a soft key",
                             [a](Session& session) { AddItem(session, a->key, a->item); });
  AddName(add, "key", a->key, kKeyHelp);
  AddName(add, "name", a->item.name, "The item's name");
  add->add_option("--address", a->item.address, "Its address, at most 255 characters");
  add->add_option("--path", a->item.path, "Its path, at most 127");
  add->add_option("--application", a->item.appTag, "Its application tag, at most 127");
  add->add_option("--file-format", a->item.fileFormat, "Its file format, a number");
  add->add_option("--settings", a->item.settings, "Its settings, a number");

  CLI::App* rename = AddCommand("rename-item", "Rename an item", [a](Session& session) {
    RenameItem(session, a->key, a->oldName, a->newName);
  });
  AddName(rename, "key", a->key, kKeyHelp);
  AddName(rename, "old", a->oldName, "The item's name");
  AddName(rename, "new", a->newName, "Its new name");

  CLI::App* remove = AddCommand("delete-item", "Delete an item",
                                [a](Session& session) { DeleteItem(session, a->key, a->oldName); });
  AddName(remove, "key", a->key, kKeyHelp);
  AddName(remove, "name", a->oldName, "The item's name");
}

void Parser::AddFindCommand() {
  const auto& a = arguments_;
  CLI::App* find = AddCommand("find", "Find items by name under all soft keys",
                              [a](Session& s) { FindItems(s, a->oldName, a->wholeName); });
  find->add_option("pattern", a->oldName, "What the name begins with")->required();
  find->add_flag("--whole", a->wholeName, "What the whole name is");
}

void Parser::AddImportCommand() {
  ImportRequest& into = arguments_->import;
  CLI::App* import = app_.add_subcommand("import", "Fill an address book from a file");
  import->callback([this] {
    line_.action = [plan = Import(arguments_->import)](Session& session) { plan.Run(session);
};
}  // namespace
);
import->add_option("file", into.file, "The file")->required();
import->add_option("--format", into.format, "What it holds")
    ->required()
    ->check(CLI::IsMember(ImportFormatWords()));
import->add_option("--target", into.target, "csv only: the book to fill, else that for e-mail")
    ->check(CLI::IsMember(BookWords()));
import->add_option("--map", into.map,
                   "csv only: for each field of the book the column of the file, from 0, or -1 "
                   "for none, as in 2,10");
import->add_flag("--skip-header", into.skipHeader, "csv only: drop the first line");
import->add_flag("--clear", into.clearFirst,
                 "Clear the book first: as ADMINISTRATOR, and with csv");
import->add_option("--show", into.shown, "How many of the new entries to show")
    ->capture_default_str();
}  // namespace quillctl

void Parser::AddDemoCommand(const std::string& program) {
  arguments_->dataFolder = (std::filesystem::path(program).parent_path() / "data").string();
  CLI::App* demo =
      app_.add_subcommand("demo", "Show what Quillkit does; adds to the appliance's books");
  demo->callback([this] {
    if (!IsPasswordGiven()) line_.credentials.password = kSimulatedPassword;
    line_.action = [a = arguments_](Session& session) { RunDemo(session, a->dataFolder); };
  });
  demo->add_option("--data", arguments_->dataFolder,
                   "The folder of the files to import, else \"data\" beside quillctl");
}

bool Parser::IsPasswordGiven() const {
  return app_.count("--password") + app_.count("--password-file") != 0;
}

// What CLI11 says quotes arguments that it does not expect; one may be a password that follows a
// misspelt option.
std::string Parser::WhatIsWrong(const CLI::ParseError& error) const {
  const std::vector<std::string> unexpected = app_.remaining(true);
  if (unexpected.empty()) return error.what();
  const std::string& first = unexpected.front();
  if (first.starts_with("--")) return "unknown option " + Quoted(first.substr(0, first.find('=')));
  if (first.starts_with('-')) return "unknown option " + Quoted(first.substr(0, 2));
  if (app_.get_subcommands().empty()) return "unknown command";
  return "an argument too many; one with blanks needs quotes";
}

}  // namespace

CommandLine ParseCommandLine(int argc, const char* const* argv) {
  return Parser(argc > 0 ? argv[0] : "").Parse(argc, argv);
}

}  // namespace quillctl
