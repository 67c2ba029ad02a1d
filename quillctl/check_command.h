// Whether the toolkit can work with an appliance: a walk through what it answers.

#ifndef QUILLKIT_EXAMPLES_CHECK_COMMAND_H_
#define QUILLKIT_EXAMPLES_CHECK_COMMAND_H_

#include "quillctl/session.h"

namespace quillctl {

// Makes the steps of checkup.h, the changing ones where `write` is set, and shows each as a line,
// and then a judgement; or all of it as JSON. Throws a Refusal that judges when not every step was
// good.
void CheckAppliance(const Credentials& credentials, bool write, bool json);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_CHECK_COMMAND_H_
