#include "import/convert_file.h"

#include <utility>

#include "bridge/status.h"
#include "import/convert_delimited_text.h"
#include "import/convert_directory_export.h"
#include "import/convert_mail_server_export.h"

namespace quillkit {

std::int32_t ConvertFile(const char* sourcePath, ScriptTarget script, const ImportOptions& options,
                         std::int32_t isAdmin, const char* userName) {
  switch (options.format) {
    case ImportFormatDirectory:
      return ConvertDirectoryExport(sourcePath, std::move(script), options.clearFirst, isAdmin,
                                    nullptr, 0);
    case ImportFormatMailServer:
      return ConvertMailServerExport(sourcePath, std::move(script), options.clearFirst, isAdmin,
                                     nullptr, 0);
    case ImportFormatDelimited:
      return ConvertDelimitedText(sourcePath, options.targetBook, ColumnMapOf(options),
                                  std::move(script), options.skipHeader, ",", options.clearFirst,
                                  isAdmin, userName, nullptr, 0);
    default:
      return kUnknownFormat;
  }
}

}  // namespace quillkit
