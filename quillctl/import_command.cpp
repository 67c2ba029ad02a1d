#include "quillctl/import_command.h"

#include <algorithm>
#include <iostream>
#include <memory>
#include <set>

#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/import_plan.h"
#include "quillctl/import_report.h"
#include "quillctl/import_rows.h"
#include "quillctl/system/deferred_termination.h"
#include "quillctl/text_file.h"

namespace quillctl {
namespace {

using Contents = std::vector<std::vector<Row>>;

// What the books hold, one after the other; nothing where nobody can look into them.
Contents ReadAll(const StoredBooks& stored, std::span<const AddressBook> books,
                 const std::string& user) {
  Contents contents;
  if (!stored.CanLook()) return contents;
  for (const AddressBook& each : books) contents.push_back(stored.Read(each, user));
  return contents;
}

// Drops the rows that were there before.
std::vector<Row> Arrived(std::vector<Row> now, const std::vector<Row>& before) {
  const std::set<Row> known(before.begin(), before.end());
  std::erase_if(now, [&](const Row& row) { return known.contains(row); });
  return now;
}

void ShowBook(const AddressBook& book, const std::vector<Row>& before, const std::vector<Row>& now,
              std::size_t shown) {
  std::vector<Row> arrived = Arrived(now, before);
  std::cout << "The " << book.title << " held " << before.size() << " entries and holds "
            << now.size() << "; " << arrived.size() << " are new or changed";
  arrived.resize(std::min(arrived.size(), shown));
  std::cout << (arrived.empty() ? ".\n" : ", beginning with:\n");
  if (arrived.empty()) return;
  TextTable table(book.fields);
  for (Row& row : arrived) table.AddRow(book.Shown(std::move(row)));
  table.Print(std::cout);
}

// A batch that fails leaves on the appliance what it had carried out.
[[noreturn]] void ThrowRefused(std::int32_t status, const ImportPlan& plan, std::size_t sent,
                               const std::string& file, const Contents& before,
                               const Contents& now) {
  std::string text = "cannot import " + file + ": " + CodeAndText(status);
  if (now.empty() || plan.IsScript())
    throw Refusal(text + "; what was carried out before it stays");
  throw Refusal(text + "; of the " + std::to_string(sent) + " rows that were sent " +
                std::to_string(plan.Rows().Entries()) + " are entries; the " +
                std::string(plan.Books().front().title) + " held " +
                std::to_string(before.front().size()) + " entries and holds " +
                std::to_string(now.front().size()));
}

// Gives a fault to the rows that were sent and did not become entries, as far as the books show it;
// nobody knows it of rows that were refused where they cannot be seen.
void FindLost(ImportPlan& plan, std::int32_t status, const Contents& now) {
  if (plan.IsScript() || (status == 0 && now.empty())) return;
  FindAbsent(plan.Rows().rows, now.empty() ? std::span<const Row>() : now.front(),
             status == 0 ? "the appliance took the row, but has no such entry"
                         : "the appliance refused the import, and shows no such entry");
}

// Tells what became of the rows in front of what the books show.
void ShowRows(const ImportPlan& plan, const ImportRequest& request, bool isSeen) {
  if (request.json) {
    ShowImportJson(plan.Rows(), isSeen);
  } else {
    ShowImportSummary(WithoutFolder(request.file), plan.Rows(), isSeen);
    ShowFaults(plan.Rows(), request.faultsShown);
  }
}

void ShowBooks(const ImportPlan& plan, const ImportRequest& request, const Contents& before,
               const Contents& now) {
  if (now.empty()) {
    std::cout << "What arrived cannot be shown: this server library is not the simulated one.\n";
  }
  for (std::size_t i = 0; i < now.size(); ++i) {
    ShowBook(plan.Books()[i], before[i], now[i], request.shown);
  }
}

void WriteRejects(const ImportPlan& plan, const ImportRequest& request) {
  if (!request.rejects.empty()) WriteRejectedRows(request.rejects, request.file, plan.Rows());
}

// Imports what the plan has, and gives the rows that did not become entries their faults.
void Import(ImportPlan& plan, const ImportRequest& request, const Session& session) {
  const DeferredTermination untilReported;
  const StoredBooks stored;
  const std::string file = WithoutFolder(request.file);
  const std::size_t sent = plan.Rows().Entries();
  const Contents before = ReadAll(stored, plan.Books(), session.User());
  const std::int32_t status = plan.Send(session.Scanner());
  const Contents now = ReadAll(stored, plan.Books(), session.User());
  FindLost(plan, status, now);
  if (plan.Rows().Entries() != sent) WriteRejects(plan, request);
  if (!plan.IsScript()) {
    ShowRows(plan, request, stored.CanLook());
  } else if (status == 0) {
    std::cout << "Imported " << file << ".\n";
  }
  if (status != 0) ThrowRefused(status, plan, sent, file, before, now);
  if (!request.json) ShowBooks(plan, request, before, now);
}

// With nothing to send, a book would at most be cleared.
void RequireEntries(const ImportPlan& plan, const ImportRequest& request) {
  if (plan.IsScript() || plan.Rows().Entries() != 0) return;
  if (request.json) {
    ShowImportJson(plan.Rows(), true);
  } else {
    ShowFaults(plan.Rows(), request.faultsShown);
  }
  throw Refusal("no row of " + WithoutFolder(request.file) +
                " can become an entry; nothing was sent");
}

// The whole command, login included; or what the request's dryRun leaves of it, which shows the
// script. Rows that can become no entry are not sent: they go to the file of rejects, before the
// import, and their faults are told. Throws a UsageError as ImportPlan does; a Refusal when the
// library or the appliance refuses, and when there is no row to send; a PartialFailure when not
// every row became an entry.
void RunImport(const ImportRequest& request, const Credentials& credentials) {
  ImportPlan plan(request, credentials.user == kAdministrator);
  WriteRejects(plan, request);
  RequireEntries(plan, request);
  if (request.dryRun) {
    std::cout << plan.Script();
    ShowFaults(plan.Rows(), plan.Rows().rows.size());
  } else {
    const Session session(credentials);
    Import(plan, request, session);
  }
  const std::size_t rejected = plan.Rows().Rejected();
  if (rejected == 0) return;
  throw PartialFailure(std::to_string(rejected) + " of " + std::to_string(plan.Rows().rows.size()) +
                       " rows " + (request.dryRun ? "can become no entries" : "became no entries"));
}

constexpr const char* kMapHelp =
    "csv only: the column of the file for each field of the book. By numbers from 0, or -1 for "
    "none: 2,10. Or by fields: name=2,address=10; a column's heading does for its number, and the "
    "line of headings is then skipped: \"name=Full Name,address=E-mail\"";

constexpr const char* kFooter =
    "Rows that can become no entry are not sent. Exit status 3: some rows became no entries.";

std::string CountFault(const std::string& text) {
  return text.find_first_not_of("0123456789") != text.npos ? "this is no count" : "";
}

std::string PathFault(const std::string& path) {
  return path.empty() ? "a file needs a name" : "";
}

}  // namespace

void ImportAsPartOfSession(const ImportRequest& request, const Session& session) {
  ImportPlan plan(request, quillkit::IsAdminConnected(session.Scanner()) != 0);
  RequireEntries(plan, request);
  Import(plan, request, session);
}

void AddImportCommand(Commands& commands) {
  const auto request = std::make_shared<ImportRequest>();
  ImportRequest& into = *request;
  CLI::App* import = commands.AddOffline(
      "import", "Fill an address book from a file",
      [request](const Credentials& credentials) { RunImport(*request, credentials); });
  import->footer(kFooter);
  import->add_option("file", into.file, "The file")->required();
  import->add_option("--format", into.format, "What it holds")
      ->required()
      ->check(CLI::IsMember(ImportFormatWords()));
  import->add_option("--target", into.target, "csv only: the book to fill, else that for e-mail")
      ->check(CLI::IsMember(BookWords()));
  import->add_option("--map", into.map, kMapHelp);
  import->add_flag("--skip-header", into.skipHeader, "csv only: skip the first line");
  import->add_flag("--clear", into.clearFirst,
                   "Clear the book first: as ADMINISTRATOR, and with csv");
  import->add_option("--show", into.shown, "How many of the new entries to show")
      ->check(CountFault, "")
      ->capture_default_str();
  import
      ->add_option("--rejects", into.rejects,
                   "A file for the rows that become no entry, as they stand")
      ->check(PathFault, "");
  auto* json = import->add_flag("--json", into.json, "Show what became of the rows as JSON");
  import->add_flag("--dry-run", into.dryRun, "Show the script that would be sent, and send nothing")
      ->excludes(json);
}

}  // namespace quillctl
