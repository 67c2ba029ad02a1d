// The demonstration: what Quillkit is for, in one run.

#ifndef QUILLKIT_EXAMPLES_DEMO_COMMAND_H_
#define QUILLKIT_EXAMPLES_DEMO_COMMAND_H_

#include <string>

#include "quillctl/session.h"

namespace quillctl {

// The folder of the files that came with quillctl: "data" beside it where it was built, else the
// one that is installed with it.
std::string DemoDataFolder();

// Looks at the appliance, adds a soft key with items, imports the three files of the data folder
// into the address books, takes the key away again and logs out, and shows each step's outcome.
// Throws a UsageError, with nothing done, when the files are not there. It ends at the first step
// that fails, with that step's exception.
void RunDemo(Session& session, const std::string& dataFolder);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_DEMO_COMMAND_H_
