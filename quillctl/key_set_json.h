// The JSON file of a key set:
//
//   {
//     "quillbox-keys": 1,
//     "encoding": "utf-8",
//     "keys": [
//       {"name": "Desks", "items": [
//         {"name": "Agnes", "address": "10.0.4.21", "path": "/inbox", "application": "viewer",
//          "format": 2, "settings": 65538}
//       ]}
//     ]
//   }
//
// The appliance's texts are bytes without a character set, but JSON is Unicode. If every text is
// valid UTF-8, "encoding" is "utf-8" and the file contains the texts unchanged. Otherwise it is
// "latin-1" and each character of a text is one byte. Both restore the same bytes.

#ifndef QUILLCTL_KEY_SET_JSON_H_
#define QUILLCTL_KEY_SET_JSON_H_

#include <string>
#include <string_view>

#include "console/json_output.h"
#include "quillctl/key_set.h"

namespace quillctl {

std::string JsonOf(const KeySet& keys);

// Throws a UsageError with the position and the error if the text is not such a file, or contains a
// set that no appliance can store: names that are empty, too long or duplicate, too many keys or
// items, or a text that is too long. "encoding" is optional, with the default "utf-8". In an item
// only the name is required.
KeySet ParseKeySet(std::string_view json);

// Returns the item as `item list --json` shows it.
console::Json ShownItem(const std::string& key, const ItemFields& item);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_SET_JSON_H_
