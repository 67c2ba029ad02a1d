// The header-only csv libraries read the whole file into memory, or do not report the line of a
// row.

#include "contacts/csv_reader.h"

#include <algorithm>

namespace contacts {
namespace {

constexpr std::string_view kSeparatorMark = "sep=";

// Returns the first column with what caused the fault of a line; 0 if it is not known.
unsigned ColumnWith(const Problem& fault, const Record& record) {
  if (&fault == &kRecordTooLong) return 0;
  const std::string_view cause =
      &fault == &kNul ? std::string_view("\0", 1) : std::string_view("\uFFFD");
  for (const Value& each : record.Values()) {
    if (each.text.find(cause) != std::string::npos) return each.column;
  }
  return 0;
}

}  // namespace

char SeparatorLine(std::string_view line) {
  const bool has = line.size() == kSeparatorMark.size() + 1 && line.starts_with(kSeparatorMark);
  return has ? line.back() : '\0';
}

bool CsvReader::Next(Record& record) {
  do {
    if (!lines.Next()) return false;
  } while (lines.IsBlank() || (lines.Number() == 1 && SeparatorLine(lines.Text()) != '\0'));
  record.Begin(lines.Number(), lines.Begin());
  rest = lines.Text();
  if (lines.Fault() == &kRecordTooLong) {
    record.SetFault(kRecordTooLong);
    SkipRow(lines.HasOddQuotes());
  } else {
    ReadRow(record);
  }
  if (const Problem* const fault = lines.Fault(); fault != nullptr) {
    record.SetFault(*fault, ColumnWith(*fault, record));
  }
  record.end = lines.End();
  return true;
}

void CsvReader::SkipSpaces() {
  while (!rest.empty() && (rest.front() == ' ' || rest.front() == '\t') &&
         rest.front() != delimiter) {
    rest.remove_prefix(1);
  }
}

void CsvReader::ReadRow(Record& record) {
  while (true) {
    Value& value = record.Add({});
    SkipSpaces();
    if (rest.starts_with('"')) {
      if (!ReadQuoted(record, value)) return;
      SkipSpaces();
      if (!rest.empty() && rest.front() != delimiter) {
        record.SetFault(kBadQuote, value.column);
        return;
      }
    } else {
      std::string_view text = rest.substr(0, rest.find(delimiter));
      rest.remove_prefix(text.size());
      while (text.ends_with(' ') || text.ends_with('\t')) text.remove_suffix(1);
      value.text = text;
    }
    if (rest.empty()) return;
    rest.remove_prefix(1);
  }
}

// Reads a value up to its closing quote. Returns false after setting the fault of the record.
bool CsvReader::ReadQuoted(Record& record, Value& value) {
  rest.remove_prefix(1);
  while (true) {
    const std::size_t quote = rest.find('"');
    value.text += rest.substr(0, quote);
    if (quote == rest.npos) {
      value.text += lines.Ending();
      if (!NextLineOfRow(record)) {
        record.SetFault(kOpenQuote, value.column);
        return false;
      }
      continue;
    }
    rest.remove_prefix(quote + 1);
    if (!rest.starts_with('"')) return true;
    value.text += '"';
    rest.remove_prefix(1);
  }
}

// Skips the lines of a row up to the one that closes its double quotes.
void CsvReader::SkipRow(bool isOpen) {
  while (isOpen && lines.Next()) {
    const bool isOdd = lines.Fault() == &kRecordTooLong
                           ? lines.HasOddQuotes()
                           : std::ranges::count(lines.Text(), '"') % 2 != 0;
    isOpen = isOpen != isOdd;
  }
}

bool CsvReader::NextLineOfRow(Record& record) {
  if (lines.End() - record.begin > kMaxRecord) {
    record.SetFault(kRecordTooLong);
    SkipRow(true);
    return false;
  }
  const Problem* const before = lines.Fault();
  if (before != nullptr) record.SetFault(*before, ColumnWith(*before, record));
  if (!lines.Next()) return false;
  rest = lines.Text();
  if (lines.Fault() != &kRecordTooLong) return true;
  record.SetFault(kRecordTooLong);
  SkipRow(!lines.HasOddQuotes());
  return false;
}

}  // namespace contacts
