// Shell scripts that complete the commands and options of quillctl. They are generated from the
// definition of the command line.

#ifndef QUILLCTL_COMPLETION_H_
#define QUILLCTL_COMPLETION_H_

namespace quillctl {

class Commands;

// Adds "completion".
void AddCompletionCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_COMPLETION_H_
