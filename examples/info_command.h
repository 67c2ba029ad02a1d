// What the appliance says of itself, and who is logged in.

#ifndef QUILLKIT_EXAMPLES_INFO_COMMAND_H_
#define QUILLKIT_EXAMPLES_INFO_COMMAND_H_

#include "examples/session.h"

namespace quillctl {

void ShowInfo(const Session& session, bool json = false);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_INFO_COMMAND_H_
