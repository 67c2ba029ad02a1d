// A key set as a JSON file:
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
// The appliance's texts are bytes without a character set, and JSON is Unicode. Where every text is
// valid UTF-8 the file says "utf-8" and holds them as they are; else it says "latin-1" and each
// character of a text is one byte. Both come back as the same bytes.

#ifndef QUILLCTL_KEY_SET_JSON_H_
#define QUILLCTL_KEY_SET_JSON_H_

#include <string>
#include <string_view>

#include "quillctl/key_set.h"

namespace quillctl {

std::string JsonOf(const KeySet& keys);

// Throws a UsageError that tells where and what for a text that is no such file, or one that no
// appliance could hold: names that are empty, too long or there twice, too many keys or items,
// texts without room. "encoding" may be absent, for utf-8, and so may all of an item but its name.
KeySet ParseKeySet(std::string_view json);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_SET_JSON_H_
