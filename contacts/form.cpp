#include "contacts/form.h"

#include <algorithm>
#include <cstddef>
#include <iterator>
#include <sstream>
#include <string>
#include <tuple>

#include "contacts/ascii.h"
#include "contacts/csv_reader.h"
#include "contacts/json_reader.h"
#include "contacts/ldif_reader.h"
#include "contacts/lines.h"
#include "contacts/vcard_reader.h"

namespace contacts {
namespace {

constexpr std::string_view kFormats[] = {"csv", "ldif", "vcard", "json"};

constexpr std::size_t kMostRowsTried = 200;
constexpr std::size_t kMostShown = 200;  // bytes of the first row in a message

// Returns the sample without a character at its end that is incomplete.
std::string_view WholeCharacters(std::string_view sample) {
  return sample.size() < kSampleSize ? sample : CutUtf8(sample, kSampleSize - 4);
}

Encoding RecogniseEncoding(std::string_view sample, const KnownForm& known, const Mark& mark) {
  if (known.encoding) return *known.encoding;
  if (mark.encoding) return *mark.encoding;
  const auto nuls = static_cast<std::size_t>(std::ranges::count(sample, '\0'));
  if (nuls > sample.size() / 10) {
    throw FormError("this is not text, or UTF-16 without a byte order mark; name the encoding");
  }
  return IsUtf8(WholeCharacters(sample)) ? Encoding::kUtf8 : Encoding::kLikelyWindows1252;
}

Format RecogniseFormat(std::string_view sample, Encoding encoding) {
  std::istringstream source{std::string(sample)};
  for (Lines lines(source, encoding); lines.Next();) {
    std::string_view line = lines.Text();
    line.remove_prefix(std::min(line.find_first_not_of(" \t"), line.size()));
    if (line.empty() || line.starts_with('#')) continue;
    if (BeginsInAnyCase(line, "begin:vcard")) return Format::kVcard;
    if (BeginsInAnyCase(line, "dn:") || BeginsInAnyCase(line, "version:")) return Format::kLdif;
    const bool isList =
        line.starts_with('[') && (line.size() == 1 || line.find_first_of(" {]\"") == 1);
    if (line.starts_with('{') || isList) return Format::kJson;
    break;
  }
  return Format::kCsv;
}

// How well a delimiter divides the sample.
struct Reading {
  char delimiter = ',';
  double regular = 0;  // the part of the rows that have as many values as the first row
  std::size_t known = 0;
  std::size_t columns = 0;  // of the first row, 0 if it cannot be read
  std::string firstRow;
  bool maybeHeadings = false;  // the first row has no digit and no "@", but the second row has

