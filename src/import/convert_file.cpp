#include "import/convert_file.h"

#include <utility>

#include "bridge/status.h"
#include "import/convert_delimited_text.h"
#include "import/convert_directory_export.h"
#include "import/convert_mail_server_export.h"

namespace quillkit {

std::int32_t ConvertFile(ConversionJob job, const ImportOptions& options) {
  job.clearFirst = options.clearFirst != 0;
  switch (options.format) {
    case ImportFormatDirectory:
      return ConvertDirectoryExport(std::move(job));
    case ImportFormatMailServer:
      return ConvertMailServerExport(std::move(job));
    case ImportFormatDelimited:
      return ConvertDelimitedText(std::move(job), {.targetBook = options.targetBook,
                                                   .columnMap = ColumnMapOf(options),
                                                   .skipHeader = options.skipHeader != 0});
    default:
      return kUnknownFormat;
  }
}

}  // namespace quillkit
