// Filling the appliance's address books from a file.

#ifndef QUILLCTL_IMPORT_COMMAND_H_
#define QUILLCTL_IMPORT_COMMAND_H_

#include "quillctl/import_plan.h"
#include "quillctl/session.h"

namespace quillctl {

class Commands;

// Imports the file and tells what became of its rows, the size of each book that it may have
// filled, and the first entries that the book did not hold before. Throws a UsageError as
// ImportPlan does, and a Refusal if the library or the appliance refuses or no row can be sent.
void ImportAsPartOfSession(const ImportRequest& request, const Session& session);

// Adds "import".
void AddImportCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_COMMAND_H_
