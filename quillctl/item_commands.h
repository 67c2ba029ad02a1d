// Commands for the menu items under the soft keys. Each one throws a Refusal if the appliance
// refuses, or if the key or the item does not exist.

#ifndef QUILLCTL_ITEM_COMMANDS_H_
#define QUILLCTL_ITEM_COMMANDS_H_

#include <string>

#include "quillctl/key_set.h"
#include "quillctl/session.h"

namespace quillctl {

// Lists the items of one key, or of all keys if `key` is empty.
void ShowItems(const Session& session, const std::string& key, bool json = false);

void AddItem(const Session& session, const std::string& key, const ItemFields& fields);

void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName);

// Lists the items under all keys whose name begins with the pattern or, if `wholeName` is set,
// equals it.
void FindItems(const Session& session, const std::string& pattern, bool wholeName,
               bool json = false);

}  // namespace quillctl

#endif  // QUILLCTL_ITEM_COMMANDS_H_
