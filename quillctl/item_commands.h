// The menu items under the soft keys. Each command throws a Refusal when the appliance refuses, and
// when it does not have what is named.

#ifndef QUILLKIT_EXAMPLES_ITEM_COMMANDS_H_
#define QUILLKIT_EXAMPLES_ITEM_COMMANDS_H_

#include <optional>
#include <string>

#include "quillctl/item_fields.h"

namespace quillctl {

// The items of one key, or of all for an empty name.
void ShowItems(const Session& session, const std::string& key, bool json = false);

void AddItem(const Session& session, const std::string& key, const ItemFields& fields);

// What an edit sets; the item's other fields stay.
struct ItemEdit {
  std::optional<std::string> name;
  std::optional<std::string> address;
  std::optional<std::string> path;
  std::optional<std::string> appTag;
  std::optional<std::uint32_t> fileFormat;
  std::optional<std::uint32_t> settings;
};
void EditItem(const Session& session, const std::string& key, const std::string& name,
              const ItemEdit& edit);
void RenameItem(const Session& session, const std::string& key, const std::string& oldName,
                const std::string& newName);
void DeleteItem(const Session& session, const std::string& key, const std::string& name);

// Shows the items of all keys whose name begins with the pattern, or is the pattern when
// `wholeName` is set.
void FindItems(const Session& session, const std::string& pattern, bool wholeName,
               bool json = false);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_ITEM_COMMANDS_H_
