// `quillctl entry import`: imports a file into an address book of the appliance.

#ifndef QUILLCTL_IMPORT_COMMAND_H_
#define QUILLCTL_IMPORT_COMMAND_H_

#include "quillctl/import_request.h"
#include "quillctl/session.h"

namespace quillctl {

// Imports the file and prints what became of its rows. Throws a UsageError for an option that does
// not fit the format, the book or the account, and for a file that cannot be read; a Refusal if the
// library or the appliance refuses, or if there is no row to send; a PartialFailure if some rows
// were not imported; and an UnknownResult if the book cannot be read afterwards.
void ImportInSession(const ImportRequest& request, const Session& session);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_COMMAND_H_
