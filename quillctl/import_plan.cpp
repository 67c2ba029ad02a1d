#include "quillctl/import_plan.h"

#include <algorithm>

#include "import/convert_file.h"
#include "import/script.h"
#include "quillctl/column_map.h"
#include "quillctl/failures.h"
#include "quillctl/import_rows.h"
#include "quillctl/system/deferred_termination.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

struct ImportFormat {
  const char* word;
  std::uint32_t selector;  // ImportOptions::format
};

constexpr ImportFormat kFormats[] = {
    {"csv", quillkit::ImportFormatDelimited},
    {"directory", quillkit::ImportFormatDirectory},
    {"mail", quillkit::ImportFormatMailServer},
    {"script", quillkit::ImportFormatScript},
};

// The values of the file's first line that is not blank.
std::vector<std::string> Headings(std::string_view text) {
  FileLines lines(text);
  while (lines.Next()) {
    if (lines.IsBlank()) continue;
    const std::string fault = LineFault(lines.Text());
    if (!fault.empty()) throw UsageError("the line of headings cannot be read: " + fault);
    return DelimitedFields(lines.Text());
  }
  return {};
}

// A script with LF for the line ends of the system.
std::string FoldedScript(std::string_view bytes) {
  std::string text;
  for (FileLines lines(bytes); lines.Next();) text += lines.Folded();
  return text;
}

}  // namespace

std::vector<std::string> ImportFormatWords() {
  std::vector<std::string> words;
  for (const ImportFormat& each : kFormats) words.emplace_back(each.word);
  return words;
}

ImportPlan::ImportPlan(const ImportRequest& request, bool asAdmin)
    : file(request.file), isAdmin(asAdmin) {
  quillkit::ImportOptions& options = mapped.options;
  for (const ImportFormat& each : kFormats) {
    if (each.word == request.format) options.format = each.selector;
  }
  options.clearFirst = request.clearFirst ? 1 : 0;
  if (options.format == quillkit::ImportFormatDelimited) {
    TakeDelimited(request);
  } else {
    TakeOther(request);
  }
}

// No header is sent, and so none is to be skipped.
void ImportPlan::TakeDelimited(const ImportRequest& request) {
  books = BookOfWord(request.target.empty() ? "email" : request.target);
  const AddressBook& book = books.front();
  if (!isAdmin && request.clearFirst) throw UsageError("ADMINISTRATOR alone clears a book");
  if (!isAdmin && !quillkit::FindScriptBook(book.target)->hasPlainPair) {
    throw UsageError("ADMINISTRATOR alone fills the " + std::string(book.title));
  }
  if (request.map.empty()) throw UsageError("the format csv needs a --map, as in --map 2,10");
  const ColumnMap map(request.map, book);
  text = ReadImportFile(file);
  const std::string_view content = WithoutByteOrderMark(text);
  const bool hasHeader = request.skipHeader || map.HasHeadings();
  const std::vector<std::int32_t> columns =
      map.Columns(hasHeader ? Headings(content) : std::vector<std::string>());
  const auto isThere = [](std::int32_t column) { return column >= 0; };
  if (!isAdmin && std::any_of(columns.begin() + kFieldsOfPair, columns.end(), isThere)) {
    throw UsageError(
        "ADMINISTRATOR alone fills more than two fields; in the map the others are -1");
  }
  rows = DelimitedRows(content, columns, hasHeader);
  FindFaults(rows.rows, book, isAdmin, columns);

  quillkit::ImportOptions& options = mapped.options;
  options.targetBook = book.target;
  options.columnCount = static_cast<std::int32_t>(columns.size());
  options.columnMap[0] = columns.front();
  std::copy(columns.begin() + 1, columns.end(), mapped.moreColumns);
}

void ImportPlan::TakeOther(const ImportRequest& request) {
  if (request.skipHeader || request.clearFirst || !request.target.empty() || !request.map.empty()) {
    throw UsageError("--target, --map, --skip-header and --clear are for the format csv");
  }
  if (IsScript() && (request.json || !request.rejects.empty())) {
    throw UsageError("--json and --rejects are for files of rows; a script goes as it stands");
  }
  text = ReadImportFile(file);
  books = PublicBooks();
  if (IsScript()) return;
  books = books.first(1);
  const std::string_view content = WithoutByteOrderMark(text);
  const bool isDirectory = mapped.options.format == quillkit::ImportFormatDirectory;
  rows = isDirectory ? DirectoryRows(content) : MailServerRows(content);
  FindFaults(rows.rows, books.front(), isAdmin, {});
}

// Of a directory the values alone: its converter takes the blanks in front of a value for a part of
// it, and a character from a last line without an end. The other rows go as they stand: the mail
// server's converter takes the end of a line for a part of an address that nothing else ends.
std::string ImportPlan::RowsToSend() const {
  const bool isDirectory = mapped.options.format == quillkit::ImportFormatDirectory;
  std::string bytes;
  for (const ImportRow& row : rows.rows) {
    if (!row.fault.empty()) continue;
    if (isDirectory) {
      bytes += "dn:\ncn:" + row.values[0] + "\nmail:" + row.values[1] + '\n';
    } else {
      bytes += row.bytes;
    }
  }
  return bytes;
}

void ImportPlan::Convert(const TemporaryFile& source, TemporaryFile& script) const {
  const std::int32_t status = quillkit::ConvertFile(
      {.sourcePath = source.path().c_str(), .script = script.TakeFile(), .isAdmin = isAdmin},
      mapped.options);
  if (status != 0) throw Refusal(kNoTemporaryFile);
}

std::string ImportPlan::Script() const {
  if (IsScript()) return FoldedScript(text);
  const DeferredTermination whileFilesAreThere;
  const TemporaryFile source(RowsToSend());
  TemporaryFile script;
  Convert(source, script);
  return FoldedScript(ReadImportFile(script.path()));
}

// The library leaves its script behind where it cannot be written; so one is written here first.
std::int32_t ImportPlan::Send(quillkit::CScanner* scanner) const {
  if (IsScript()) return ImportAddressBook(scanner, file.c_str(), &mapped.options);
  const TemporaryFile source(RowsToSend());
  {
    TemporaryFile script;
    Convert(source, script);
  }
  return ImportAddressBook(scanner, source.path().c_str(), &mapped.options);
}

}  // namespace quillctl
