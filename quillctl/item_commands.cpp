#include "quillctl/item_commands.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

#include "quillctl/commands.h"
#include "quillctl/confirmation.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/key_set.h"
#include "quillctl/system/deferred_termination.h"
#include "quillctl/text_table.h"

namespace quillctl {
namespace {

using FoundItems = std::vector<std::pair<std::string, ItemFields>>;  // with their key's name

void PrintItems(const FoundItems& found, bool json) {
  TextTable table({"Key", "Item", "Address", "Path", "Application", "Format", "Settings"});
  Json items = Json::array();
  for (const auto& [key, item] : found) {
    if (json) {
      items.push_back(ShownItem(key, item));
    } else {
      table.AddRow({key, item.name, item.address, item.path, item.appTag,
                    std::to_string(item.fileFormat), Hexadecimal(item.settings)});
    }
  }
  PrintList(table, items, json);
}

// Adds the items of the key that match.
void AddMatches(FoundItems& found, quillkit::CSoftKey* key, const std::string& pattern,
                std::int32_t wholeName) {
  RequireComplete(key);
  for (std::int32_t index = quillkit::FindFirstItem(key, pattern, wholeName); index >= 0;
       index = quillkit::FindNextItem(key, wholeName)) {
    found.emplace_back(quillkit::GetKeyName(key), FieldsOf(quillkit::GetItemAt(key, index)));
  }
}

NotFound NoItem(const std::string& key, const std::string& name) {
  return NotFound("the key " + Quoted(key) + " has no item " + Quoted(name) +
                  "; see quillctl item list");
}

// Returns the item of this name under a loaded key. Throws a Refusal if there is none.
ItemFields ItemOf(quillkit::CSoftKey* key, const std::string& name) {
  const std::int32_t index = quillkit::FindFirstItem(key, name, 1);
  if (index < 0) {
    RequireComplete(key);
    throw NoItem(quillkit::GetKeyName(key), name);
  }
  return FieldsOf(quillkit::GetItemAt(key, index));
}

}  // namespace

void ShowItems(const Session& session, const std::string& key, bool json) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  if (!key.empty()) FindKey(book, key);
  FoundItems found;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* each = quillkit::GetKeyAt(book, i);
    const std::string name = quillkit::GetKeyName(each);
    if (!key.empty() && key != name) continue;
    for (ItemFields& item : ItemsOf(each)) found.emplace_back(name, std::move(item));
  }
  PrintItems(found, json);
}

void AddItem(const Session& session, const std::string& key, const ItemFields& fields) {
  const OwnedItem item = MakeItem(fields);
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = DescribedItem(fields.name, key);
  RequireChange(quillkit::AddMenuItem(found, item.get(), 0), "add " + what);
  std::cout << "Added " << what << ".\n";
}

void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = DescribedItem(oldName, key);
  ItemFields fields = ItemOf(found, oldName);
  fields.name = newName;
  const OwnedItem item = MakeItem(fields);
  RequireChange(quillkit::RenameMenuItem(found, oldName, item.get(), 0), "rename " + what);
  std::cout << "Renamed " << what << " to " << Quoted(newName) << ".\n";
}

void FindItems(const Session& session, const std::string& pattern, bool wholeName, bool json) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  FoundItems found;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    AddMatches(found, quillkit::GetKeyAt(book, i), pattern, wholeName ? 1 : 0);
  }
  if (json || !found.empty()) PrintItems(found, json);
  if (found.empty()) {
    throw NotFound((wholeName ? "no item has the name " : "no item has a name that begins with ") +
                   Quoted(pattern));
  }
}

