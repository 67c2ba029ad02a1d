// The columns of one row of a delimited file. The input: the separator, the columns of a map, a
// newline, and the row.

#include <vector>

#include "fuzz/input.h"
#include "import/convert_delimited_text.h"

namespace quillkit {
namespace {

constexpr std::string_view kWhite = " \t\n\v\f\r";

void CheckValue(std::string_view value, std::string_view line) {
  if (value.empty()) return;
  const auto begin = reinterpret_cast<std::uintptr_t>(value.data());
  const auto lineBegin = reinterpret_cast<std::uintptr_t>(line.data());
  Require(begin >= lineBegin && begin + value.size() <= lineBegin + line.size(),
          "a value is inside its line");
  Require(value.find('"') == value.npos, "a value has no quote");
  Require(kWhite.find(value.front()) == kWhite.npos && kWhite.find(value.back()) == kWhite.npos,
          "a value has no white space at its ends");
}

void CheckColumns(std::string_view row, const std::vector<std::int32_t>& map, char separator) {
  std::vector<char> line(row.begin(), row.end());
  line.push_back('\0');
  std::vector<std::string_view> values(map.size(), "unset");
  Require(SplitMappedColumns(line.data(), map, values, &separator) == 1, "the result is 1");
  for (std::size_t i = 0; i < map.size(); ++i) {
    CheckValue(values[i], {line.data(), line.size() - 1});
    Require(map[i] >= 0 || values[i].empty(), "a negative column yields an empty value");
    for (std::size_t j = 0; j < i; ++j) {
      Require(map[i] != map[j] || values[i] == values[j], "a column always has the same value");
    }
  }
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::Input input(data, size);
  const char separator = input.TakeChar();
  const std::vector<std::int32_t> map = input.TakeColumns();
  input.TakeChar();
  const std::string_view row = input.Rest().substr(0, input.Rest().find('\0'));
  quillkit::CheckColumns(row, map, separator);
  return 0;
}
