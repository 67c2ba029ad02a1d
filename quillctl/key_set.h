// The soft keys of an appliance with their items as values: read in one piece, and compared.

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

// The key of this name in a book that was loaded; throws a Refusal when there is none.
quillkit::CSoftKey* FindKey(quillkit::CTopLevelAB* book, const std::string& name);

// A key that carries a name for the operations on a book.
OwnedKey MakeKey(const std::string& name, quillkit::CTopLevelAB* book);

struct KeyFields {
  std::string name;
  std::vector<ItemFields> items;

  bool operator==(const KeyFields&) const = default;
};
using KeySet = std::vector<KeyFields>;

inline constexpr std::size_t kMostKeys = 11;
inline constexpr std::size_t kMostItems = 512;

// Throws a Refusal unless as many items of a key were read as the appliance has. Call it before
// what was read is taken for the whole.
void RequireWhole(quillkit::CSoftKey* key);

// The items of a key. Throws as RequireWhole does, and a Refusal for an item without a name, as
// which a place that a server counts and does not fill looks.
std::vector<ItemFields> ItemsOf(quillkit::CSoftKey* key);

// The keys of a book that was loaded with the items. Throws a Refusal for one that is not whole.
KeySet KeysIn(quillkit::CTopLevelAB* book);

// Reads all keys. Throws a Refusal when it cannot read them whole.
KeySet ReadKeySet(const Session& session);

struct KeySetChange {
  // In the order in which they are made: what goes makes room for what comes.
  enum Kind { kDeleteItem, kDeleteKey, kChangeItem, kAddKey, kAddItem };

  Kind kind;
  std::string key;
  ItemFields item;         // where it is about an item; of one that changes, as it will be
  ItemFields before = {};  // of one that changes
};

// In the order of their kinds. The order of keys and of items does not count, and a key or an item
// with another name is another one.
std::vector<KeySetChange> Difference(const KeySet& now, const KeySet& wanted);

// A line that begins with "-", "~" or "+": what goes, changes or comes.
std::string Described(const KeySetChange& change);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_SET_H_
