// Turns a mail server's comma-separated export into a script for the public e-mail book.
//
// A row counts if its first field is the bare word Mailbox, without quotes. Its name is the fourth
// field where all fields before it are plain and not empty. The address follows the first "SMTP:"
// behind the name, in that case only, up to the first percent sign, comma or double quote; an
// address that none of these ends takes the rest of the line, its newline included.
//
// Where a field before the name is quoted or empty, the row is read as the walk below falls out,
// and the server's files count on it: with an empty second field, or a quoted one, the name is the
// third field. A row that ends before its name, or with it, gives no entry.

#ifndef QUILLKIT_IMPORT_CONVERT_MAIL_SERVER_EXPORT_H_
#define QUILLKIT_IMPORT_CONVERT_MAIL_SERVER_EXPORT_H_

#include <cstdint>
#include <string_view>

#include "import/conversion_job.h"
#include "import/line_reader.h"

namespace quillkit {

// Arguments and results are those of ConvertDirectoryExport.
std::int32_t ConvertMailServerExport(ConversionJob job);

// A row taken to pieces. What is not there is null.
struct MailServerRow {
  bool isMailbox = false;  // whether the row counts
  std::string_view name;   // null in a row that ends with its name, too
  std::string_view address;
};

// Splits a row, its newline included where it has one. The values lie in `line`, which the
// splitting uses up.
MailServerRow SplitMailServerRow(TextSpan line);

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_CONVERT_MAIL_SERVER_EXPORT_H_
