#include "quillctl/key_commands.h"

#include <iostream>
#include <memory>

#include "quillctl/commands.h"
#include "quillctl/confirmation.h"
#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/key_set.h"
#include "quillctl/text_table.h"

namespace quillctl {

void ShowKeys(const Session& session, bool json) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  TextTable table({"Key", "Items"});
  Json keys = Json::array();
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* key = quillkit::GetKeyAt(book, i);
    const std::string name = quillkit::GetKeyName(key);
    std::uint32_t items = 0;
    RequireSuccess(quillkit::GetDBItemCount(key, &items), "count the items of " + Quoted(name));
    table.AddRow({name, std::to_string(items)});
    SetText(keys.emplace_back(Json::object()), "key", name);
    keys.back()["items"] = items;
  }
  PrintList(table, keys, json);
}

void AddKey(const Session& session, const std::string& name) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  RequireChange(quillkit::AddKey(book, name, 0), "add the key " + Quoted(name));
  std::cout << "Added the key " << Quoted(name) << ".\n";
}

void DeleteKey(const Session& session, const std::string& name) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  RequireChange(quillkit::DeleteKey(book, name, 0), "delete the key " + Quoted(name));
  std::cout << "Deleted the key " << Quoted(name) << ".\n";
}

namespace {

void RenameKey(const Session& session, const std::string& oldName, const std::string& newName) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  const OwnedKey key = MakeKey(newName, book);
  RequireChange(quillkit::RenameSoftKey(book, oldName, key.get()),
                "rename the key " + Quoted(oldName) + " to " + Quoted(newName));
  std::cout << "Renamed the key " << Quoted(oldName) << " to " << Quoted(newName) << ".\n";
}

}  // namespace

void AddKeyCommands(Commands& commands) {
  struct Arguments {
    std::string name;
    std::string newName;
    bool json = false;
    bool yes = false;
  };
  Commands keys = commands.AddGroup("key", "List, add, rename and delete soft keys");
  const auto a = std::make_shared<Arguments>();
  AddJson(keys.Add("list", "List the soft keys", [a](Session& s) { ShowKeys(s, a->json); }),
          a->json);

  CLI::App* add = keys.Add("add", "Add a soft key", [a](Session& s) { AddKey(s, a->name); });
  AddName(add, "name", a->name, "The name of the key");

  CLI::App* rename = keys.Add("rename", "Rename a soft key",
                              [a](Session& s) { RenameKey(s, a->name, a->newName); });
  AddName(rename, "old", a->name, "The name of the key");
  AddName(rename, "new", a->newName, "The new name");

  CLI::App* remove = keys.Add("delete", "Delete a soft key and its items", [a](Session& s) {
    FindKey(s.LoadKeys(false), a->name);
    Confirm(a->yes, "Delete the key " + Quoted(a->name) + " with its items?");
    DeleteKey(s, a->name);
  });
  AddName(remove, "name", a->name, "The name of the key");
  AddYes(remove, a->yes);
}

}  // namespace quillctl