namespace {

// New values for an item. Fields without a value do not change.
struct ItemEdit {
  std::optional<std::string> name;
  std::optional<std::string> address;
  std::optional<std::string> path;
  std::optional<std::string> appTag;
  std::optional<std::uint32_t> fileFormat;
  std::optional<std::uint32_t> settings;
};

template <class Value>
void SetIfGiven(Value& field, const std::optional<Value>& value) {
  if (value) field = *value;
}

void EditItem(const Session& session, const std::string& key, const std::string& name,
              const ItemEdit& edit) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = DescribedItem(name, key);
  const ItemFields before = ItemOf(found, name);
  ItemFields fields = before;
  SetIfGiven(fields.name, edit.name);
  SetIfGiven(fields.address, edit.address);
  SetIfGiven(fields.path, edit.path);
  SetIfGiven(fields.appTag, edit.appTag);
  SetIfGiven(fields.fileFormat, edit.fileFormat);
  SetIfGiven(fields.settings, edit.settings);
  if (fields == before) {
    std::cout << "Nothing to change: " << what << " already has these values.\n";
    return;
  }
  const OwnedItem item = MakeItem(fields);
  RequireChange(fields.name == name ? quillkit::ModifyMenuItem(found, item.get(), 0)
                                    : quillkit::RenameMenuItem(found, name, item.get(), 0),
                "change " + what);
  std::cout << "Changed " << what << ".\n";
}

void ShowItem(const Session& session, const std::string& key, const std::string& name, bool json) {
  const ItemFields item = ItemOf(FindKey(session.LoadKeys(true), key), name);
  if (json) {
    PrintJson(ShownItem(key, item));
  } else {
    PrintItems({{key, item}}, false);
  }
}

void DeleteItem(const Session& session, const std::string& key, const std::string& name, bool yes) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  ItemOf(found, name);
  const std::string what = DescribedItem(name, key);
  Confirm(yes, "Delete " + what + '?');
  RequireChange(quillkit::DeleteMenuItem(found, name, 0), "delete " + what);
  std::cout << "Deleted " << what << ".\n";
}

using Items = std::vector<ItemFields>;

Items ReadItems(const Session& session, const std::string& key) {
  return ItemsOf(FindKey(session.LoadKeys(true), key));
}

// Reads the key and returns whether it has the item. Throws an UnknownResult that begins with
// `failure` if that cannot be read.
bool HasItem(const Session& session, const std::string& key, const std::string& name,
             const std::string& failure) {
  const Items items = ReadBack(failure, [&] { return ReadItems(session, key); });
  return std::ranges::count(items, name, &ItemFields::name) != 0;
}

// Moves an item to another key. Adds it there before it deletes it here, so that a failure can
// leave the item under both keys but never lose it.
void MoveToKey(const Session& session, const std::string& key, const std::string& name,
               const std::string& target) {
  if (key == target) throw UsageError("--to must name a different soft key");
  const Items items = ReadItems(session, key);
  const auto found = std::ranges::find(items, name, &ItemFields::name);
  if (found == items.end()) throw NoItem(key, name);
  const std::string moved = DescribedItem(name, target);
  const DeferredTermination termination("moving the item");
  RequireChange(quillkit::AddMenuItem(FindKey(session.Book(), target), MakeItem(*found).get(), 0),
                "add " + moved);
  // Check that the copy exists before the original is deleted.
  if (!HasItem(
          session, target, name,
          "nothing was deleted: the appliance accepted " + moved + ", but it cannot be read")) {
    throw Refusal("nothing was deleted: the appliance accepted " + moved +
                  ", but does not list it");
  }
  const std::int32_t status = quillkit::DeleteMenuItem(FindKey(session.Book(), key), name, 0);
  if (status != 0 ||
      HasItem(session, key, name,
              "added " + moved + ", but cannot check that it was deleted under " + Quoted(key))) {
    throw PartialFailure("cannot delete " + DescribedItem(name, key) + ": " +
                         (status != 0 ? CodeAndText(status) : "the appliance reports success") +
                         "; the item is now under both keys");
  }
  std::cout << "Moved " << DescribedItem(name, key) << " to the key " << Quoted(target) << ".\n";
}

constexpr const char* kKeyHelp = "The soft key";
constexpr const char* kItemHelp = "The item's name";

