#include "quillctl/import_rows.h"

#include <algorithm>
#include <numeric>
#include <utility>

#include "import/convert_delimited_text.h"
#include "import/convert_mail_server_export.h"
#include "import/line_reader.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

using quillkit::LineReader;

constexpr const char* kSeparator = ",";

constexpr std::int32_t kMailNameColumn = 3;

bool HasOpenQuote(std::string_view text) {
  return std::ranges::count(text, '"') % 2 != 0;
}

// Returns the values of the columns, null for a column that the line does not have. They point into
// `line`, which is changed.
std::vector<std::string_view> MappedValues(std::string& line,
                                           std::span<const std::int32_t> columns) {
  std::vector<std::string_view> values(columns.size());
  quillkit::SplitMappedColumns(line.data(), columns, values, kSeparator);
  return values;
}

// Returns whether the column contains a doubled quote, which other programs read as one quote.
bool HasDoubledQuote(std::string_view text, std::int32_t wanted) {
  bool isQuoted = false;
  std::int32_t column = 0;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] == *kSeparator && !isQuoted) ++column;
    if (text[i] != '"') continue;
    if (isQuoted && text.substr(i + 1).starts_with('"')) {
      if (column == wanted) return true;
      ++i;
    } else {
      isQuoted = !isQuoted;
    }
  }
  return false;
}

ImportRow DelimitedRow(const FileLines& line, std::span<const std::int32_t> columns) {
  ImportRow row{line.Number(), line.Bytes()};
  row.fault = LineFault(line.Text());
  if (!row.fault.empty()) return row;
  std::string text(line.Text());
  const std::vector<std::string_view> values = MappedValues(text, columns);
  row.values.assign(values.begin(), values.end());
  for (std::size_t i = 0; i < values.size() && row.fault.empty(); ++i) {
    if (values[i].data() != nullptr || columns[i] < 0) continue;
    row.fault = HasOpenQuote(line.Text()) ? "a double quote is not closed"
                                          : "the row has no column " + std::to_string(columns[i]);
  }
  return row;
}

// Returns whether the class of a line is Mailbox, with or without quotes.
bool IsMailboxLine(std::string_view text) {
  constexpr std::int32_t kClass[] = {0};
  std::string line(text);
  return MappedValues(line, kClass).front() == "Mailbox";
}

ImportRow ReadMailServerRow(const FileLines& line) {
  ImportRow row{line.Number(), line.Bytes()};
  row.fault = LineFault(line.Text());
  if (!row.fault.empty()) return row;
  std::string text = line.TextWithLf();
  const quillkit::MailServerRow parts = quillkit::SplitMailServerRow(text);
  if (!parts.isMailbox) {
    row.fault = "the class must be Mailbox, without quotes";
  } else if (parts.name.data() == nullptr) {
    row.fault = HasOpenQuote(line.Text()) ? "a double quote is not closed"
                                          : "the line has no field after the name";
  } else if (parts.address.data() == nullptr) {
    row.fault = "no address: there is no \"SMTP:\" after the name";
  } else if (HasDoubledQuote(line.Text(), kMailNameColumn)) {
    row.fault = "the name contains a doubled quote and would be cut there";
  } else {
    row.values = {std::string(parts.name), std::string(parts.address)};
  }
  return row;
}

}  // namespace

std::size_t ImportRows::Entries() const {
  return static_cast<std::size_t>(
      std::ranges::count_if(rows, [](const ImportRow& row) { return row.fault.empty(); }));
}

std::vector<std::string> DelimitedFields(std::string_view line) {
  std::string text(line);
  std::vector<std::int32_t> columns(
      static_cast<std::size_t>(std::ranges::count(text, *kSeparator)) + 1);
  std::iota(columns.begin(), columns.end(), 0);
  std::vector<std::string> fields;
  for (const std::string_view value : MappedValues(text, columns)) {
    if (value.data() != nullptr) fields.emplace_back(value);
  }
  return fields;
}

std::string LineFault(std::string_view text) {
  if (text.find('\0') != text.npos) return kNul;
  if (text.find('\r') != text.npos) return kBareReturn;
  if (text.size() < LineReader::kMaxLine) return {};
  return "the line is longer than " + std::to_string(LineReader::kMaxLine - 1) + " bytes";
}

ImportRows DelimitedRows(std::string_view text, std::span<const std::int32_t> columns,
                         bool hasHeader) {
  ImportRows found;
  for (FileLines lines(text); lines.Next();) {
    if (lines.IsWhiteSpace()) continue;
    if (hasHeader && found.header.empty()) {
      found.header = lines.Bytes();
    } else {
      found.rows.push_back(DelimitedRow(lines, columns));
    }
  }
  return found;
}

ImportRows MailServerRows(std::string_view text) {
  ImportRows found;
  for (FileLines lines(text); lines.Next();) {
    if (lines.IsWhiteSpace()) continue;
    if (IsMailboxLine(lines.Text()) || lines.Text().find('\r') != std::string_view::npos) {
      found.rows.push_back(ReadMailServerRow(lines));
      continue;
    }
    if (found.rows.empty() && found.passedOver == 0) found.header = lines.Bytes();
    ++found.passedOver;
  }
  return found;
}

}  // namespace quillctl
