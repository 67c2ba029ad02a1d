#include <algorithm>
#include <functional>
#include <sstream>
#include <utility>

#include "console/displayed_text.h"
#include "contacts/csv_reader.h"
#include "contacts/json_reader.h"
#include "quillctl/failures.h"
#include "quillctl/import_source.h"

namespace quillctl {
namespace {

using entries::Part;

std::vector<entries::Field> FieldsOf(const AddressBook& book) {
  std::vector<entries::Field> fields;
  for (std::size_t i = 0; i < book.fields.size(); ++i) {
    std::optional<Part> part;
    if (i == 0) part = Part::kName;
    if (i > 0 && book.requiredFields > 1) part = Part::kEmail;
    if (book.word == "fax" && i > 0) part = i == 1 ? Part::kFax : Part::kNote;
    fields.push_back(
        {console::LowerCase(book.fields[i]), part, book.widths[i], i < book.requiredFields});
  }
  return fields;
}

contacts::Place PlaceOf(const std::string& word) {
  if (word.empty()) return contacts::Place::kNone;
  return word == "work" ? contacts::Place::kWork : contacts::Place::kHome;
}

contacts::KnownForm KnownFormOf(const ImportRequest& request) {
  contacts::KnownForm known;
  known.format = contacts::FormatOf(request.format);
  known.encoding = contacts::EncodingOf(request.encoding);
  if (!request.delimiter.empty()) {
    known.delimiter = request.delimiter == "tab" ? '\t' : request.delimiter.front();
    known.format = contacts::Format::kCsv;
  }
  if (!request.headings.empty()) known.hasHeadings = request.headings == "yes";
  return known;
}

class ContactSource : public ImportSource {
 public:
  ContactSource(const ImportRequest& request, const AddressBook& book, ImportFile& newFile)
      : file(newFile),
        mapping(FieldsOf(book), ParseMap(request.map, book), PlaceOf(request.prefer)),
        options{*contacts::EncodingOf(request.storeAs), request.shorten} {
    std::string sample(contacts::kSampleSize, '\0');
    std::istream& stream = file.Rewind();
    stream.read(sample.data(), static_cast<std::streamsize>(sample.size()));
    sample.resize(static_cast<std::size_t>(stream.gcount()));
    file.RequireGood();
    form = Recognise(sample, KnownFormOf(request),
                     std::bind_front(&entries::Mapping::KnownHeadings, &mapping));
    mapping = entries::EntryReader(file.Rewind(), form, mapping, options).GetMapping();
  }

  void ForEach(const RowHandler& handle) override {
    try {
      entries::EntryReader reader(file.Rewind(), form, mapping, options);
      entries::Entry entry;
      while (reader.Next(entry) && handle(entry)) {
      }
    } catch (const contacts::FormError&) {
      // The file was changed after it was opened: it has no rows now.
    }
    file.RequireGood();
  }

  bool Supplies(std::size_t field) const override { return mapping.Supplies(field); }
  std::string Format() const override { return std::string(WordOf(form.format)); }
  std::string Encoding() const override { return std::string(WordOf(form.encoding)); }

  std::optional<char> Delimiter() const override {
    return form.format == contacts::Format::kCsv ? std::optional(form.delimiter) : std::nullopt;
  }

  std::string Sources() const override {
    std::string text;
    for (std::size_t i = 0; i < mapping.Fields().size(); ++i) {
      const std::string source = mapping.SourceOf(i);
      if (source.empty()) continue;
      text += (text.empty() ? "" : "; ") + mapping.Fields()[i].word + " from " + source;
    }
    return text;
  }

  std::string Beginning() const override {
    const bool needsDelimiter = form.format == contacts::Format::kCsv && !form.hasHeadings &&
                                !IsUtf16(form.encoding) && !form.hasMark;
    return needsDelimiter ? "sep=" + std::string(1, form.delimiter) + '\n' : std::string();
  }
  std::string Separator() const override { return IsJson() ? ",\n" : ""; }
  std::string End() const override {
    if (!IsJson()) return {};
    std::istream& stream = file.Rewind();
    contacts::SkipMark(stream);
    stream >> std::ws;
    return stream.peek() == '[' ? "\n]\n" : "\n]}\n";
  }

 private:
  bool IsJson() const { return form.format == contacts::Format::kJson; }

  ImportFile& file;
  entries::Mapping mapping;
  entries::EntryOptions options;
  contacts::Form form;
};

}  // namespace

std::vector<entries::FieldSource> ParseMap(const std::string& text, const AddressBook& book) {
  std::istringstream source(text);
  contacts::CsvReader reader(source, contacts::Encoding::kUtf8, ',');
  contacts::Record record;
  std::vector<entries::FieldSource> sources;
  if (!reader.Next(record)) return sources;
  const auto isPair = [](const contacts::Value& each) {
    return each.text.find('=') != each.text.npos;
  };
  const auto values = std::as_const(record).Values();
  const bool arePairs = std::ranges::any_of(values, isPair);
  if (record.fault.problem != nullptr || (arePairs && !std::ranges::all_of(values, isPair))) {
    throw UsageError("--map: " + console::Quoted(text) +
                     " is not a list such as name=2,address=E-mail");
  }
  if (!arePairs && values.size() != book.fields.size()) {
    throw UsageError("--map: the " + std::string(book.title) + " has " +
                     std::to_string(book.fields.size()) + " fields");
  }
  for (std::size_t i = 0; i < values.size(); ++i) {
    const std::string& value = values[i].text;
    const std::size_t equals = value.find('=');
    sources.push_back(arePairs
                          ? entries::FieldSource{value.substr(0, equals), value.substr(equals + 1)}
                          : entries::FieldSource{console::LowerCase(book.fields[i]), value});
    if (sources.back().source == "-1") sources.back().source.clear();
  }
  return sources;
}

std::unique_ptr<ImportSource> OpenContacts(const ImportRequest& request, const AddressBook& book,
                                           ImportFile& file) {
  try {
    return std::make_unique<ContactSource>(request, book, file);
  } catch (const contacts::FormError& why) {
    throw UsageError("cannot import " + file.Name() + ": " + why.what());
  }
}

}  // namespace quillctl
