#include "quillctl/column_map.h"

#include <algorithm>
#include <charconv>
#include <set>
#include <system_error>

#include "quillctl/displayed_text.h"
#include "quillctl/failures.h"
#include "quillctl/import_rows.h"

namespace quillctl {
namespace {

std::int32_t ParseColumn(std::string_view text) {
  std::int32_t column = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), column);
  if (error == std::errc() && end == text.data() + text.size() && column >= -1) return column;
  throw UsageError("--map: " + Quoted(text) + " is not a column number (-1, 0, 1, ...)");
}

bool LooksLikeNumber(std::string_view text) {
  return text.find_first_not_of("-0123456789") == text.npos;
}

std::string Listed(const std::vector<std::string>& texts) {
  std::string list;
  for (const std::string& each : texts) list += (list.empty() ? "" : ", ") + Quoted(each);
  return list.empty() ? "none" : list;
}

std::int32_t ColumnOf(const std::string& heading, const std::vector<std::string>& headings) {
  const auto found = std::ranges::find(headings, heading);
  const char* fault = nullptr;
  if (found == headings.end()) {
    fault = "--map: no column has the heading ";
  } else if (std::find(found + 1, headings.end(), heading) != headings.end()) {
    fault = "--map: more than one column has the heading ";
  }
  if (fault == nullptr) return static_cast<std::int32_t>(found - headings.begin());
  throw UsageError(fault + Quoted(heading) + "; the file's headings: " + Listed(headings));
}

}  // namespace

ColumnMap::ColumnMap(std::string_view text, const AddressBook& filledBook)
    : book(filledBook), sources(filledBook.fields.size()) {
  if (text.find('=') == text.npos) {
    ParseNumbers(text);
  } else {
    ParseFields(text);
  }
}

void ColumnMap::ParseNumbers(std::string_view text) {
  sources.clear();
  for (std::size_t comma = 0; comma != text.npos; text.remove_prefix(comma + 1)) {
    comma = text.find(',');
    sources.push_back({ParseColumn(text.substr(0, comma))});
    if (comma == text.npos) break;
  }
  if (sources.size() == book.fields.size()) return;
  throw UsageError("--map: the " + std::string(book.title) + " needs " +
                   std::to_string(book.fields.size()) + " columns");
}

void ColumnMap::ParseFields(std::string_view text) {
  if (std::ranges::count(text, '"') % 2 != 0) {
    throw UsageError("--map: a double quote is not closed");
  }
  std::set<std::string> words;
  for (const std::string& each : DelimitedFields(text)) {
    const std::size_t equals = each.find('=');
    const std::string word = each.substr(0, equals);
    Source& source = SourceOf(word);
    const std::string from = equals == each.npos ? "" : each.substr(equals + 1);
    if (from.empty()) throw UsageError("--map: the field " + Quoted(word) + " has no column");
    if (!words.insert(word).second) {
      throw UsageError("--map: the field " + Quoted(word) + " occurs twice");
    }
    if (LooksLikeNumber(from)) {
      source.column = ParseColumn(from);
    } else {
      source.heading = from;
    }
  }
}

ColumnMap::Source& ColumnMap::SourceOf(const std::string& word) {
  std::vector<std::string> words;
  for (const std::string& each : book.fields) words.push_back(LowerCase(each));
  const auto found = std::ranges::find(words, word);
  if (found != words.end()) return sources[static_cast<std::size_t>(found - words.begin())];
  throw UsageError("--map: the " + std::string(book.title) + " has no field " + Quoted(word) +
                   "; its fields: " + Listed(words));
}

bool ColumnMap::HasHeadings() const {
  return std::ranges::any_of(sources, [](const Source& each) { return !each.heading.empty(); });
}

std::vector<std::int32_t> ColumnMap::Columns(const std::vector<std::string>& headings) const {
  std::vector<std::int32_t> columns;
  for (const Source& each : sources) {
    columns.push_back(each.heading.empty() ? each.column : ColumnOf(each.heading, headings));
  }
  return columns;
}

}  // namespace quillctl
