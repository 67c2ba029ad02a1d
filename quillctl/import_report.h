// What an import reports about the rows of its file: on the screen, as JSON, and in the file of
// rejected rows.

#ifndef QUILLCTL_IMPORT_REPORT_H_
#define QUILLCTL_IMPORT_REPORT_H_

#include <string>

#include "quillctl/import_rows.h"

namespace quillctl {

// How many rows became entries, in a sentence on standard output, or were sent where nobody could
// see what became of them. `file` is its quoted name.
void ShowImportSummary(const std::string& file, const ImportRows& rows, bool isSeen);

// Why the others did not, on standard error: the first `most`, and how many more there are.
void ShowFaults(const ImportRows& rows, std::size_t most);

// Both as JSON on standard output.
void ShowImportJson(const ImportRows& rows, bool isSeen);

// Writes the header, where there is one, and the rows with a fault as they stand in the file that
// is imported, so that the same command can import them once they are repaired. What is
// there stays whole until it is replaced whole. Throws a UsageError when `path` is the imported
// file or no place for a file, and a Refusal when it cannot be written.
void WriteRejectedRows(const std::string& path, const std::string& imported,
                       const ImportRows& rows);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_REPORT_H_
