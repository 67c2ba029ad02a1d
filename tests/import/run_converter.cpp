#include "tests/import/run_converter.h"

#include "import/convert_delimited_text.h"
#include "import/convert_directory_export.h"
#include "import/convert_mail_server_export.h"

namespace quillkit {

std::int32_t RunConverter(Converter converter, const char* source, const char* script,
                          const model::Request& request) {
  const std::int32_t isAdmin = request.isAdmin ? 1 : 0;
  const std::int32_t clearFirst = request.clearFirst ? 1 : 0;
  switch (converter) {
    case Converter::kDirectory:
      return ConvertDirectoryExport(source, script, clearFirst, isAdmin, nullptr, 0);
    case Converter::kMailServer:
      return ConvertMailServerExport(source, script, clearFirst, isAdmin, nullptr, 0);
    default:
      return ConvertDelimitedText(source, request.targetBook, request.columnMap, script,
                                  request.skipHeader ? 1 : 0, ",", clearFirst, isAdmin, "", nullptr,
                                  0);
  }
}

}  // namespace quillkit
