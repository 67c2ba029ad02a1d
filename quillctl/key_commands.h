// The soft keys of the front panel. Each command throws a Refusal when the appliance refuses.

#ifndef QUILLCTL_KEY_COMMANDS_H_
#define QUILLCTL_KEY_COMMANDS_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

class Commands;

// The keys and the number of their items on the server. Reads no items.
void ShowKeys(const Session& session, bool json = false);

// Names have at most 31 characters. The library sends the name of a new key that is longer as an
// empty one.
void AddKey(const Session& session, const std::string& name);
void DeleteKey(const Session& session, const std::string& name);

// Adds "keys", "add-key", "rename-key" and "delete-key".
void AddKeyCommands(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_COMMANDS_H_
