#include "quillctl/import_command.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <optional>
#include <set>
#include <utility>

#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/confirmation.h"
#include "quillctl/failures.h"
#include "quillctl/import_plan.h"
#include "quillctl/import_report.h"
#include "quillctl/import_rows.h"
#include "quillctl/system/deferred_termination.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

using Contents = std::vector<std::vector<Row>>;

// Returns the entries of each book, or nothing if one of them cannot be read.
Contents ReadAll(std::span<const AddressBook> books, const quillkit::CScanner& scanner) {
  Contents contents;
  for (const AddressBook& each : books) {
    std::optional<std::vector<Row>> rows = ReadAllEntries(each, scanner);
    if (!rows) return {};
    contents.push_back(std::move(*rows));
  }
  return contents;
}

// Returns the entries that are new or changed.
std::vector<Row> NewEntries(std::vector<Row> now, const std::vector<Row>& before) {
  const std::set<Row> known(before.begin(), before.end());
  std::erase_if(now, [&](const Row& row) { return known.contains(row); });
  return now;
}

void ShowBook(const AddressBook& book, const std::vector<Row>& before, const std::vector<Row>& now,
              std::size_t shown) {
  std::vector<Row> entries = NewEntries(now, before);
  std::cout << "The " << book.title << " had " << before.size() << " entries and now has "
            << now.size() << "; " << entries.size() << " are new or changed.";
  entries.resize(std::min(entries.size(), shown));
  std::cout << (entries.empty() ? "\n" : " The first ones:\n");
  if (entries.empty()) return;
  TextTable table(book.fields);
  for (Row& row : entries) table.AddRow(book.WithoutSecret(std::move(row)));
  table.Print();
}

// Throws an UnknownResult with the text.
[[noreturn]] void ThrowUnknown(const std::string& text, const ImportPlan& plan) {
  throw UnknownResult(text + "; the " + std::string(plan.Books().front().title) +
                      " cannot be read completely, so it is unknown which rows were imported");
}

// Throws a Refusal that also describes the state of the book: the appliance keeps what it imported
// before the failure.
[[noreturn]] void ThrowImportFailure(std::int32_t status, const ImportPlan& plan, std::size_t sent,
                                     const std::string& file, const Contents& before,
                                     const Contents& now) {
  std::string text = "cannot import " + file + ": " + CodeAndText(status);
  if (plan.IsScript()) {
    throw Refusal(text + "; the appliance keeps what it imported before the failure");
  }
  if (now.empty()) ThrowUnknown(text, plan);
  const std::size_t imported = plan.Rows().Entries();
  text += "; it imported " + std::to_string(imported) + " of " + std::to_string(sent) +
          " rows; the " + std::string(plan.Books().front().title) + " had " +
          std::to_string(before.front().size()) + " entries and now has " +
          std::to_string(now.front().size());
  if (imported == 0) throw Refusal(text);
  throw PartialFailure(text);
}

// Sets the fault of the rows that were sent but are not in the book. If the book cannot be read,
// sets none.
void MarkRowsNotImported(ImportPlan& plan, std::int32_t status, const Contents& now) {
  if (plan.IsScript() || now.empty()) return;
  MarkMissingRows(plan.Rows().rows, now.front(),
                  status == 0 ? "the appliance accepted the row but has no such entry"
                              : "the appliance refused the import and has no such entry");
}

void ShowRows(const ImportPlan& plan, const ImportRequest& request, std::size_t sent,
              bool isVerified) {
  if (request.json) {
    ShowImportJson(plan.Rows(), sent, isVerified);
  } else {
    ShowImportSummary(QuotedFileName(request.file), plan.Rows(), isVerified);
    ShowFaults(plan.Rows(), request.faultsShown);
  }
}

void ShowBooks(const ImportPlan& plan, const ImportRequest& request, const Contents& before,
               const Contents& now) {
  for (std::size_t i = 0; i < now.size(); ++i) {
    ShowBook(plan.Books()[i], before[i], now[i], request.shown);
  }
}

void WriteRejects(const ImportPlan& plan, const ImportRequest& request) {
  if (!request.rejects.empty()) WriteRejectedRows(request.rejects, plan.Rows());
}

