// The whole key set as a file: out of an appliance, and into one.

#ifndef QUILLCTL_KEY_SET_COMMANDS_H_
#define QUILLCTL_KEY_SET_COMMANDS_H_

namespace quillctl {

class Commands;

// Adds "export" and "apply".
void AddKeySetCommands(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_KEY_SET_COMMANDS_H_
