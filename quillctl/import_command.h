// `quillctl entry import`: imports a file into the appliance's address books.

#ifndef QUILLCTL_IMPORT_COMMAND_H_
#define QUILLCTL_IMPORT_COMMAND_H_

#include "quillctl/import_plan.h"
#include "quillctl/session.h"

namespace quillctl {

// Imports the file. Prints how many rows were imported, the invalid rows, the size of each book
// that may have changed, and the first new entries. Throws a UsageError as ImportPlan does, and a
// Refusal if the library or the appliance refuses or the file has no valid row.
void ImportInSession(const ImportRequest& request, const Session& session);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_COMMAND_H_
