// What an import reports about the rows of its file: on the screen, as JSON, and in the file of
// rejected rows.

#ifndef QUILLCTL_IMPORT_REPORT_H_
#define QUILLCTL_IMPORT_REPORT_H_

#include <string>

#include "quillctl/import_rows.h"

namespace quillctl {

// Prints to standard output how many rows were imported or, unless `isVerified` is set, sent.
// `file` is the quoted file name.
void ShowImportSummary(const std::string& file, const ImportRows& rows, bool isVerified);

// Prints to standard error the line and the fault of each invalid row, but at most `limit`, and how
// many more there are.
void ShowFaults(const ImportRows& rows, std::size_t limit);

// Prints the summary and all invalid rows to standard output as JSON. Unless `isVerified` is set,
// it is unknown which of the `sent` rows arrived.
void ShowImportJson(const ImportRows& rows, std::size_t sent, bool isVerified);

// Throws a UsageError if `path` is the imported file or is not a regular file, and, unless
// `overwrite` is set, if the file exists.
void RequireRejectsFile(const std::string& path, const std::string& imported, bool overwrite);

// Writes the header, if there is one, and the rows with a fault to a file, byte for byte as in the
// imported file. After the rows have been corrected, the same command can import that file. An
// existing file is replaced as a whole. Without such rows, writes nothing. Throws a Refusal if the
// file cannot be written.
void WriteRejectedRows(const std::string& path, const ImportRows& rows);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_REPORT_H_
