#include "import/convert_delimited_text.h"

#include <algorithm>
#include <array>
#include <cstddef>

#include "import/conversion.h"
#include "import/script.h"
#include "import/text_routines.h"

namespace quillkit {
namespace {

// The line without the spaces and newlines at its end.
TextSpan WithoutEnd(TextSpan line) {
  while (!line.empty() && (line.back() == ' ' || line.back() == '\n')) {
    line = line.first(line.size() - 1);
    *line.end() = '\0';
  }
  return line;
}

void DropHeader(Conversion& conversion) {
  for (TextSpan line; conversion.NextLine(&line);) {
    if (!WithoutEnd(line).empty()) return;
  }
}

// The value of a field, in its place.
std::string_view ValueOf(char* field) {
  constexpr const char* kWhiteSpace = " \t\n\v\f\r";
  StripChar('"', field);
  std::string_view value = field;
  value.remove_prefix(std::min(value.find_first_not_of(kWhiteSpace), value.size()));
  return value.substr(0, value.find_last_not_of(kWhiteSpace) + 1);
}

}  // namespace

std::int32_t ConvertDelimitedText(const char* sourcePath, std::int32_t targetBook,
                                  std::span<const std::int32_t> columnMap, const char* scriptPath,
                                  std::int32_t skipHeader, const char* separator,
                                  std::int32_t clearFirst, std::int32_t isAdmin,
                                  const char* /*userName*/, WindowHandle pumpWindow,
                                  std::int32_t restoreCursor) {
  Conversion conversion;
  const std::int32_t failure = conversion.Open(sourcePath, scriptPath);
  if (failure != kConverted) return failure;

  const ScriptBook* book = FindScriptBook(targetBook);
  if (book != nullptr && isAdmin != 0 && clearFirst != 0) {
    WriteClearLine(conversion.script(), *book);
  }
  if (skipHeader != 0) DropHeader(conversion);

  const bool isFormatted = book != nullptr && (isAdmin != 0 || book->hasPlainPair);
  std::array<std::string_view, kMaxEntryFields> values;
  columnMap = columnMap.first(std::min(columnMap.size(), values.size()));
  for (TextSpan line; conversion.NextLine(&line);) {
    PumpPendingMessages(pumpWindow, restoreCursor);
    line = WithoutEnd(line);
    if (line.empty()) continue;
    if (isFormatted) {
      SplitMappedColumns(line.data(), columnMap, std::span(values).first(columnMap.size()),
                         separator);
      WriteEntry(conversion.script(), *book, isAdmin != 0, values);
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
  // Columns behind the last one that is wanted are not looked at.
  const std::int32_t last = *std::max_element(columnMap.begin(), columnMap.end());
  char* field = NextQuotedField(line, *separator);
  for (std::int32_t column = 0; column <= last && field != nullptr; ++column) {
    if (std::find(columnMap.begin(), columnMap.end(), column) != columnMap.end()) {
      const std::string_view value = ValueOf(field);
      for (std::size_t i = 0; i < columnMap.size(); ++i) {
        if (columnMap[i] == column) out[i] = value;
      }
    }
    field = NextQuotedField(nullptr, *separator);
  }
  return 1;
}

}  // namespace quillkit
