#include "quillctl/key_commands.h"

#include <iostream>

#include "console/displayed_text.h"
#include "console/json_output.h"
#include "console/options.h"
#include "console/text_table.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"

namespace quillctl {

void ShowKeys(const Session& session, const KeyArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  console::TextTable table({"Key", "Items"});
  console::Json keys = console::Json::array();
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* key = quillkit::GetKeyAt(book, i);
    const std::string name = quillkit::GetKeyName(key);
    std::uint32_t items = 0;
    RequireSuccess(quillkit::GetDBItemCount(key, &items),
                   "count the items of " + console::Quoted(name));
    table.AddRow({name, std::to_string(items)});
    console::SetText(keys.emplace_back(console::Json::object()), "key", name);
    keys.back()["items"] = items;
  }
  console::PrintList(table, keys, a.json);
}

void AddKey(const Session& session, const KeyArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  const std::string name = StoredKeyName(book, a.name);  // one that exists is refused
  MakeChange([&] { return quillkit::AddKey(book, name, 0); },
             "add the key " + console::Quoted(name));
  std::cout << "Added the key " << console::Quoted(a.name) << ".\n";
}

void DeleteKey(const Session& session, const KeyArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  const std::string name = quillkit::GetKeyName(FindKey(book, a.name));
  const std::string what = "the key " + console::Quoted(name);
  if (!console::Agreed(a.consent, "Delete " + what + " with its items")) return;
  MakeChange([&] { return quillkit::DeleteKey(book, name, 0); }, "delete " + what);
  std::cout << "Deleted " << what << ".\n";
}

namespace {

void RenameKey(const Session& session, const KeyArguments& a) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  const std::string name = quillkit::GetKeyName(FindKey(book, a.name));
  RequireNewName(name, a.newName);
  const OwnedKey key = MakeKey(a.newName, book);
  const std::string what = "the key " + console::Quoted(name) + " to " + console::Quoted(a.newName);
  MakeChange([&] { return quillkit::RenameSoftKey(book, name, key.get()); }, "rename " + what);
  std::cout << "Renamed " << what << ".\n";
}

}  // namespace

void AddKeyCommands(Commands& commands) {
  Commands keys = commands.AddGroup("key", "List, add, rename and delete soft keys");
  const auto [list, listed] = keys.Add("list", "List the soft keys", ShowKeys);
  console::AddJson(list, listed.json);

  const auto [add, added] = keys.Add("add", "Add a soft key", AddKey);
  AddName(add, "name", added.name, "The name of the key");

  const auto [rename, renamed] = keys.Add("rename", "Rename a soft key", RenameKey);
  AddName(rename, "old", renamed.name, "The name of the key");
  AddName(rename, "new", renamed.newName, "The new name");

  const auto [remove, removed] = keys.Add("delete", "Delete a soft key and its items", DeleteKey);
  AddName(remove, "name", removed.name, "The name of the key");
  console::AddConsent(remove, removed.consent);
}

}  // namespace quillctl
