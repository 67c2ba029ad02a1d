// The soft keys of an appliance with all their items, read in one piece.

#ifndef QUILLKIT_EXAMPLES_KEY_SET_H_
#define QUILLKIT_EXAMPLES_KEY_SET_H_

#include <cstddef>
#include <string>
#include <vector>

#include "quillctl/item_fields.h"

namespace quillctl {

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

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_KEY_SET_H_
