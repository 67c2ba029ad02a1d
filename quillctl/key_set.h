// Key sets: all soft keys of an appliance with their items, as values that can be compared.

#ifndef QUILLCTL_KEY_SET_H_
#define QUILLCTL_KEY_SET_H_

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

#include "quillctl/session.h"

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

// A text field of an item.
struct ItemText {
  const char* word;   // its name in JSON
  const char* title;  // its name in sentences
  std::string ItemFields::*field;
  std::size_t limit;  // in bytes
  std::int32_t (*store)(quillkit::CMenuItem* item, const std::string& text);
};
inline constexpr ItemText kItemTexts[] = {
    {"name", "name", &ItemFields::name, 31, quillkit::SetName},
    {"address", "address", &ItemFields::address, 255, quillkit::SetIPAddress},
    {"path", "path", &ItemFields::path, 127, quillkit::SetPath},
    {"application", "application tag", &ItemFields::appTag, 127, quillkit::SetAppTag},
};

// A number of an item.
struct ItemNumber {
  const char* word;
  std::uint32_t ItemFields::*field;
};
inline constexpr ItemNumber kItemNumbers[] = {
    {"format", &ItemFields::fileFormat},
    {"settings", &ItemFields::settings},
};

ItemFields FieldsOf(quillkit::CMenuItem* item);

// Throws a Refusal that names the field if a text is too long for an item.
OwnedItem MakeItem(const ItemFields& fields);

// Returns "0x" and eight digits.
std::string Hexadecimal(std::uint32_t word);

// Returns a text such as: the item "Scan" under the key "Copy"
std::string DescribedItem(const std::string& item, const std::string& key);

// Returns the name as the loaded keys have it (StoredName).
std::string StoredKeyName(quillkit::CTopLevelAB* book, const std::string& name);

// Returns the key of this name in a loaded book. Throws a Refusal if there is none.
quillkit::CSoftKey* FindKey(quillkit::CTopLevelAB* book, const std::string& name);

// Creates a key object that passes a name to the operations on a book.
OwnedKey MakeKey(const std::string& name, quillkit::CTopLevelAB* book);

struct KeyFields {
  std::string name;
  std::vector<ItemFields> items;

  bool operator==(const KeyFields&) const = default;
};
using KeySet = std::vector<KeyFields>;

inline constexpr std::size_t kMaxKeys = 11;
inline constexpr std::size_t kMaxItems = 512;

// Throws a Refusal unless all items that the key has on the appliance were read. A read that fails
// can leave fewer items.
void RequireComplete(quillkit::CSoftKey* key);

// Returns the items of a key. Throws a Refusal as RequireComplete does, and for an item without a
// name: the server counted that item, but did not send it.
std::vector<ItemFields> ItemsOf(quillkit::CSoftKey* key);

// Returns the keys of a book that was loaded with the items. Throws a Refusal for an incomplete
// key.
KeySet KeysIn(quillkit::CTopLevelAB* book);

// Reads all keys. Throws a Refusal if a key or an item cannot be read.
KeySet ReadKeySet(const Session& session);

struct KeySetChange {
  // Changes are made in this order. Deletions come first to free space for additions.
  enum Kind { kDeleteItem, kDeleteKey, kChangeItem, kAddKey, kAddItem };

  Kind kind;
  std::string key;
  ItemFields item;         // for a change of an item: the item with its new fields
  ItemFields before = {};  // for kChangeItem: the old fields
};

// Returns the changes that turn `now` into `wanted`, in the order of their kinds. Ignores the order
// of keys and items. A renamed key or item counts as deleted and added.
std::vector<KeySetChange> Difference(const KeySet& now, const KeySet& wanted);

// Returns a line that begins with "-", "~" or "+" for a deletion, a change or an addition.
std::string Described(const KeySetChange& change);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_SET_H_
