#include "quillctl/commands.h"

#include <memory>
#include <utility>

#include "quillctl/item_commands.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set_commands.h"
#include "quillctl/move_command.h"

namespace quillctl {
namespace {

constexpr const char* kKeyHelp = "The soft key";
constexpr const char* kItemHelp = "The item's name";

std::string NameFault(const std::string& name) {
  return name.empty() || name.size() > 31 ? "a name has 1 to 31 characters" : "";
}

// What a command's options fill. The command keeps it alive.
struct Arguments {
  std::string key;
  std::string name;
  std::string newName;
  std::string file;
  ItemFields item;
  ItemEdit edit;
  bool wholeName = false;
  bool json = false;
  bool yes = false;
  bool dryRun = false;
};
using SharedArguments = std::shared_ptr<Arguments>;

SharedArguments NewArguments() {
  return std::make_shared<Arguments>();
}

void AddJson(CLI::App* command, Arguments& into) {
  command->add_flag("--json", into.json, "Show it as JSON");
}

// The options for an item's fields but its name, for an ItemFields or an ItemEdit.
template <class Fields>
void AddItemOptions(CLI::App* command, Fields& into) {
  command->add_option("--address", into.address, "Its address, at most 255 characters");
  command->add_option("--path", into.path, "Its path, at most 127");
  command->add_option("--application", into.appTag, "Its application tag, at most 127");
  command->add_option("--file-format", into.fileFormat, "Its file format")->type_name("NUMBER");
  command->add_option("--settings", into.settings, "Its settings, as 65538 or 0x10002")
      ->type_name("NUMBER");
}

void AddListCommands(Commands& commands) {
  const SharedArguments a = NewArguments();
  CLI::App* items = commands.Add("items", "List the items under the soft keys",
                                 [a](Session& s) { ShowItems(s, a->key, a->json); });
  AddName(items, "key", a->key, "The soft key; all of them without it")->required(false);
  AddJson(items, *a);

  const SharedArguments f = NewArguments();
  CLI::App* find = commands.Add("find", "Find items by name under all soft keys",
                                [f](Session& s) { FindItems(s, f->name, f->wholeName, f->json); });
  find->add_option("pattern", f->name, "What the name begins with")->required();
  find->add_flag("--whole", f->wholeName, "What the whole name is");
  AddJson(find, *f);
}

void AddMoveCommand(Commands& commands) {
  const SharedArguments a = NewArguments();
  CLI::App* move = commands.Add("move", "Move an item under another key",
                                [a](Session& s) { MoveToKey(s, a->key, a->name, a->newName); });
  AddName(move, "key", a->key, kKeyHelp);
  AddName(move, "name", a->name, kItemHelp);
  move->add_option("--to", a->newName, "The other key")
      ->required()
      ->type_name("NAME")
      ->check(NameFault, "");
}

}  // namespace

CLI::App* Commands::Add(const char* name, const char* help, std::function<void(Session&)> action) {
  return AddOffline(name, help, [run = std::move(action)](const Credentials& credentials) {
    Session session(credentials);
    run(session);
  });
}

CLI::App* Commands::AddOffline(const char* name, const char* help, CommandLine::Action action) {
  CLI::App* command = app_.add_subcommand(name, help);
  command->callback([this, run = std::move(action)] { line_.action = run; });
  return command;
}

CLI::Option* AddName(CLI::App* command, const char* title, std::string& into, const char* help) {
  return command->add_option(title, into, help)
      ->required()
      ->type_name("NAME")
      ->check(NameFault, "");
}

void AddKeyCommands(Commands& commands) {
  const SharedArguments a = NewArguments();
  AddJson(commands.Add("keys", "List the soft keys", [a](Session& s) { ShowKeys(s, a->json); }),
          *a);

  CLI::App* add =
      commands.Add("add-key", "Add a soft key", [a](Session& s) { AddKey(s, a->name); });
  AddName(add, "name", a->name, "Its name");

  CLI::App* rename = commands.Add("rename-key", "Rename a soft key",
                                  [a](Session& s) { RenameKey(s, a->name, a->newName); });
  AddName(rename, "old", a->name, "Its name");
  AddName(rename, "new", a->newName, "Its new name");

  CLI::App* remove = commands.Add("delete-key", "Delete a soft key and the items under it",
                                  [a](Session& s) { DeleteKey(s, a->name); });
  AddName(remove, "name", a->name, "Its name");
}

void AddItemCommands(Commands& commands) {
  AddListCommands(commands);
  const SharedArguments a = NewArguments();
  CLI::App* add = commands.Add("add-item", "Add an item under a soft key",
                               [a](Session& s) { AddItem(s, a->key, a->item); });
  AddName(add, "key", a->key, kKeyHelp);
  AddName(add, "name", a->item.name, kItemHelp);
  AddItemOptions(add, a->item);

  CLI::App* edit = commands.Add("edit-item", "Change what is given of an item",
                                [a](Session& s) { EditItem(s, a->key, a->name, a->edit); });
  AddName(edit, "key", a->key, kKeyHelp);
  AddName(edit, "name", a->name, kItemHelp);
  edit->add_option("--name", a->edit.name, "Its new name")->type_name("NAME")->check(NameFault, "");
  AddItemOptions(edit, a->edit);

  CLI::App* rename = commands.Add("rename-item", "Rename an item",
                                  [a](Session& s) { RenameItem(s, a->key, a->name, a->newName); });
  AddName(rename, "key", a->key, kKeyHelp);
  AddName(rename, "old", a->name, kItemHelp);
  AddName(rename, "new", a->newName, "Its new name");

  AddMoveCommand(commands);
  CLI::App* remove = commands.Add("delete-item", "Delete an item",
                                  [a](Session& s) { DeleteItem(s, a->key, a->name); });
  AddName(remove, "key", a->key, kKeyHelp);
  AddName(remove, "name", a->name, kItemHelp);
}

void AddKeySetCommands(Commands& commands) {
  const SharedArguments a = NewArguments();
  CLI::App* save = commands.Add("export", "Write all keys and items as JSON",
                                [a](Session& s) { ExportKeys(s, a->file); });
  save->add_option("file", a->file, "The file, else the standard output")->type_name("FILE");

  CLI::App* apply = commands.AddOffline("apply", "Make the keys those of a file of export",
                                        [a](const Credentials& c) {
                                          ApplyKeys(c, a->file,
                                                    a->dryRun ? Consent::kDryRun
                                                    : a->yes  ? Consent::kGiven
                                                              : Consent::kAsk);
                                        });
  apply->add_option("file", a->file, "The file")->required()->type_name("FILE");
  auto* yes = apply->add_flag("--yes", a->yes, "Do not ask");
  apply->add_flag("--dry-run", a->dryRun, "Show what differs, and change nothing")->excludes(yes);
}

}  // namespace quillctl
