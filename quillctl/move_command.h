// Moves a menu item. The library has no function for that: the item is added anew.

#ifndef QUILLKIT_EXAMPLES_MOVE_COMMAND_H_
#define QUILLKIT_EXAMPLES_MOVE_COMMAND_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

// Moves an item under another key: it is added there before it is deleted here, so that a failure
// leaves it in both places and never in none.
void MoveToKey(const Session& session, const std::string& key, const std::string& name,
               const std::string& target);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_MOVE_COMMAND_H_
