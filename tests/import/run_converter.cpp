#include "tests/import/run_converter.h"

#include <utility>

#include "import/convert_delimited_text.h"
#include "import/convert_directory_export.h"
#include "import/convert_mail_server_export.h"

namespace quillkit {

std::int32_t RunConverter(Converter converter, const char* source, const char* script,
                          const model::Request& request) {
  ConversionJob job{.sourcePath = source,
                    .script = script,
                    .isAdmin = request.isAdmin,
                    .clearFirst = request.clearFirst};
  switch (converter) {
    case Converter::kDirectory:
      return ConvertDirectoryExport(std::move(job));
    case Converter::kMailServer:
      return ConvertMailServerExport(std::move(job));
    default:
      return ConvertDelimitedText(std::move(job), {.targetBook = request.targetBook,
                                                   .columnMap = request.columnMap,
                                                   .skipHeader = request.skipHeader});
  }
}

}  // namespace quillkit
