// The demonstration: one run that shows the main functions of Quillkit.

#ifndef QUILLCTL_DEMO_COMMAND_H_
#define QUILLCTL_DEMO_COMMAND_H_

namespace quillctl {

class Commands;

// Adds "demo".
void AddDemoCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_DEMO_COMMAND_H_
