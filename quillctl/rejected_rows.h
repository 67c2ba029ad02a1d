// The file of the rows that become no entries.

#ifndef QUILLKIT_EXAMPLES_REJECTED_ROWS_H_
#define QUILLKIT_EXAMPLES_REJECTED_ROWS_H_

#include <string>

#include "quillctl/import_rows.h"

namespace quillctl {

// Writes the header, where there is one, and the rows with a fault as they stand in the file that
// is imported, so that the same command can import them once they are repaired. What is
// there stays whole until it is replaced whole. Throws a UsageError when `path` is the imported
// file or no place for a file, and a Refusal when it cannot be written.
void WriteRejectedRows(const std::string& path, const std::string& imported,
                       const ImportRows& rows);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_REJECTED_ROWS_H_
