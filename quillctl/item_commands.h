// Commands for the menu items under the soft keys. Each one throws a Refusal if the appliance
// refuses, or if the key or the item does not exist.

#ifndef QUILLCTL_ITEM_COMMANDS_H_
#define QUILLCTL_ITEM_COMMANDS_H_

#include <cstdint>
#include <iterator>
#include <optional>
#include <string>

#include "console/confirmation.h"
#include "quillctl/key_set.h"
#include "quillctl/session.h"

namespace quillctl {

// The given values of an item, in the order of kItemTexts and kItemNumbers.
struct ItemValues {
  std::optional<std::string> texts[std::size(kItemTexts)];
  std::optional<std::uint32_t> numbers[std::size(kItemNumbers)];
};

struct ItemArguments {
  std::string key = {};
  std::string name = {};     // of an item that exists, or the beginning of its name
  std::string newName = {};  // of the item, or the key that it is moved to
  ItemValues values = {};
  bool wholeName = false;
  bool json = false;
  bool jsonLines = false;
  console::Consent consent = {};
};

// Lists the items of one key, or of all keys if none is given.
void ShowItems(const Session& session, const ItemArguments& a);

void AddItem(const Session& session, const ItemArguments& a);

void RenameItem(const Session& session, const ItemArguments& a);

// Lists the items under all keys whose name begins with the given one or, if `wholeName` is set,
// equals it.
void FindItems(const Session& session, const ItemArguments& a);

}  // namespace quillctl

#endif  // QUILLCTL_ITEM_COMMANDS_H_
