#include "quillctl/import_plan.h"

#include <CLI/CLI.hpp>

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

// Returns the fields of the first line that is not blank.
std::vector<std::string> Headings(std::string_view text) {
  FileLines lines(text);
  while (lines.Next()) {
    if (lines.IsWhiteSpace()) continue;
    const std::string fault = LineFault(lines.Text());
    if (!fault.empty()) throw UsageError("cannot read the heading line: " + fault);
    return DelimitedFields(lines.Text());
  }
  return {};
}

// Returns a script with LF instead of the system's line ends.
std::string WithLfLineEnds(std::string_view bytes) {
  std::string text;
  for (FileLines lines(bytes); lines.Next();) text += lines.TextWithLf();
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
    PrepareDelimited(request);
  } else {
    PrepareOther(request);
  }
}

// Leaves `skipHeader` of the library's options unset: the header is not sent.
void ImportPlan::PrepareDelimited(const ImportRequest& request) {
  books = FindBook(request.target.empty() ? "email" : request.target);
  const AddressBook& book = books.front();
  if (!isAdmin && request.clearFirst) throw UsageError("--clear requires ADMINISTRATOR");
  if (!isAdmin && !quillkit::FindScriptBook(book.target)->hasPlainPair) {
    throw UsageError("only ADMINISTRATOR can import into the " + std::string(book.title));
  }
  if (request.map.empty()) throw UsageError("--format csv requires --map, for example --map 2,10");
  const ColumnMap map(request.map, book);
  text = ReadImportFile(file);
  const std::string_view content = WithoutByteOrderMark(text);
  const bool hasHeader = request.skipHeader || map.HasHeadings();
  const std::vector<std::int32_t> columns =
      map.Columns(hasHeader ? Headings(content) : std::vector<std::string>());
  const auto isThere = [](std::int32_t column) { return column >= 0; };
  if (!isAdmin && std::any_of(columns.begin() + kPrivateFields, columns.end(), isThere)) {
    throw UsageError(
        "only ADMINISTRATOR can import more than two fields; set the others to -1 in --map");
  }
  rows = DelimitedRows(content, columns, hasHeader);
  MarkInvalidRows(rows.rows, book, isAdmin, columns);

  quillkit::ImportOptions& options = mapped.options;
  options.targetBook = book.target;
  options.columnCount = static_cast<std::int32_t>(columns.size());
  options.columnMap[0] = columns.front();
  std::copy(columns.begin() + 1, columns.end(), mapped.moreColumns);
}

void ImportPlan::PrepareOther(const ImportRequest& request) {
  if (request.skipHeader || request.clearFirst || !request.target.empty() || !request.map.empty()) {
    throw UsageError("--book, --map, --skip-header and --clear require --format csv");
  }
  if (IsScript() && (request.json || !request.rejects.empty())) {
    throw UsageError("--json and --rejects do not apply to --format script");
  }
  text = ReadImportFile(file);
  books = PublicBooks();
  if (IsScript()) return;
  books = books.first(1);
  const std::string_view content = WithoutByteOrderMark(text);
  const bool isDirectory = mapped.options.format == quillkit::ImportFormatDirectory;
  rows = isDirectory ? DirectoryRows(content) : MailServerRows(content);
  MarkInvalidRows(rows.rows, books.front(), isAdmin, {});
}

// Rows of a directory are rebuilt from their values: its converter counts spaces before a value in
// the value's width, and removes a character from a last line without a newline. Other rows are
// sent unchanged: the mail server's converter reads an address without an end mark up to the line
// end.
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
      {.sourcePath = source.path().c_str(), .script = script.ReleaseFile(), .isAdmin = isAdmin},
      mapped.options);
  if (status != 0) throw Refusal(kNoTemporaryFile);
}

std::string ImportPlan::Script() const {
  if (IsScript()) return WithLfLineEnds(text);
  const DeferredTermination untilFilesAreDeleted(nullptr);
  const TemporaryFile source(RowsToSend());
  TemporaryFile script;
  Convert(source, script);
  return WithLfLineEnds(ReadImportFile(script.path()));
}

std::string ImportPlan::ShownScript() const {
  std::string script = Script();
  const std::size_t secret = books.front().secretField;
  if (IsScript() || secret == AddressBook::kNone) return script;
  std::string shown;
  for (FileLines lines(script); lines.Next();) {
    // The values of a line are between double quotes, which they cannot contain.
    std::vector<std::string> parts = CLI::detail::split(lines.TextWithLf(), '"');
    const std::size_t value = 2 * secret + 1;
    if (value < parts.size() && !parts[value].empty()) parts[value] = "(set)";
    shown += CLI::detail::join(parts, "\"");
  }
  return shown;
}

// If the library cannot write its script, it does not delete the file. Therefore a script is
// written here first, to find out.
std::int32_t ImportPlan::Send(quillkit::CScanner* scanner) const {
  const TemporaryFile source(IsScript() ? text : RowsToSend());
  if (!IsScript()) {
    TemporaryFile script;
    Convert(source, script);
  }
  return ImportAddressBook(scanner, source.path().c_str(), &mapped.options);
}

}  // namespace quillctl
