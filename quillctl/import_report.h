// What an import tells about the rows of its file.

#ifndef QUILLKIT_EXAMPLES_IMPORT_REPORT_H_
#define QUILLKIT_EXAMPLES_IMPORT_REPORT_H_

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

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_IMPORT_REPORT_H_
