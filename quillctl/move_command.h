// Another place for a menu item. The library has no function for that: an item is added anew.

#ifndef QUILLKIT_EXAMPLES_MOVE_COMMAND_H_
#define QUILLKIT_EXAMPLES_MOVE_COMMAND_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

// Moves an item under another key: it is added there before it is deleted here, so that a failure
// leaves it in both places and never in none.
void MoveToKey(const Session& session, const std::string& key, const std::string& name,
               const std::string& target);

// Moves an item in front of another one of its key, or to the end for an empty name. The items that
// are to stand behind the place are deleted and added again, one by one; this takes an appliance
// that puts new items at the end. One that orders items itself shows at the first of them, and is
// told as a Refusal with nothing changed. When an item cannot be added again, after a second try,
// the Refusal tells all its fields.
void MoveWithinKey(const Session& session, const std::string& key, const std::string& name,
                   const std::string& next);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_MOVE_COMMAND_H_
