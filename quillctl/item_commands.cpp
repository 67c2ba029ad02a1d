#include "quillctl/item_commands.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/options.h"
#include "console/system/deferred_termination.h"
#include "console/text_table.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/key_set_json.h"

namespace quillctl {
namespace {

using FoundItems = std::vector<std::pair<std::string, ItemFields>>;  // with their key's name

void PrintItems(const FoundItems& found, const ItemArguments& a) {
  console::TextTable table({"Key", "Item", "Address", "Path", "Application", "Format", "Settings"});
  console::Json items = console::Json::array();
  for (const auto& [key, item] : found) {
    if (a.jsonLines) {
      std::cout << ShownItem(key, item).dump() << '\n';
    } else if (a.json) {
      items.push_back(ShownItem(key, item));
    } else {
      table.AddRow({key, item.name, item.address, item.path, item.appTag,
                    std::to_string(item.fileFormat), Hexadecimal(item.settings)});
    }
  }
  if (!a.jsonLines) console::PrintList(table, items, a.json);
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
  return NotFound("the key " + console::Quoted(key) + " has no item " + console::Quoted(name) +
                  "; see quillctl item list");
}

// Returns the item of this name under a loaded key, with the name as it is stored. Throws a Refusal
// if there is none.
ItemFields ItemOf(quillkit::CSoftKey* key, const std::string& name) {
  for (const std::string& each : console::FormsOf(name)) {
    const std::int32_t index = quillkit::FindFirstItem(key, each, 1);
    if (index >= 0) return FieldsOf(quillkit::GetItemAt(key, index));
  }
  RequireComplete(key);
  throw NoItem(quillkit::GetKeyName(key), name);
}

// Stores the given values in the fields.
void Apply(const ItemValues& values, ItemFields& fields) {
  for (std::size_t i = 0; i < std::size(kItemTexts); ++i) {
    if (values.texts[i]) fields.*kItemTexts[i].field = *values.texts[i];
  }
  for (std::size_t i = 0; i < std::size(kItemNumbers); ++i) {
    if (values.numbers[i]) fields.*kItemNumbers[i].field = *values.numbers[i];
  }
}

}  // namespace

void ShowItems(const Session& session, const ItemArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  const quillkit::CSoftKey* only = a.key.empty() ? nullptr : FindKey(book, a.key);
  FoundItems found;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* each = quillkit::GetKeyAt(book, i);
    const std::string name = quillkit::GetKeyName(each);
    if (only != nullptr && only != each) continue;
    for (ItemFields& item : ItemsOf(each)) found.emplace_back(name, std::move(item));
  }
  PrintItems(found, a);
}

void AddItem(const Session& session, const ItemArguments& a) {
  ItemFields fields;
  Apply(a.values, fields);
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), a.key);
  fields.name = console::StoredName(fields.name, [&](const std::string& form) {
    return quillkit::FindFirstItem(found, form, 1) >= 0;  // one that exists is refused
  });
  const OwnedItem item = MakeItem(fields);
  const std::string what = DescribedItem(fields.name, a.key);
  MakeChange([&] { return quillkit::AddMenuItem(found, item.get(), 0); }, "add " + what);
  std::cout << "Added " << what << ".\n";
}

void RenameItem(const Session& session, const ItemArguments& a) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), a.key);
  ItemFields fields = ItemOf(found, a.name);
  const std::string name = std::exchange(fields.name, a.newName);
  RequireNewName(name, a.newName);
  const std::string what = DescribedItem(name, a.key);
  const OwnedItem item = MakeItem(fields);
  MakeChange([&] { return quillkit::RenameMenuItem(found, name, item.get(), 0); },
             "rename " + what);
  std::cout << "Renamed " << what << " to " << console::Quoted(a.newName) << ".\n";
}

void FindItems(const Session& session, const ItemArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  FoundItems found;
  for (const std::string& form : console::FormsOf(a.name)) {
    if (!found.empty()) break;
    for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
      AddMatches(found, quillkit::GetKeyAt(book, i), form, a.wholeName ? 1 : 0);
    }
  }
  if (a.json || !found.empty()) PrintItems(found, a);
  if (found.empty()) {
    throw NotFound(
        (a.wholeName ? "no item has the name " : "no item has a name that begins with ") +
        console::Quoted(a.name));
  }
}

namespace {

void EditItem(const Session& session, const ItemArguments& a) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), a.key);
  const ItemFields before = ItemOf(found, a.name);
  const std::string what = DescribedItem(before.name, a.key);
  ItemFields fields = before;
  Apply(a.values, fields);
  if (fields == before) {
    std::cout << "Nothing to change: " << what << " already has these values.\n";
    return;
  }
  const OwnedItem item = MakeItem(fields);
  MakeChange(
      [&] {
        return fields.name == before.name
                   ? quillkit::ModifyMenuItem(found, item.get(), 0)
                   : quillkit::RenameMenuItem(found, before.name, item.get(), 0);
      },
      "change " + what);
  std::cout << "Changed " << what << ".\n";
}

void ShowItem(const Session& session, const ItemArguments& a) {
  const ItemFields item = ItemOf(FindKey(session.LoadKeys(true), a.key), a.name);
  if (a.json) {
    console::PrintJson(ShownItem(a.key, item));
  } else {
    PrintItems({{a.key, item}}, a);
  }
}

void DeleteItem(const Session& session, const ItemArguments& a) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), a.key);
  const std::string name = ItemOf(found, a.name).name;
  const std::string what = DescribedItem(name, a.key);
  console::Confirm(a.consent.yes, "Delete " + what + '?');
  MakeChange([&] { return quillkit::DeleteMenuItem(found, name, 0); }, "delete " + what);
  std::cout << "Deleted " << what << ".\n";
}