// Sends the plan and reports the result. Sets the fault of each row that was not imported.
void Import(ImportPlan& plan, const ImportRequest& request, const Session& session) {
  const std::string file = QuotedFileName(request.file);
  const std::size_t sent = plan.Rows().Entries();
  const quillkit::CScanner& scanner = *session.Scanner();
  const Contents before = ReadAll(plan.Books(), scanner);
  if (before.empty() && !plan.IsScript()) {
    throw Refusal(
        "cannot import " + file + ": the " + std::string(plan.Books().front().title) +
        " cannot be read completely, so the result could not be verified; nothing was sent");
  }
  if (request.clearFirst) {
    Confirm(request.yes, "Clear the " + std::string(plan.Books().front().title) + " and import " +
                             std::to_string(sent) + " rows?");
  }
  const DeferredTermination untilReported("finishing the import, to report each row");
  const std::int32_t status = plan.Send(session.Scanner());
  const Contents now = ReadAll(plan.Books(), scanner);
  MarkRowsNotImported(plan, status, now);
  if (!plan.IsScript()) {
    ShowRows(plan, request, sent, !now.empty());
  } else if (status == 0) {
    std::cout << "Sent " << file << ".\n";
  }
  WriteRejects(plan, request);
  if (status != 0) ThrowImportFailure(status, plan, sent, file, before, now);
  if (before.empty() || now.empty()) ThrowUnknown("sent " + file, plan);
  if (!request.json) ShowBooks(plan, request, before, now);
}

// Throws a Refusal if there is no valid row. Such an import could only clear a book.
void RequireValidRows(const ImportPlan& plan, const ImportRequest& request) {
  if (plan.IsScript() || plan.Rows().Entries() != 0) return;
  if (request.json) {
    ShowImportJson(plan.Rows(), 0, true);
  } else {
    ShowFaults(plan.Rows(), request.faultsShown);
  }
  throw Refusal("cannot import " + QuotedFileName(request.file) +
                ": no row is valid; nothing was sent");
}

// Logs in and imports the file or, if `dryRun` is set, prints the script. Invalid rows are reported
// and not sent; they are written to the file of rejected rows at the end. Throws a
// UsageError as ImportPlan does; a Refusal if the library or the appliance refuses, or if no row is
// valid; and a PartialFailure if not all rows were imported.
void RunImport(const ImportRequest& request, const Credentials& credentials) {
  ImportPlan plan(request, credentials.user == kAdministrator);
  if (!request.rejects.empty()) RequireRejectsFile(request.rejects, request.file, request.force);
  if (request.dryRun || plan.Rows().Entries() == 0) WriteRejects(plan, request);
  RequireValidRows(plan, request);
  if (request.dryRun) {
    std::cout << plan.ShownScript();
    ShowFaults(plan.Rows(), plan.Rows().rows.size());
  } else {
    const Session session(credentials);
    Import(plan, request, session);
  }
  const std::size_t rejected = plan.Rows().Rejected();
  if (rejected == 0) return;
  throw PartialFailure(std::to_string(rejected) + " of " + std::to_string(plan.Rows().rows.size()) +
                       " rows " + (request.dryRun ? "cannot be imported" : "were not imported"));
}

constexpr const char* kMapHelp =
    "csv only, required: the file's column for each field of the book. Give a column number for "
    "each field, counted from 0, or -1 for none: 2,10. Or give fields with columns: "
    "name=2,address=10. A column heading may replace a number: "
    "\"name=Full Name,address=E-mail\"; the heading line is then skipped";

constexpr const char* kFooter =
    "Invalid rows are reported and not sent. The exit status is 3 if some rows were not imported, "
    "and 5 if the address book cannot be read afterwards.";

std::string PathFault(const std::string& path) {
  return path.empty() ? "the file name is empty" : "";
}

}  // namespace

void ImportInSession(const ImportRequest& request, const Session& session) {
  ImportPlan plan(request, quillkit::IsAdminConnected(session.Scanner()) != 0);
  RequireValidRows(plan, request);
  Import(plan, request, session);
}

void AddImportCommand(Commands& entry) {
  const auto request = std::make_shared<ImportRequest>();
  ImportRequest& into = *request;
  CLI::App* import = entry.AddWithoutLogin(
      "import", "Import a file into an address book",
      [request](const Credentials& credentials) { RunImport(*request, credentials); });
  import->footer(kFooter);
  import->add_option("file", into.file, "The file to import")->required();
  import->add_option("--format", into.format, "The format of the file")
      ->required()
      ->check(CLI::IsMember(ImportFormatWords()));
  import->add_option("--book", into.target, "csv only: the book (default: email)")
      ->check(CLI::IsMember(BookWords()));
  import->add_option("--map", into.map, kMapHelp);
  import->add_flag("--skip-header", into.skipHeader,
                   "csv only: skip the first line that is not blank");
  import->add_flag("--clear", into.clearFirst,
                   "csv only: clear the book first; requires ADMINISTRATOR");
  AddNumber(import, "--show", into.shown, "The number of new entries to show", 0, UINT32_MAX)
      ->capture_default_str();
  AddYes(import, into.yes);
  import
      ->add_option("--rejects", into.rejects,
                   "Write the rows that are not imported to this file, unchanged")
      ->check(PathFault, "");
  import->add_flag("--force", into.force, "Overwrite an existing file of rejected rows");
  auto* json = import->add_flag("--json", into.json, "Print the result as JSON");
  import
      ->add_flag("--dry-run", into.dryRun, "Print the script for the appliance, without sending it")
      ->excludes(json);
}

}  // namespace quillctl
