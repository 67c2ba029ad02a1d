// Converts the comma-separated export of a mail server into a script for the public e-mail book.
//
// A row is imported if its first field is exactly the word Mailbox, without quotes. If all fields
// before the name are unquoted and not empty, the name is the fourth field. The address follows the
// first "SMTP:" after the name (case-sensitive) and ends at the first percent sign, comma or double
// quote; otherwise at the end of the line, including its newline.
//
// If a field before the name is quoted or empty, the result follows from the steps of the search
// for the name in the .cpp file. Do not change them: existing files depend on the result. For
// example, after an empty or quoted second field, the name is the third field. A row that ends
// before or with its name yields no entry.

#ifndef QUILLKIT_IMPORT_CONVERT_MAIL_SERVER_EXPORT_H_
#define QUILLKIT_IMPORT_CONVERT_MAIL_SERVER_EXPORT_H_

#include <cstdint>

#include "import/conversion_job.h"

namespace quillkit {

// Argument and results are those of ConvertDirectoryExport.
std::int32_t ConvertMailServerExport(ConversionJob job);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_MAIL_SERVER_EXPORT_H_
