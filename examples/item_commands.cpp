#include "examples/item_commands.h"

#include <iostream>
#include <new>

#include "examples/displayed_text.h"
#include "examples/failures.h"
#include "examples/key_commands.h"
#include "examples/text_table.h"

namespace quillctl {
namespace {

TextTable ItemTable() {
  return TextTable({"Key", "Item", "Address", "Path", "Application", "Format", "Settings"});
}

// Eight digits: the word holds several settings.
std::string Hexadecimal(std::uint32_t word) {
  std::string text = "0x00000000";
  for (std::size_t at = text.size(); word != 0; word >>= 4)
    text[--at] = "0123456789ABCDEF"[word & 15];
  return text;
}

ItemFields FieldsOf(quillkit::CMenuItem* item) {
  return {quillkit::GetItemName(item), quillkit::IPAddress(item),  quillkit::Path(item),
          quillkit::AppTag(item),      quillkit::FileFormat(item), quillkit::Settings(item)};
}

void AddItemRow(TextTable& table, quillkit::CSoftKey* key, std::int32_t index) {
  const ItemFields item = FieldsOf(quillkit::GetItemAt(key, index));
  table.AddRow({quillkit::GetKeyName(key), item.name, item.address, item.path, item.appTag,
                std::to_string(item.fileFormat), Hexadecimal(item.settings)});
}

// Throws a Refusal that names the field when a setter refused its text.
void RequireStored(std::int32_t stored, std::string_view field, int limit) {
  if (stored == 1) return;
  throw Refusal("the item's " + std::string(field) + " has more than " + std::to_string(limit) +
                " characters");
}

OwnedItem MakeItem(const ItemFields& fields) {
  quillkit::CMenuItem* made = nullptr;
  if (quillkit::CreateMenuItem(&made) == 0) throw std::bad_alloc();
  OwnedItem item(made);
  RequireStored(quillkit::SetName(made, fields.name), "name", 31);
  RequireStored(quillkit::SetIPAddress(made, fields.address), "address", 255);
  RequireStored(quillkit::SetPath(made, fields.path), "path", 127);
  RequireStored(quillkit::SetAppTag(made, fields.appTag), "application tag", 127);
  quillkit::SetFileFormat(made, fields.fileFormat);
  quillkit::SetSettings(made, fields.settings);
  return item;
}

// "the item "Scan" under the key "Copy"".
std::string Described(const std::string& item, const std::string& key) {
  return "the item " + Quoted(item) + " under the key " + Quoted(key);
}

// Adds a row for each item of the key that the search hits.
void AddHits(TextTable& table, quillkit::CSoftKey* key, const std::string& pattern,
             std::int32_t wholeName) {
  for (std::int32_t index = quillkit::FindFirstItem(key, pattern, wholeName); index >= 0;
       index = quillkit::FindNextItem(key, wholeName)) {
    AddItemRow(table, key, index);
  }
}

}  // namespace

void ShowItems(const Session& session, const std::string& key) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  TextTable table = ItemTable();
  if (!key.empty()) FindKey(book, key);
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    quillkit::CSoftKey* each = quillkit::GetKeyAt(book, i);
    if (!key.empty() && key != quillkit::GetKeyName(each)) continue;
    for (std::int32_t at = 0; at < quillkit::GetItemCount(each); ++at) AddItemRow(table, each, at);
  }
  table.Print(std::cout);
}

void AddItem(const Session& session, const std::string& key, const ItemFields& fields) {
  const OwnedItem item = MakeItem(fields);
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = Described(fields.name, key);
  RequireGood(quillkit::AddMenuItem(found, item.get(), 0), "add " + what);
  std::cout << "Added " << what << ".\n";
}

void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = Described(oldName, key);
  const std::int32_t index = quillkit::FindFirstItem(found, oldName, 1);
  if (index < 0) throw Refusal("the key " + Quoted(key) + " has no item " + Quoted(oldName));

  ItemFields fields = FieldsOf(quillkit::GetItemAt(found, index));
  fields.name = newName;
  const OwnedItem item = MakeItem(fields);
  RequireGood(quillkit::RenameMenuItem(found, oldName, item.get(), 0), "rename " + what);
  std::cout << "Renamed " << what << " to " << Quoted(newName) << ".\n";
}

void DeleteItem(const Session& session, const std::string& key, const std::string& name) {
  quillkit::CSoftKey* found = FindKey(session.LoadKeys(true), key);
  const std::string what = Described(name, key);
  RequireGood(quillkit::DeleteMenuItem(found, name, 0), "delete " + what);
  std::cout << "Deleted " << what << ".\n";
}

void FindItems(const Session& session, const std::string& pattern, bool wholeName) {
  quillkit::CTopLevelAB* book = session.LoadKeys(true);
  TextTable table = ItemTable();
  for (std::int32_t i = 0; i < quillkit::GetCount(book); ++i) {
    AddHits(table, quillkit::GetKeyAt(book, i), pattern, wholeName ? 1 : 0);
  }
  if (table.IsEmpty()) {
    throw Refusal(std::string("no item has a name that ") + (wholeName ? "is " : "begins with ") +
                  Quoted(pattern));
  }
  table.Print(std::cout);
}

}  // namespace quillctl
