// What an import reports about the rows of its file: on the screen, as JSON, and in the file of
// rejected rows.

#ifndef QUILLCTL_IMPORT_REPORT_H_
#define QUILLCTL_IMPORT_REPORT_H_

#include <string>

#include "quillctl/import.h"
#include "quillctl/import_file.h"
#include "quillctl/import_request.h"

namespace quillctl {

// Prints the format of the file and where the values of the fields come from, in one line.
void ShowForm(const ImportSource& source, const ImportFile& file);

// Prints a table of the first `limit` entries that were imported or, with `dryRun`, would be.
// Prints nothing if there are none.
void ShowEntries(Import& run, const AddressBook& book, bool dryRun, std::size_t limit);

// Prints to standard error the rejected rows, with line and reason, and the notes; of each at most
// `limit`, and how many more there are.
void ShowFindings(Import& run, std::size_t limit);

// Prints the result as JSON. With `dryRun`, it has the rows that would be sent.
void ShowImportJson(Import& run, const ImportSource& source, const AddressBook& book, bool dryRun);

// Throws a UsageError if the file of rejected rows is the imported one, is not a regular file, or
// exists and must not be overwritten.
void RequireRejectsFile(const ImportRequest& request);

// Writes the rejected rows to a file, byte for byte as in the imported file, and after what comes
// before the first row there. When the rows have been corrected, that file can be imported. Without
// such rows, writes nothing. Throws a Refusal if the file cannot be written.
void WriteRejectedRows(const std::string& path, Import& run, const ImportSource& source,
                       ImportFile& file);

}  // namespace quillctl

#endif  // QUILLCTL_IMPORT_REPORT_H_
