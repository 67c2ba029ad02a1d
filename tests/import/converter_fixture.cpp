#include "tests/import/converter_fixture.h"

#include <fstream>

namespace quillkit {

void ConverterTest::ExpectScript(Converter converter, std::string_view file,
                                 std::string_view script, const model::Request& request) const {
  const std::string source = folder.Write("source", file);
  const std::string output = folder.PathOf("script");
  ASSERT_EQ(RunConverter(converter, source.c_str(), output.c_str(), request), 0);
  EXPECT_EQ(ReadBytes(output), OnDisk(script));
  std::filesystem::remove(output);
}

std::string ConverterTest::OnDisk(std::string_view text) const {
  static const std::string newline = [this] {
    std::ofstream(folder.PathOf("newline")) << '\n';
    return ReadBytes(folder.PathOf("newline"));
  }();
  std::string bytes;
  for (const char c : text) bytes += c == '\n' ? newline : std::string(1, c);
  return bytes;
}

}  // namespace quillkit