// Reads the key and returns whether it has the item. Throws an UnknownResult that begins with
// `failure` if that cannot be read.
bool HasItem(const Session& session, const std::string& key, const std::string& name,
             const std::string& failure) {
  const std::vector<ItemFields> items =
      ReadBack(failure, [&] { return ItemsOf(FindKey(session.LoadKeys(true), key)); });
  return std::ranges::count(items, name, &ItemFields::name) != 0;
}

// Moves an item to another key. Adds it there before it deletes it here, so that a failure can
// leave the item under both keys but never lose it.
void MoveItem(const Session& session, const ItemArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  quillkit::CSoftKey* const from = FindKey(book, a.key);
  quillkit::CSoftKey* const to = FindKey(book, a.newName);
  if (from == to) throw UsageError("--to must name a different soft key");
  RequireComplete(from);
  const ItemFields item = ItemOf(from, a.name);
  const std::string& name = item.name;
  const std::string source = DescribedItem(name, a.key);
  const std::string moved = DescribedItem(name, a.newName);
  if (console::IsDryRun(a.consent,
                        "Move " + source + " to the key " + console::Quoted(a.newName))) {
    return;
  }
  const console::DeferredTermination termination("moving the item");
  RequireChange(quillkit::AddMenuItem(to, MakeItem(item).get(), 0), "add " + moved);
  // Check that the copy exists before the original is deleted.
  if (!HasItem(
          session, a.newName, name,
          "nothing was deleted: the appliance accepted " + moved + ", but it cannot be read")) {
    throw Refusal("nothing was deleted: the appliance accepted " + moved +
                  ", but does not list it");
  }
  const std::int32_t status = quillkit::DeleteMenuItem(FindKey(session.Book(), a.key), name, 0);
  if (HasItem(session, a.key, name,
              "added " + moved + ", but cannot check that it was deleted under " +
                  console::Quoted(a.key))) {
    throw PartialFailure("cannot delete " + source + ": " +
                         (status != 0 ? CodeAndText(status) : "the appliance reports success") +
                         "; the item is now under both keys");
  }
  std::cout << "Moved " << source << " to the key " << console::Quoted(a.newName) << ".\n";
}

// Adds a command whose arguments are a key and an item.
Commands::Added<ItemArguments> AddItemCommand(Commands& items, const char* name, const char* help,
                                              void (*run)(const Session&, const ItemArguments&)) {
  const auto added = items.Add(name, help, run);
  AddName(added.app, "key", added.arguments.key, "The soft key");
  AddName(added.app, "name", added.arguments.name, "The item's name");
  return added;
}

// Adds options for all fields of an item except its name.
void AddItemOptions(CLI::App* command, ItemValues& into) {
  for (std::size_t i = 1; i < std::size(kItemTexts); ++i) {
    const ItemText& each = kItemTexts[i];
    command->add_option(
        std::string("--") + each.word, into.texts[i],
        "The " + std::string(each.title) + ", at most " + std::to_string(each.limit) + " bytes");
  }
  console::AddNumber(command, "--file-format", into.numbers[0], "The file format", 0, UINT32_MAX);
  console::AddNumber(command, "--settings", into.numbers[1],
                     "The settings, for example 65538 or 0x10002", 0, UINT32_MAX);
}

void AddReadingCommands(Commands& items) {
  const auto [list, listed] = items.Add("list", "List the items under the soft keys", ShowItems);
  AddName(list, "key", listed.key, "The soft key (default: all keys)")->required(false);
  console::AddJsonLines(list, listed.json, listed.jsonLines);

  const auto [find, found] = items.Add("find", "Find items by name under all soft keys", FindItems);
  find->add_option("pattern", found.name, "The name or its beginning")->required();
  find->add_flag("--whole", found.wholeName, "Match the whole name only");
  console::AddJsonLines(find, found.json, found.jsonLines);

  const auto [show, shown] = AddItemCommand(items, "show", "Show an item", ShowItem);
  console::AddJson(show, shown.json);
}

void AddChangingCommands(Commands& items) {
  const auto [add, added] = items.Add("add", "Add an item under a soft key", AddItem);
  AddName(add, "key", added.key, "The soft key");
  AsName(add->add_option("name", added.values.texts[0], "The item's name"))->required();
  AddItemOptions(add, added.values);

  const auto [edit, edited] = AddItemCommand(items, "edit", "Change fields of an item", EditItem);
  AsName(edit->add_option("--name", edited.values.texts[0], "The new name"));
  AddItemOptions(edit, edited.values);

  const auto [rename, renamed] = items.Add("rename", "Rename an item", RenameItem);
  AddName(rename, "key", renamed.key, "The soft key");
  AddName(rename, "old", renamed.name, "The item's name");
  AddName(rename, "new", renamed.newName, "The new name");

  const auto [move, moved] =
      AddItemCommand(items, "move", "Move an item to another soft key", MoveItem);
  AddName(move, "--to", moved.newName, "The other soft key");
  console::AddDryRun(move, moved.consent);

  const auto [remove, removed] = AddItemCommand(items, "delete", "Delete an item", DeleteItem);
  console::AddYes(remove, removed.consent.yes);
}

}  // namespace

void AddItemCommands(Commands& commands) {
  Commands items = commands.AddGroup("item", "List, find and change the items of soft keys");
  AddReadingCommands(items);
  AddChangingCommands(items);
}

}  // namespace quillctl
