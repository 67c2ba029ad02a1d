#include "import/convert_delimited_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <vector>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

// Returns the line without the spaces and newlines at its end.
TextSpan WithoutEnd(TextSpan line) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\n')) {
    line = line.first(line.size() - 1);
  }
  return line;
}

void SkipHeader(Conversion& conversion) {
  for (TextSpan line; conversion.NextLine(&line);) {
    conversion.Report();
    if (!WithoutEnd(line).empty()) return;
  }
}

bool IsTrimmed(char c) {
  return c == ' ' || c == '"' || (c >= '\t' && c <= '\r');
}

// Returns the value of a field, in place. Trims quotes and white space from both ends, then removes
// the quotes inside: the same as removing the quotes first.
std::string_view FieldValue(const QuotedField& field) {
  char* begin = field.text.data();
  char* end = begin + field.text.size();
  while (begin != end && IsTrimmed(*begin)) ++begin;
  while (begin != end && IsTrimmed(end[-1])) --end;
  const TextSpan value(begin, end);
  return View(field.hasQuotes ? StripChar('"', value) : value);
}

// The columns of a map in their order in a row, so that a row is read once from left to right.
class ColumnOrder {
 public:
  explicit ColumnOrder(std::span<const std::int32_t> columnMap) {
    for (std::size_t i = 0; i < columnMap.size(); ++i) {
      if (columnMap[i] >= 0) targets.push_back({columnMap[i], i});
    }
    std::sort(targets.begin(), targets.end(),
              [](const Target& a, const Target& b) { return a.column < b.column; });
  }

  // Stores the values of the mapped columns as SplitMappedColumns does.
  void Split(TextSpan line, char separator, std::span<std::string_view> out) const {
    std::fill(out.begin(), out.end(), std::string_view());
    FieldSplitter fields(line);
    std::int32_t columnsRead = 0;
    std::string_view value;
    for (const Target& target : targets) {
      QuotedField field;
      for (; columnsRead <= target.column; ++columnsRead) {
        field = fields.NextQuotedField(separator);
        if (field.text.data() == nullptr) return;
      }
      // Otherwise the column is that of the previous target.
      if (field.text.data() != nullptr) value = FieldValue(field);
      out[target.field] = value;
    }
  }

 private:
  struct Target {
    std::int32_t column;
    std::size_t field;
  };

  std::vector<Target> targets;
};

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
  const ColumnOrder columns(columnMap);
  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(job.pumpWindow, job.restoreCursor);
    line = WithoutEnd(line);
    if (!line.empty() && isFormatted) {
      columns.Split(line, *layout.separator, std::span(values).first(columnMap.size()));
      conversion.AddEntry(*book, values);
    } else {
      conversion.script().Append(View(line));
      conversion.Report();
    }
  }
  return conversion.Close();
}

int SplitMappedColumns(char* line, std::span<const std::int32_t> columnMap,
                       std::span<std::string_view> out, const char* separator) {
  ColumnOrder(columnMap).Split({line, std::strlen(line)}, *separator, out);
  return 1;
}

}  // namespace quillkit
