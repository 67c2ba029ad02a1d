#include "examples/column_map.h"

#include <charconv>
#include <system_error>

#include "examples/displayed_text.h"
#include "examples/failures.h"

namespace quillctl {
namespace {

std::int32_t ParseColumn(std::string_view text) {
  std::int32_t column = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), column);
  if (error == std::errc() && end == text.data() + text.size() && column >= -1) return column;
  throw UsageError("in a map, " + Quoted(text) + " is neither a column's number nor -1");
}

}  // namespace

std::vector<std::int32_t> ParseColumnMap(std::string_view text) {
  std::vector<std::int32_t> columns;
  for (;;) {
    const std::size_t comma = text.find(',');
    columns.push_back(ParseColumn(text.substr(0, comma)));
    if (comma == text.npos) return columns;
    text.remove_prefix(comma + 1);
  }
}

}  // namespace quillctl
