// Scripts by which a shell completes quillctl's commands and options. They are made from the
// command line's own description.

#ifndef QUILLCTL_COMPLETION_H_
#define QUILLCTL_COMPLETION_H_

namespace quillctl {

class Commands;

// Adds "completion".
void AddCompletionCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_COMPLETION_H_
