// The import: converts a file of this machine into a script and makes the server run it.

#ifndef QUILLKIT_IMPORT_IMPORT_ADDRESS_BOOK_H_
#define QUILLKIT_IMPORT_IMPORT_ADDRESS_BOOK_H_

#include <cstdint>

#include "import/import_options.h"

namespace quillkit {

class CScanner;

// The work of the exported ImportAddressBook. Returns, in the order of the checks:
//
//   -3     `options` is null; nothing is touched
//   -1     nothing matches `path`, or it is null
//   -11    the format is unknown; an empty temporary file remains
//   -2     the file cannot be read completely. Here and in the next case, nothing is sent to the
//          server, and the partial script remains as a temporary file
//   -1     the script cannot be written completely
//   -1     the scanner is null or not bound
//   other  the status of CAgent::RunBatch; 0 if the script ran without an error
//
// "*" and "?" in the last component of `path` are wildcards only in the second check; the file is
// then opened under the name as given. The temporary script is written through the handle that
// created it, not through its name, and is deleted after the server has answered. A ready-made
// script is sent by its own path and is never deleted.
// Server calls: those of CAgent::RunBatch.
std::int32_t ImportAddressBookFile(const CScanner* scanner, const char* path,
                                   const ImportOptions* options);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_IMPORT_ADDRESS_BOOK_H_
