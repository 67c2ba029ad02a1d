// Filling the appliance's address books from a file.

#ifndef QUILLKIT_EXAMPLES_IMPORT_COMMAND_H_
#define QUILLKIT_EXAMPLES_IMPORT_COMMAND_H_

#include "quillctl/import_request.h"
#include "quillctl/session.h"

namespace quillctl {

// The whole command, login included; or what the request's dryRun leaves of it, which shows the
// script. Rows that can become no entry are not sent: they go to the file of rejects, before the
// import, and their faults are told. Throws a UsageError as ImportPlan does; a Refusal when the
// library or the appliance refuses, and when there is no row to send; a PartialFailure when not
// every row became an entry.
void RunImport(const ImportRequest& request, const Credentials& credentials);

// Imports the file and tells what became of its rows, the size of each book that it may have
// filled, and the first entries that the book did not hold before. Throws as RunImport does, but
// for rows that did not become entries.
void ImportAsPartOfSession(const ImportRequest& request, const Session& session);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_IMPORT_COMMAND_H_
