#include "examples/import_command.h"

#include <algorithm>
#include <iostream>
#include <set>

#include "examples/failures.h"
#include "examples/import_faults.h"
#include "examples/import_file.h"
#include "examples/import_plan.h"
#include "examples/import_report.h"
#include "examples/rejected_rows.h"
#include "examples/stored_books.h"

namespace quillctl {
namespace {

using Contents = std::vector<std::vector<Row>>;

// What the books hold, one after the other.
Contents ReadAll(const StoredBooks& stored, std::span<const AddressBook> books,
                 const std::string& user) {
  Contents contents;
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
  for (Row& row : arrived) table.AddRow(std::move(row));
  table.Print(std::cout);
}

// A batch that fails leaves on the appliance what it had carried out.
[[noreturn]] void ThrowRefused(std::int32_t status, const ImportPlan& plan, const std::string& file,
                               const Contents& now) {
  std::string text = "cannot import " + file + ": " + CodeAndText(status);
  if (!now.empty() && !plan.IsScript()) {
    ImportRows rows = plan.rows();
    FindAbsent(rows.rows, now.front());
    text += "; the appliance has " + std::to_string(rows.Entries()) + " of the " +
            std::to_string(plan.rows().Entries()) + " entries";
  }
  throw Refusal(text);
}

// Tells what became of the rows in front of what the books show.
void ShowRows(const ImportPlan& plan, const ImportRequest& request, bool isSeen) {
  if (request.json) {
    ShowImportJson(plan.rows(), isSeen);
  } else if (plan.IsScript()) {
    std::cout << "Imported " << WithoutFolder(request.file) << ".\n";
  } else {
    ShowImportSummary(WithoutFolder(request.file), plan.rows(), isSeen);
    ShowFaults(plan.rows(), request.faultsShown);
  }
}

// Imports what the plan has, and gives its rows the faults that the books show afterwards.
void Import(ImportPlan& plan, const ImportRequest& request, const Session& session) {
  const std::span<const AddressBook> books = plan.books();
  const StoredBooks stored;
  const bool canLook = stored.CanLook();
  const Contents before = canLook ? ReadAll(stored, books, session.user()) : Contents();
  const std::int32_t status = plan.Send(session.scanner());
  const Contents now = canLook ? ReadAll(stored, books, session.user()) : Contents();
  if (status != 0) ThrowRefused(status, plan, WithoutFolder(request.file), now);
  if (canLook && !plan.IsScript()) FindAbsent(plan.rows().rows, now.front());
  ShowRows(plan, request, canLook);
  if (request.json) return;
  if (!canLook) {
    std::cout << "What arrived cannot be shown: this server library is not the simulated one.\n";
    return;
  }
  for (std::size_t i = 0; i < books.size(); ++i) {
    ShowBook(books[i], before[i], now[i], request.shown);
  }
}

// With nothing to send, a book would at most be cleared.
void RequireEntries(const ImportPlan& plan, const ImportRequest& request) {
  if (plan.IsScript() || plan.rows().Entries() != 0) return;
  if (request.json) {
    ShowImportJson(plan.rows(), true);
  } else {
    ShowFaults(plan.rows(), request.faultsShown);
  }
  throw Refusal("no row of " + WithoutFolder(request.file) +
                " can become an entry; nothing was sent");
}

void WriteRejects(const ImportPlan& plan, const ImportRequest& request) {
  if (!request.rejects.empty()) WriteRejectedRows(request.rejects, request.file, plan.rows());
}

}  // namespace

void RunImport(const ImportRequest& request, const Credentials& credentials) {
  ImportPlan plan(request, credentials.user == kAdministrator);
  WriteRejects(plan, request);
  RequireEntries(plan, request);
  if (request.dryRun) {
    std::cout << plan.Script();
    ShowFaults(plan.rows(), plan.rows().rows.size());
  } else {
    const std::size_t entries = plan.rows().Entries();
    const Session session(credentials);
    Import(plan, request, session);
    if (plan.rows().Entries() != entries) WriteRejects(plan, request);
  }
  const std::size_t rejected = plan.rows().Rejected();
  if (rejected == 0) return;
  throw PartialFailure(std::to_string(rejected) + " of " + std::to_string(plan.rows().rows.size()) +
                       " rows " + (request.dryRun ? "can become no entries" : "became no entries"));
}

void ImportAsPartOfSession(const ImportRequest& request, const Session& session) {
  ImportPlan plan(request, quillkit::IsAdminConnected(session.scanner()) != 0);
  RequireEntries(plan, request);
  Import(plan, request, session);
}

}  // namespace quillctl
