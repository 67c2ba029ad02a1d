#include "tests/import/converter_fixture.h"

#include <fstream>

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

void ConverterTest::ExpectScript(Converter converter, std::string_view file,
                                 std::string_view script, const model::Request& request) const {
  const std::string source = folder_.Write("source", file);
  const std::string output = folder_.PathOf("script");
  ASSERT_EQ(RunConverter(converter, source.c_str(), output.c_str(), request), 0);
  EXPECT_EQ(ReadBytes(output), OnDisk(script));
  std::filesystem::remove(output);
}

std::string ConverterTest::OnDisk(std::string_view text) const {
  static const std::string newline = [this] {
    std::ofstream(folder_.PathOf("newline")) << '\n';
    return ReadBytes(folder_.PathOf("newline"));
  }();
  std::string bytes;
  for (const char c : text) bytes += c == '\n' ? newline : std::string(1, c);
  return bytes;
}

}  // namespace quillkit
