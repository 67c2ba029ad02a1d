// The menu items under the soft keys. Each command throws a Refusal when the appliance refuses, and
// when it does not have what is named.

#ifndef QUILLCTL_ITEM_COMMANDS_H_
#define QUILLCTL_ITEM_COMMANDS_H_

#include <string>

#include "quillctl/key_set.h"
#include "quillctl/session.h"

namespace quillctl {

class Commands;

// The items of one key, or of all for an empty name.
void ShowItems(const Session& session, const std::string& key, bool json = false);

void AddItem(const Session& session, const std::string& key, const ItemFields& fields);

void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName);

// Shows the items of all keys whose name begins with the pattern, or is the pattern when
// `wholeName` is set.
void FindItems(const Session& session, const std::string& pattern, bool wholeName,
               bool json = false);

// Adds "items", "find", "add-item", "edit-item", "rename-item", "move" and "delete-item".
void AddItemCommands(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_ITEM_COMMANDS_H_