  auto Rank() const { return std::tie(regular, known); }
};

bool HasDigitOrAt(const Record& record) {
  return std::ranges::any_of(record.Values(), [](const Value& each) {
    return each.text.find_first_of("@0123456789") != each.text.npos;
  });
}

// Sets the members that depend on the first row.
void SetFirstRow(Reading& reading, const Record& row, const HeadingCounter& countKnown) {
  reading.known = countKnown(row);
  reading.columns = row.Values().size();
  reading.maybeHeadings = !HasDigitOrAt(row);
  std::string& shown = reading.firstRow;
  for (const Value& each : row.Values()) {
    shown += (shown.empty() ? "[" : " [") + each.text + ']';
    if (shown.size() <= kMostShown) continue;
    shown = std::string(CutUtf8(shown, kMostShown)) + "...";
    return;
  }
}

Reading Try(std::string_view sample, Encoding encoding, char delimiter,
            const HeadingCounter& countKnown) {
  std::istringstream source{std::string(sample)};
  CsvReader reader(source, encoding, delimiter);
  Reading reading;
  reading.delimiter = delimiter;
  Record record;
  std::size_t rows = 0;
  std::size_t regular = 0;
  for (; rows < kMostRowsTried && reader.Next(record); ++rows) {
    const bool isGood = record.fault.problem == nullptr;
    if (rows == 0 && !isGood) return reading;
    if (rows == 0) SetFirstRow(reading, record, countKnown);
    if (rows == 1 && !HasDigitOrAt(record)) reading.maybeHeadings = false;
    if (isGood && record.Values().size() == reading.columns) ++regular;
  }
  if (rows > 0) reading.regular = static_cast<double>(regular) / static_cast<double>(rows);
  return reading;
}

// Looks at the first lines only, but for a first row that is larger.
std::string_view Beginning(std::string_view sample) {
  constexpr std::size_t kEnough = std::size_t{64} << 10;
  return sample.substr(0, sample.find('\n', std::min(kEnough, sample.size())));
}

// Returns the reading with the delimiter that divides the sample best.
Reading BestReading(std::string_view sample, Encoding encoding, const HeadingCounter& countKnown) {
  Reading best;
  Reading tied;
  for (const char delimiter : kDelimiters) {
    Reading reading = Try(Beginning(sample), encoding, delimiter, countKnown);
    if (reading.columns < 2 || (best.columns != 0 && reading.Rank() < best.Rank())) continue;
    tied = best.columns != 0 && best.Rank() == reading.Rank() ? best : Reading();
    best = std::move(reading);
  }
  if (tied.columns != 0) {
    throw FormError("two delimiters are possible: with \"" + std::string(1, tied.delimiter) +
                    "\" the first row is " + tied.firstRow + ", with \"" +
                    std::string(1, best.delimiter) + "\" it is " + best.firstRow);
  }
  if (best.columns == 0) best = Try(Beginning(sample), encoding, best.delimiter, countKnown);
  if (best.columns == 0) throw FormError("the file has none of the known formats");
  return best;
}

// Returns the reading with the delimiter that is known, or that a separator line names.
Reading RecogniseReading(std::string_view sample, Encoding encoding, const KnownForm& known,
                         const HeadingCounter& countKnown) {
  std::istringstream source{std::string(sample)};
  Lines lines(source, encoding);
  char delimiter = lines.Next() ? SeparatorLine(lines.Text()) : '\0';
  if (known.delimiter) delimiter = *known.delimiter;
  return delimiter != '\0' ? Try(Beginning(sample), encoding, delimiter, countKnown)
                           : BestReading(sample, encoding, countKnown);
}

}  // namespace

std::string_view WordOf(Format format) {
  return kFormats[static_cast<std::size_t>(format)];
}

std::optional<Format> FormatOf(std::string_view word) {
  const auto* found = std::ranges::find(kFormats, word);
  if (found == std::end(kFormats)) return std::nullopt;
  return static_cast<Format>(found - std::begin(kFormats));
}

Form Recognise(std::string_view sample, const KnownForm& known, const HeadingCounter& countKnown) {
  const Mark mark = FindMark(sample);
  if (sample.size() == mark.size) throw FormError("the file is empty");
  Form form;
  form.encoding = RecogniseEncoding(sample, known, mark);
  form.hasMark = mark.encoding == form.encoding;
  form.format = known.format ? *known.format : RecogniseFormat(sample, form.encoding);
  if (form.format == Format::kJson) {
    if (IsUtf16(form.encoding)) throw FormError("a JSON file must be in UTF-8");
    form.encoding = Encoding::kUtf8;
  }
  if (form.format != Format::kCsv) return form;
  const Reading reading = RecogniseReading(sample, form.encoding, known, countKnown);
  form.delimiter = reading.delimiter;
  form.hasHeadings = known.hasHeadings.value_or(reading.known != 0);
  if (!known.hasHeadings && !form.hasHeadings && reading.maybeHeadings) {
    throw FormError("the headings are not known, or this is no line of headings: " +
                    reading.firstRow + "; add --headings and --map");
  }
  return form;
}

std::unique_ptr<Reader> MakeReader(std::istream& source, const Form& form) {
  switch (form.format) {
    case Format::kLdif:
      return std::make_unique<LdifReader>(source, form.encoding);
    case Format::kVcard:
      return std::make_unique<VcardReader>(source, form.encoding);
    case Format::kJson:
      return std::make_unique<JsonReader>(source);
    default:
      return std::make_unique<CsvReader>(source, form.encoding, form.delimiter);
  }
}

}  // namespace contacts
