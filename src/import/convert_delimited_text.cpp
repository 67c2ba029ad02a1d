#include "import/convert_delimited_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

// Returns the line without the spaces and newlines at its end.
TextSpan WithoutEnd(TextSpan line) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\n')) {
    line.back() = '\0';
    line = line.first(line.size() - 1);
  }
  return line;
}

void SkipHeader(Conversion& conversion) {
  for (TextSpan line; conversion.NextLine(&line);) {
    if (!WithoutEnd(line).empty()) return;
  }
}

bool IsTrimmed(char c) {
  return c == ' ' || c == '"' || (c >= '\t' && c <= '\r');
}

// Returns the value of a field, in place. Trims quotes and white space from both ends, then removes
// the quotes inside: the same as removing the quotes first.
std::string_view FieldValue(TextSpan field) {
  char* begin = field.data();
  char* end = begin + field.size();
  while (begin != end && IsTrimmed(*begin)) ++begin;
  while (begin != end && IsTrimmed(end[-1])) --end;
  return View(StripChar('"', {begin, end}));
}

}  // namespace

std::int32_t ConvertDelimitedText(ConversionJob job, const DelimitedLayout& layout) {
  Conversion conversion;
  const std::int32_t failure = conversion.Open(&job);
  if (failure != kConverted) return failure;

  const ScriptBook* book = FindScriptBook(layout.targetBook);
  if (book != nullptr && job.isAdmin && job.clearFirst) WriteClearLine(conversion.script(), *book);
  if (layout.skipHeader) SkipHeader(conversion);

  const bool isFormatted = book != nullptr && (job.isAdmin || book->hasPlainPair);
  std::array<std::string_view, kMaxEntryFields> values;
  const auto columnMap = layout.columnMap.first(std::min(layout.columnMap.size(), values.size()));
  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(job.pumpWindow, job.restoreCursor);
    line = WithoutEnd(line);
    if (line.empty()) continue;
    if (isFormatted) {
      SplitMappedColumns(line.data(), columnMap, std::span(values).first(columnMap.size()),
                         layout.separator);
      WriteEntry(conversion.script(), *book, job.isAdmin, values);
    } else {
      conversion.script().Append(View(line));
    }
  }
  return conversion.Close();
}

int SplitMappedColumns(char* line, std::span<const std::int32_t> columnMap,
                       std::span<std::string_view> out, const char* separator) {
  std::fill(out.begin(), out.end(), std::string_view());
  if (columnMap.empty()) return 1;
  // Columns after the last one in the map are not read.
  const std::int32_t last = *std::max_element(columnMap.begin(), columnMap.end());
  for (std::int32_t column = 0; column <= last; ++column) {
    const TextSpan field = NextQuotedField(column == 0 ? line : nullptr, *separator);
    if (field.data() == nullptr) break;
    if (std::find(columnMap.begin(), columnMap.end(), column) == columnMap.end()) continue;
    const std::string_view value = FieldValue(field);
    for (std::size_t i = 0; i < columnMap.size(); ++i) {
      if (columnMap[i] == column) out[i] = value;
    }
  }
  return 1;
}

}  // namespace quillkit
