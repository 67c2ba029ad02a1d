// The columns of one row of a delimited file. The input: the separator, five columns of a map of
// which the next digit tells how many count, a newline, and the row.

#include <vector>

#include "fuzz/input.h"
#include "import/convert_delimited_text.h"

namespace quillkit {
namespace {

constexpr std::string_view kWhite = " \t\n\v\f\r";
// The values before the splitting: one that is not there has to be made empty.
constexpr std::string_view kUnset = "unset";

bool IsSubsequence(std::string_view part, std::string_view whole) {
  std::size_t found = 0;
  for (const char c : whole) {
    if (found < part.size() && part[found] == c) ++found;
  }
  return found == part.size();
}

void CheckValue(std::string_view value, std::string_view row, std::string_view line) {
  if (value.empty()) return;
  const auto begin = reinterpret_cast<std::uintptr_t>(value.data());
  const auto lineBegin = reinterpret_cast<std::uintptr_t>(line.data());
  Require(begin >= lineBegin && begin + value.size() <= lineBegin + line.size(),
          "a value lies in its line");
  Require(value.find('"') == value.npos, "a value has no quote");
  Require(kWhite.find(value.front()) == kWhite.npos && kWhite.find(value.back()) == kWhite.npos,
          "a value has no white space at its ends");
  Require(IsSubsequence(value, row), "a value is made of the row's characters in their order");
}

bool AreApart(std::string_view one, std::string_view other) {
  return one.empty() || other.empty() || one.data() + one.size() <= other.data() ||
         other.data() + other.size() <= one.data();
}

void CheckColumns(std::string_view row, const std::vector<std::int32_t>& map, char separator) {
  std::vector<char> line(row.begin(), row.end());
  line.push_back('\0');
  std::vector<std::string_view> values(map.size(), kUnset);
  Require(SplitMappedColumns(line.data(), map, values, &separator) == 1, "the result is 1");
  for (std::size_t i = 0; i < map.size(); ++i) {
    CheckValue(values[i], row, {line.data(), line.size() - 1});
    Require(map[i] >= 0 || values[i].empty(), "no column gives no value");
    for (std::size_t j = 0; j < i; ++j) {
      Require(map[i] == map[j] ? values[i] == values[j] : AreApart(values[i], values[j]),
              "each column has a value of its own");
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
