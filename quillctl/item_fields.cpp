#include "quillctl/item_fields.h"

#include <new>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"

namespace quillctl {

ItemFields FieldsOf(quillkit::CMenuItem* item) {
  return {quillkit::GetItemName(item), quillkit::IPAddress(item),  quillkit::Path(item),
          quillkit::AppTag(item),      quillkit::FileFormat(item), quillkit::Settings(item)};
}

OwnedItem MakeItem(const ItemFields& fields) {
  quillkit::CMenuItem* made = nullptr;
  if (quillkit::CreateMenuItem(&made) == 0) throw std::bad_alloc();
  OwnedItem item(made);
  for (const ItemText& each : kItemTexts) {
    if (each.store(made, fields.*each.field) == 1) continue;
    throw Refusal("the item's " + std::string(each.title) + " has more than " +
                  std::to_string(each.limit) + " characters");
  }
  quillkit::SetFileFormat(made, fields.fileFormat);
  quillkit::SetSettings(made, fields.settings);
  return item;
}

std::string Hexadecimal(std::uint32_t word) {
  std::string text = "0x00000000";
  for (std::size_t at = text.size(); word != 0; word >>= 4)
    text[--at] = "0123456789ABCDEF"[word & 15];
  return text;
}

std::string DescribedItem(const std::string& item, const std::string& key) {
  return "the item " + Quoted(item) + " under the key " + Quoted(key);
}

TextTable ItemTable() {
  return TextTable({"Key", "Item", "Address", "Path", "Application", "Format", "Settings"});
}

void AddItemRow(TextTable& table, const std::string& key, const ItemFields& item) {
  table.AddRow({key, item.name, item.address, item.path, item.appTag,
                std::to_string(item.fileFormat), Hexadecimal(item.settings)});
}

}  // namespace quillctl
