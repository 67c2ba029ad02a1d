#include "quillctl/item_commands.h"

#include <iostream>
#include <utility>
#include <vector>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/key_commands.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

using FoundItems = std::vector<std::pair<std::string, ItemFields>>;  // with their key's name

void PrintItems(const FoundItems& found, bool json) {
  TextTable table = ItemTable();
  Json items = Json::array();
  for (const auto& [key, item] : found) {
    if (json) {
      items.push_back(ShownItem(key, item));
    } else {
      AddItemRow(table, key, item);
    }
  }
  if (json) {
    PrintJson(items);
  } else {
    table.Print(std::cout);
  }
}

// Adds the items of the key that the search hits.
void AddHits(FoundItems& found, quillkit::CSoftKey* key, const std::string& pattern,
             std::int32_t wholeName) {
  RequireWhole(key);
  for (std::int32_t index = quillkit::FindFirstItem(key, pattern, wholeName); index >= 0;
       index = quillkit::FindNextItem(key, wholeName)) {
    found.emplace_back(quillkit::GetKeyName(key), FieldsOf(quillkit::GetItemAt(key, index)));
  }
}

// The item of this name under a key that was read.
ItemFields ItemOf(quillkit::CSoftKey* key, const std::string& name) {
  const std::int32_t index = quillkit::FindFirstItem(key, name, 1);
  if (index < 0) {
    RequireWhole(key);
    throw Refusal("the key " + Quoted(quillkit::GetKeyName(key)) + " has no item " + Quoted(name));
  }
  return FieldsOf(quillkit::GetItemAt(key, index));
}

template <class Value>
void SetWhereGiven(Value& field, const std::optional<Value>& value) {
  if (value) field = *value;
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
  RequireGood(quillkit::AddMenuItem(found, item.get(), 0), "add " + what);
  std::cout << "Added " << what << ".\n";
}

void EditItem(const Session& session, const std::string& key, const std::string& name,
              const ItemEdit& edit) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = DescribedItem(name, key);
  const ItemFields before = ItemOf(found, name);
  ItemFields fields = before;
  SetWhereGiven(fields.name, edit.name);
  SetWhereGiven(fields.address, edit.address);
  SetWhereGiven(fields.path, edit.path);
  SetWhereGiven(fields.appTag, edit.appTag);
  SetWhereGiven(fields.fileFormat, edit.fileFormat);
  SetWhereGiven(fields.settings, edit.settings);
  if (fields == before) {
    std::cout << "Nothing to change: " << what << " is like that.\n";
    return;
  }
  const OwnedItem item = MakeItem(fields);
  RequireGood(fields.name == name ? quillkit::ModifyMenuItem(found, item.get(), 0)
                                  : quillkit::RenameMenuItem(found, name, item.get(), 0),
              "change " + what);
  std::cout << "Changed " << what << ".\n";
}

void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = DescribedItem(oldName, key);
  ItemFields fields = ItemOf(found, oldName);
  fields.name = newName;
  const OwnedItem item = MakeItem(fields);
  RequireGood(quillkit::RenameMenuItem(found, oldName, item.get(), 0), "rename " + what);
  std::cout << "Renamed " << what << " to " << Quoted(newName) << ".\n";
}

void DeleteItem(const Session& session, const std::string& key, const std::string& name) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = DescribedItem(name, key);
  RequireGood(quillkit::DeleteMenuItem(found, name, 0), "delete " + what);
  std::cout << "Deleted " << what << ".\n";
}

void FindItems(const Session& session, const std::string& pattern, bool wholeName, bool json) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  FoundItems found;
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    AddHits(found, quillkit::GetKeyAt(book, i), pattern, wholeName ? 1 : 0);
  }
  if (found.empty()) {
    throw Refusal(std::string("no item has a name that ") + (wholeName ? "is " : "begins with ") +
                  Quoted(pattern));
  }
  PrintItems(found, json);
}

}  // namespace quillctl