// The arguments of a command, which shares their ownership.
struct Arguments {
  std::string key;
  std::string name;
  std::string newName;
  ItemFields item;
  ItemEdit edit;
  bool wholeName = false;
  bool json = false;
  bool yes = false;
};
using Run = void (*)(const Session&, const Arguments&);

// Adds a command whose arguments are a key and an item. It logs in and calls `run`.
CLI::App* AddItemCommand(Commands& items, const char* name, const char* help, Run run,
                         const std::shared_ptr<Arguments>& a) {
  CLI::App* command = items.Add(name, help, [a, run](Session& session) { run(session, *a); });
  AddName(command, "key", a->key, kKeyHelp);
  AddName(command, "name", a->name, kItemHelp);
  return command;
}

// Adds options for all fields of an item except its name. Fields is ItemFields or ItemEdit.
template <class Fields>
void AddItemOptions(CLI::App* command, Fields& into) {
  command->add_option("--address", into.address, "The address, at most 255 bytes");
  command->add_option("--path", into.path, "The path, at most 127 bytes");
  command->add_option("--application", into.appTag, "The application tag, at most 127 bytes");
  AddNumber(command, "--file-format", into.fileFormat, "The file format", 0, UINT32_MAX);
  AddNumber(command, "--settings", into.settings, "The settings, for example 65538 or 0x10002", 0,
            UINT32_MAX);
}

void AddReadingCommands(Commands& items) {
  const auto a = std::make_shared<Arguments>();
  CLI::App* list = items.Add("list", "List the items under the soft keys",
                             [a](Session& s) { ShowItems(s, a->key, a->json); });
  AddName(list, "key", a->key, "The soft key (default: all keys)")->required(false);
  AddJson(list, a->json);

  CLI::App* find = items.Add("find", "Find items by name under all soft keys",
                             [a](Session& s) { FindItems(s, a->name, a->wholeName, a->json); });
  find->add_option("pattern", a->name, "The name or its beginning")->required();
  find->add_flag("--whole", a->wholeName, "Match the whole name only");
  AddJson(find, a->json);

  AddJson(AddItemCommand(
              items, "show", "Show an item",
              [](const Session& s, const Arguments& each) {
                ShowItem(s, each.key, each.name, each.json);
              },
              a),
          a->json);
}

void AddChangingCommands(Commands& items) {
  const auto a = std::make_shared<Arguments>();
  CLI::App* add = items.Add("add", "Add an item under a soft key",
                            [a](Session& s) { AddItem(s, a->key, a->item); });
  AddName(add, "key", a->key, kKeyHelp);
  AddName(add, "name", a->item.name, kItemHelp);
  AddItemOptions(add, a->item);

  CLI::App* edit = AddItemCommand(
      items, "edit", "Change fields of an item",
      [](const Session& s, const Arguments& each) { EditItem(s, each.key, each.name, each.edit); },
      a);
  AsName(edit->add_option("--name", a->edit.name, "The new name"));
  AddItemOptions(edit, a->edit);

  CLI::App* rename = items.Add("rename", "Rename an item",
                               [a](Session& s) { RenameItem(s, a->key, a->name, a->newName); });
  AddName(rename, "key", a->key, kKeyHelp);
  AddName(rename, "old", a->name, kItemHelp);
  AddName(rename, "new", a->newName, "The new name");

  CLI::App* move = AddItemCommand(
      items, "move", "Move an item to another soft key",
      [](const Session& s, const Arguments& each) {
        MoveToKey(s, each.key, each.name, each.newName);
      },
      a);
  AsName(move->add_option("--to", a->newName, "The other soft key")->required());

  AddYes(AddItemCommand(
             items, "delete", "Delete an item",
             [](const Session& s, const Arguments& each) {
               DeleteItem(s, each.key, each.name, each.yes);
             },
             a),
         a->yes);
}

}  // namespace

void AddItemCommands(Commands& commands) {
  Commands items = commands.AddGroup("item", "List, find and change the items of soft keys");
  AddReadingCommands(items);
  AddChangingCommands(items);
}

}  // namespace quillctl
