// The demonstration: what Quillkit is for, in one run.

#ifndef QUILLCTL_DEMO_COMMAND_H_
#define QUILLCTL_DEMO_COMMAND_H_

namespace quillctl {

class Commands;

// Adds "demo".
void AddDemoCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_DEMO_COMMAND_H_
