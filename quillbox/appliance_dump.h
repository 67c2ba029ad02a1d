// Reading the books of an appliance through its server library.

#ifndef QUILLBOX_APPLIANCE_DUMP_H_
#define QUILLBOX_APPLIANCE_DUMP_H_

#include "quillbox/commands.h"
#include "simulator/store.h"

namespace quillbox {

// Fills a store that is in its initial state: all books but the log; of the private ones, those of
// the account that logs in. A book that the account may not read is reported on standard error.
// Throws a console::Refusal if the login or a read fails, or if a record is invalid.
void ReadAppliance(const DumpOptions& options, Store& store);

}  // namespace quillbox

#endif  // QUILLBOX_APPLIANCE_DUMP_H_
