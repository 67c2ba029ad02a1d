// A menu item's fields, apart from any session.

#ifndef QUILLKIT_EXAMPLES_ITEM_FIELDS_H_
#define QUILLKIT_EXAMPLES_ITEM_FIELDS_H_

#include <cstddef>
#include <cstdint>
#include <string>

#include "quillctl/session.h"
#include "quillctl/text_table.h"

namespace quillctl {

struct ItemFields {
  std::string name;
  std::string address;
  std::string path;
  std::string appTag;
  std::uint32_t fileFormat = 0;
  std::uint32_t settings = 0;

  bool operator==(const ItemFields&) const = default;
};

// The texts of an item: what each is called, on the command line and in a file, and the most bytes
// that it has room for.
struct ItemText {
  const char* word;
  const char* title;  // in sentences
  std::string ItemFields::*field;
  std::size_t limit;
  std::int32_t (*store)(quillkit::CMenuItem* item, const std::string& text);
};
inline constexpr ItemText kItemTexts[] = {
    {"name", "name", &ItemFields::name, 31, quillkit::SetName},
    {"address", "address", &ItemFields::address, 255, quillkit::SetIPAddress},
    {"path", "path", &ItemFields::path, 127, quillkit::SetPath},
    {"application", "application tag", &ItemFields::appTag, 127, quillkit::SetAppTag},
};

// The numbers.
struct ItemNumber {
  const char* word;
  std::uint32_t ItemFields::*field;
};
inline constexpr ItemNumber kItemNumbers[] = {
    {"format", &ItemFields::fileFormat},
    {"settings", &ItemFields::settings},
};

ItemFields FieldsOf(quillkit::CMenuItem* item);

// Throws a Refusal that names the field when a text is longer than the item has room for.
OwnedItem MakeItem(const ItemFields& fields);

// Eight digits: the word holds several settings.
std::string Hexadecimal(std::uint32_t word);

// "the item "Scan" under the key "Copy"".
std::string DescribedItem(const std::string& item, const std::string& key);

// A table of items, and the row of one.
TextTable ItemTable();
void AddItemRow(TextTable& table, const std::string& key, const ItemFields& item);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_ITEM_FIELDS_H_
