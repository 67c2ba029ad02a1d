#include "quillctl/key_commands.h"

#include <iostream>
#include <new>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/text_table.h"

namespace quillctl {

OwnedKey MakeKey(const std::string& name, quillkit::CTopLevelAB* book) {
  quillkit::CSoftKey* key = nullptr;
  const bool made = quillkit::CreateSoftKey(name, book, &key) != 0;
  OwnedKey owned(key);
  if (!made) throw std::bad_alloc();
  return owned;
}

void ShowKeys(const Session& session, bool json) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  TextTable table({"Key", "Items"});
  Json keys = Json::array();
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* key = quillkit::GetKeyAt(book, i);
    const std::string name = quillkit::GetKeyName(key);
    std::uint32_t items = 0;
    RequireGood(quillkit::GetDBItemCount(key, &items), "count the items of " + Quoted(name));
    table.AddRow({name, std::to_string(items)});
    keys.push_back({{"key", Utf8Text(name)}, {"items", items}});
  }
  if (json) {
    PrintJson(keys);
  } else {
    table.Print(std::cout);
  }
}

void AddKey(const Session& session, const std::string& name) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  RequireGood(quillkit::AddKey(book, name, 0), "add the key " + Quoted(name));
  std::cout << "Added the key " << Quoted(name) << ".\n";
}

void RenameKey(const Session& session, const std::string& oldName, const std::string& newName) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  const OwnedKey key = MakeKey(newName, book);
  RequireGood(quillkit::RenameSoftKey(book, oldName, key.get()),
              "rename the key " + Quoted(oldName) + " to " + Quoted(newName));
  std::cout << "Renamed the key " << Quoted(oldName) << " to " << Quoted(newName) << ".\n";
}

void DeleteKey(const Session& session, const std::string& name) {
  quillkit::CTopLevelAB* book = session.LoadKeys(false);
  RequireGood(quillkit::DeleteKey(book, name, 0), "delete the key " + Quoted(name));
  std::cout << "Deleted the key " << Quoted(name) << ".\n";
}

quillkit::CSoftKey* FindKey(quillkit::CTopLevelAB* book, const std::string& name) {
  const std::int32_t index = quillkit::FindSoftKeyIndex(book, name);
  if (index < 0) throw Refusal("no soft key has the name " + Quoted(name));
  return quillkit::GetKeyAt(book, index);
}

}  // namespace quillctl
