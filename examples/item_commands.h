// The menu items under the soft keys. Each command throws a Refusal when the appliance refuses, and
// when it does not have what is named.

#ifndef QUILLKIT_EXAMPLES_ITEM_COMMANDS_H_
#define QUILLKIT_EXAMPLES_ITEM_COMMANDS_H_

#include <cstdint>
#include <string>

#include "examples/session.h"

namespace quillctl {

struct ItemFields {
  std::string name;
  std::string address;
  std::string path;
  std::string appTag;
  std::uint32_t fileFormat = 0;
  std::uint32_t settings = 0;
};

// The items of one key, or of all for an empty name.
void ShowItems(const Session& session, const std::string& key);

void AddItem(const Session& session, const std::string& key, const ItemFields& fields);

// The item's other fields stay.
void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName);
void DeleteItem(const Session& session, const std::string& key, const std::string& name);

// Shows the items of all keys whose name begins with the pattern, or is the pattern when
// `wholeName` is set.
void FindItems(const Session& session, const std::string& pattern, bool wholeName);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_ITEM_COMMANDS_H_
