// Commands for the soft keys of the front panel. Each one throws a Refusal if the appliance
// refuses.

#ifndef QUILLCTL_KEY_COMMANDS_H_
#define QUILLCTL_KEY_COMMANDS_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

// Lists the keys and how many items each has on the server. Does not read the items.
void ShowKeys(const Session& session, bool json = false);

// Adds a key. The name must not be longer than 31 characters: the library would send an empty name.
void AddKey(const Session& session, const std::string& name);
void DeleteKey(const Session& session, const std::string& name);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_COMMANDS_H_
