// Items for the tests of soft keys.

#ifndef QUILLKIT_TESTS_SUPPORT_MENU_ITEM_H_
#define QUILLKIT_TESTS_SUPPORT_MENU_ITEM_H_

#include <string_view>

#include "bridge/menu_item.h"

namespace quillkit {

// It has a name and nothing else, as the record of a key has, too.
inline CMenuItem MakeItem(std::string_view name) {
  CMenuItem item;
  item.SetName(name);
  return item;
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_MENU_ITEM_H_
