// Items for the tests of soft keys.

#ifndef QUILLKIT_TESTS_SUPPORT_MENU_ITEM_H_
#define QUILLKIT_TESTS_SUPPORT_MENU_ITEM_H_

#include <string_view>

#include "bridge/menu_item.h"

namespace quillkit {

// Returns an item with only a name. It can also serve as the record of a key.
inline CMenuItem MakeItem(std::string_view name) {
  CMenuItem item;
  item.SetName(name);
  return item;
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_MENU_ITEM_H_
