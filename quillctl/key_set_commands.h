// `quillctl export` and `quillctl apply`: save an appliance's key set to a file, and restore it.

#ifndef QUILLCTL_KEY_SET_COMMANDS_H_
#define QUILLCTL_KEY_SET_COMMANDS_H_

namespace quillctl {

class Commands;

// Adds "export" and "apply".
void AddKeySetCommands(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_SET_COMMANDS_H_
