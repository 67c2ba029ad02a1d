// The import driver: a file of this machine is turned into a script, and the server runs it.

#ifndef QUILLKIT_IMPORT_IMPORT_ADDRESS_BOOK_H_
#define QUILLKIT_IMPORT_IMPORT_ADDRESS_BOOK_H_

#include <cstdint>

#include "import/import_options.h"

namespace quillkit {

class CScanner;

// What the exported ImportAddressBook does, and what it gives, in this order:
//
//   -3    `options` is null; nothing was touched
//   -1    nothing matches `path`, or it is null
//   -11   the format is unknown; an empty temporary file stays behind
//   -2    the file cannot be read to its end. As with the next one, nothing reaches the server, and
//         what there is of the script stays behind as a temporary file
//   -1    the script cannot be written to its end
//   -1    the scanner is null or not bound
//   else  the status of CAgent::RunBatch, 0 for a script that ran without an error
//
// "*" and "?" in the last component of `path` are wildcards in the second test and nowhere else: a
// pattern that matches something is then opened as it stands. The temporary script is written
// through the file that was created, not through its name, and is deleted once the server has
// answered. A ready-made script goes to the server by `path` itself, and is never
// deleted.
std::int32_t ImportAddressBookFile(const CScanner* scanner, const char* path,
                                   const ImportOptions* options);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_IMPORT_ADDRESS_BOOK_H_
