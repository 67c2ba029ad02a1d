#include <algorithm>
#include <charconv>
#include <limits>
#include <span>
#include <system_error>
#include <utility>

#include "console/displayed_text.h"
#include "import/convert_file.h"
#include "import/script.h"
#include "quillctl/failures.h"
#include "quillctl/import_source.h"

namespace quillctl {
namespace {

struct LibraryFormat {
  const char* word;
  std::uint32_t selector;  // ImportOptions::format
};

constexpr LibraryFormat kFormats[] = {{"delimited", quillkit::ImportFormatDelimited},
                                      {"directory", quillkit::ImportFormatDirectory},
                                      {"mail", quillkit::ImportFormatMailServer}};

constexpr contacts::Problem kNoEntry = {"no-entry", "the line completes no entry"};

// ImportOptions with space for as many columns as the largest book has fields.
struct MappedOptions {
  quillkit::ImportOptions options;
  std::int32_t moreColumns[quillkit::kMaxEntryFields - 1];
};
static_assert(offsetof(MappedOptions, moreColumns) == sizeof(quillkit::ImportOptions));

// Thrown through the converter when no more rows are wanted.
struct Enough {};

// Makes a row of each line that the converter reports.
class RowMaker : public quillkit::RowObserver {
 public:
  RowMaker(const quillkit::ScriptBook& newBook, std::uint32_t newFormat, std::istream& newLines,
           const ImportSource::RowHandler& newHandle)
      : book(newBook), format(newFormat), lines(newLines), handle(newHandle) {}

  void OnLine(std::uint64_t number, std::span<const std::string_view> values) override {
    const std::uint64_t begin = position;
    while (line < number) PassLine();
    const bool isDirectory = format == quillkit::ImportFormatDirectory;
    if (isDirectory && values.empty()) return;  // a line in the middle of an entry
    entry.line = number;
    if (!isDirectory) entry.begin = begin;
    const bool isHeader = number == 1;
    const bool isBlank = position - begin <= 2;
    entry.end = position;
    entry.isPassedOver = values.empty();
    if (!values.empty()) {
      SetValues(values);
    } else if (format != quillkit::ImportFormatMailServer || isHeader || isBlank) {
      return;
    } else {
      entry.notes.push_back({.problem = &kNoEntry});
    }
    if (!handle(entry)) throw Enough();
    entry = {};
    entry.begin = position;
  }

 private:
  void PassLine() {
    lines.ignore(std::numeric_limits<std::streamsize>::max(), '\n');
    position += static_cast<std::uint64_t>(lines.gcount());
    ++line;
  }

  void SetValues(std::span<const std::string_view> values) {
    for (std::size_t i = 0; i < values.size(); ++i) {
      entry.values.emplace_back(values[i].substr(0, book.widths[i]));
      if (values[i].size() > book.widths[i]) {
        entry.notes.push_back({.problem = &contacts::kShortened, .limit = book.widths[i]});
      }
    }
  }

  const quillkit::ScriptBook& book;
  const std::uint32_t format;
  std::istream& lines;  // the file, to find the positions of its lines
  const ImportSource::RowHandler& handle;
  entries::Entry entry;
  std::uint64_t line = 0;
  std::uint64_t position = 0;
};

class LibrarySource : public ImportSource {
 public:
  LibrarySource(const ImportRequest& request, const AddressBook& newBook, ImportFile& newFile,
                bool asAdmin)
      : word(request.format), book(newBook), file(newFile), isAdmin(asAdmin) {
    options().format = std::ranges::find(kFormats, word, &LibraryFormat::word)->selector;
    options().skipHeader = request.skipHeader ? 1 : 0;
    if (!IsDelimited()) return;
    options().targetBook = book.target != 0 ? book.target : quillkit::TargetEmail;
    options().columnCount = static_cast<std::int32_t>(book.fields.size());
    SetColumns(ParseMap(request.map, book));
  }

  void ForEach(const RowHandler& handle) override {
    RowMaker rows(*quillkit::FindScriptBook(Target()), options().format, file.Rewind(), handle);
    console::TemporaryFile script;
    try {
      const std::int32_t status = quillkit::ConvertFile({.sourcePath = file.Path().c_str(),
                                                         .script = script.ReleaseFile(),
                                                         .isAdmin = isAdmin,
                                                         .observer = &rows},
                                                        options());
      if (status == quillkit::kUnusableInput) throw UsageError("cannot read " + file.Name());
      if (status != 0) throw Refusal(console::kNoTemporaryFile);
    } catch (const Enough&) {
    }
  }

  bool Supplies(std::size_t) const override { return true; }  // a script replaces whole entries
  bool IsScript() const override { return true; }
  std::string Format() const override { return word; }
  std::string Encoding() const override { return "bytes"; }

 private:
  quillkit::ImportOptions& options() { return mapped.options; }
  bool IsDelimited() { return options().format == quillkit::ImportFormatDelimited; }
  std::int32_t Target() { return IsDelimited() ? options().targetBook : quillkit::TargetEmail; }

  void SetColumns(const std::vector<entries::FieldSource>& sources) {
    std::vector<std::int32_t> columns(book.fields.size(), -1);
    for (const entries::FieldSource& each : sources) {
      const auto field = std::ranges::find(book.fields, each.field, console::LowerCase);
      std::int32_t column = -1;
      const char* const last = each.source.data() + each.source.size();
      const auto [end, error] = std::from_chars(each.source.data(), last, column);
      const bool isNumber = each.source.empty() || (error == std::errc() && end == last);
      if (field == book.fields.end() || !isNumber || column < -1) {
        throw UsageError("--map: " + console::Quoted(each.field + '=' + each.source) +
                         " is no field of the " + std::string(book.title) +
                         " with a column number (0, 1, ...)");
      }
      columns[static_cast<std::size_t>(field - book.fields.begin())] = column;
    }
    options().columnMap[0] = columns.front();
    std::copy(columns.begin() + 1, columns.end(), mapped.moreColumns);
  }

  std::string word;
  const AddressBook& book;
  ImportFile& file;
  bool isAdmin;
  MappedOptions mapped = {};
};

}  // namespace

bool IsLibraryFormat(const std::string& format) {
  return std::ranges::find(kFormats, format, &LibraryFormat::word) != std::end(kFormats);
}

bool IsMailServerExport(ImportFile& file) {
  constexpr std::size_t kSample = std::size_t{64} << 10;
  const std::string sample = file.Bytes(0, kSample);
  const bool hasRow = sample.starts_with("Mailbox,") || sample.find("\nMailbox,") != sample.npos;
  return hasRow && sample.find("SMTP:") != sample.npos;
}

std::unique_ptr<ImportSource> OpenLibraryFormat(const ImportRequest& request,
                                                const AddressBook& book, ImportFile& file,
                                                bool isAdmin) {
  return std::make_unique<LibrarySource>(request, book, file, isAdmin);
}

}  // namespace quillctl
