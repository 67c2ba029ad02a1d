#include "quillctl/import_command.h"

#include <algorithm>
#include <array>
#include <fstream>
#include <iostream>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include "console/confirmation.h"
#include "console/displayed_text.h"
#include "console/options.h"
#include "console/system/deferred_termination.h"
#include "contacts/ascii.h"
#include "contacts/csv_reader.h"
#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/import.h"
#include "quillctl/import_report.h"
#include "quillctl/import_source.h"

namespace quillctl {
namespace {

constexpr const char* kScript = "script";

OnDuplicate RuleOf(const std::string& word) {
  if (word == "skip") return OnDuplicate::kSkip;
  return word == "replace" ? OnDuplicate::kReplace : OnDuplicate::kRefuse;
}

// Throws a UsageError for an option that the format does not have.
void RequireFittingOptions(const ImportRequest& r) {
  const ImportRequest usual;
  const bool hasForm = !r.encoding.empty() || !r.delimiter.empty() || !r.headings.empty() ||
                       !r.prefer.empty() || r.shorten || r.storeAs != usual.storeAs ||
                       r.onDuplicate != usual.onDuplicate || r.batch;
  const bool isOwn = IsLibraryFormat(r.format) || r.format == kScript;
  if (isOwn && hasForm) {
    throw UsageError("--format " + r.format + " takes no option that changes how rows are read");
  }
  if (isOwn && r.format != "delimited" && (r.clearFirst || !r.book.empty() || !r.map.empty())) {
    throw UsageError("--book, --map and --clear do not apply to --format " + r.format);
  }
  if (r.format == "delimited" && r.map.empty()) {
    throw UsageError("--format delimited requires --map, for example --map 2,10");
  }
  const bool isCsv = r.format.empty() || r.format == "csv";
  if (!isCsv && !isOwn && (!r.delimiter.empty() || !r.headings.empty())) {
    throw UsageError("--delimiter and --headings require a csv file");
  }
  if (r.format != "delimited" && r.skipHeader) {
    throw UsageError("--skip-header requires --format delimited; see --headings");
  }
  if (r.format == kScript && (r.json || r.preview || r.dryRun || !r.rejects.empty())) {
    throw UsageError("--format script is sent as it is, without --json, --rejects or --dry-run");
  }
}

const AddressBook& BookFor(const ImportRequest& request, bool isAdmin) {
  const AddressBook& own = PrivateBook().front();
  const AddressBook& book = !request.book.empty() ? BookOf(request.book)
                            : isAdmin             ? BookOf("email")
                                                  : own;
  const bool isOwn = book.word == own.word;
  const bool isScript = IsLibraryFormat(request.format) || request.batch;
  if (isScript && isOwn == isAdmin) {
    throw UsageError(isAdmin ? "a script of ADMINISTRATOR fills public books only"
                             : "only ADMINISTRATOR can import into the " + std::string(book.title));
  }
  if (!isScript && book.secretField != AddressBook::kNone) {
    throw UsageError("accounts are imported with --format delimited only");
  }
  return book;
}

// Everything that an import needs, in the order of its making.
struct Prepared {
  Prepared(const ImportRequest& request, bool asAdmin)
      : isAdmin(asAdmin),
        book(BookFor(request, isAdmin)),
        file(request.file, IsLibraryFormat(request.format)),
        source(Open(request)),
        run(*source, book, RuleOf(request.onDuplicate), isAdmin) {
    run.Survey(request.batch || source->IsScript());
  }

  std::unique_ptr<ImportSource> Open(const ImportRequest& request) {
    if (IsLibraryFormat(request.format)) return OpenLibraryFormat(request, book, file, isAdmin);
    if (request.format.empty() && IsMailServerExport(file)) {
      throw UsageError(file.Name() + " is a mail server's export; add --format mail");
    }
    return OpenContacts(request, book, file);
  }

  const bool isAdmin;
  const AddressBook& book;
  ImportFile file;
  std::unique_ptr<ImportSource> source;
  Import run;
  bool wasCleared = false;
};

std::string Title(const Prepared& prepared) {
  return "the " + std::string(prepared.book.title);
}

std::string CountedRows(std::size_t count, const Prepared& prepared) {
  return std::to_string(count) + " of " +
         console::Counted(prepared.run.Rows() - prepared.run.Count(Outcome::kPassedOver), "row");
}

void Report(Prepared& prepared, const ImportRequest& request) {
  Import& run = prepared.run;
  if (request.json) {
    ShowImportJson(run, *prepared.source, prepared.book, request.dryRun);
    return;
  }
  const bool isKnown = run.Count(Outcome::kUnknown) == 0;
  if (request.dryRun) {
    std::cout << "Would import " << CountedRows(run.ToSend(), prepared);
  } else {
    std::cout << (isKnown ? "Imported " : "Sent ")
              << CountedRows(isKnown ? run.Count(Outcome::kArrived) : run.Sent(), prepared);
  }
  std::cout << " of " << prepared.file.Name();
  if (const std::size_t present = run.Count(Outcome::kPresent); present != 0) {
    std::cout << "; " << present << (present == 1 ? " is" : " are") << " already there";
  }
  std::cout << ".\n";
  if (!request.dryRun && isKnown && run.Sent() != 0) {
    std::cout << "T" << Title(prepared).substr(1) << " had " << run.EntriesBefore()
              << " entries and now has " << run.EntriesAfter() << ".\n";
  }
  ShowEntries(run, prepared.book, request.dryRun, request.shown);
  ShowFindings(run, request.faultsShown);
}

// Throws the failure that the outcome of the rows is, if it is one.
void RequireOutcome(Prepared& prepared, const ImportRequest& request) {
  Import& run = prepared.run;
  const std::string file = prepared.file.Name();
  const std::size_t rejected = run.Rejected();
  std::string status = run.LastStatus() != 0 ? "; " + CodeAndText(run.LastStatus()) : "";
  if (const std::size_t count = run.Count(Outcome::kNotSent); count != 0) {
    status = "; the import ended before " + console::Counted(count, "row") + status;
  }
  if (run.Count(Outcome::kUnknown) != 0) {
    throw UnknownResult("sent " + file + status + "; " + Title(prepared) +
                        " cannot be read completely, so it is unknown which rows were imported");
  }
  // Some accounts cannot be deleted.
  const bool hasPermanent = prepared.book.secretField != AddressBook::kNone;
  if (request.clearFirst && !hasPermanent && run.EntriesAfter() > run.Count(Outcome::kArrived)) {
    throw PartialFailure("imported " + file + ", but " + Title(prepared) + " was not cleared");
  }
  if (rejected == 0 && status.empty()) return;
  const std::size_t good = request.dryRun ? run.ToSend() : run.Count(Outcome::kArrived);
  if (good == 0 && prepared.wasCleared) {
    throw PartialFailure("cannot import " + file + ": no row was imported" + status + "; " +
                         Title(prepared) + " was cleared");
  }
  if (good == 0 && run.Count(Outcome::kPresent) == 0) {
    throw Refusal("cannot import " + file + ": no row " +
                  (run.Sent() == 0 ? "is valid; nothing was sent" : "was imported" + status));
  }
  const char* const verb = rejected == 1 ? " was not imported" : " were not imported";
  throw PartialFailure(CountedRows(rejected, prepared) +
                       (request.dryRun ? " cannot be imported" : verb) + status);
}

void Finish(Prepared& prepared, const ImportRequest& request) {
  Report(prepared, request);
  try {
    WriteRejectedRows(request.rejects, prepared.run, *prepared.source, prepared.file);
  } catch (const Refusal& why) {
    throw PartialFailure(std::string(why.what()) + "; " +
                         CountedRows(prepared.run.Rejected(), prepared) + " were not imported");
  }
  RequireOutcome(prepared, request);
}

void Send(Prepared& prepared, const ImportRequest& request, const Session& session) {
  const console::DeferredTermination untilReported("reading the book, to report each row");
  quillkit::CScanner& scanner = *session.Scanner();
  Import& run = prepared.run;
  // The script of a library format clears the book itself, as the library's does.
  const bool isScript = request.batch || prepared.source->IsScript();
  const bool clearsInScript = request.clearFirst && prepared.source->IsScript() && prepared.isAdmin;
  if (request.clearFirst && !clearsInScript) {
    MakeChange([&] { return prepared.book.clear(scanner); }, "clear " + Title(prepared));
    prepared.wasCleared = true;
  }
  if (isScript) {
    run.SendScript(scanner, clearsInScript);
  } else {
    run.SendRows(scanner, [&] { return untilReported.IsRequested(); });
  }
  run.Verify(scanner);
  Finish(prepared, request);
}

void Run(Prepared& prepared, const ImportRequest& request, const Session& session) {
  Import& run = prepared.run;
  run.Compare(*session.Scanner(), request.clearFirst);
  if (!request.json) ShowForm(*prepared.source, prepared.file);
  if (request.dryRun || run.ToSend() == 0) return Finish(prepared, request);
  if (request.clearFirst) {
    console::Confirm(request.yes, "Clear " + Title(prepared) + " and import " +
                                      console::Counted(run.ToSend(), "row") + '?');
  } else if (const std::size_t changed = run.Count(Outcome::kToChange); changed != 0) {
    console::Confirm(request.yes, "Replace the values of " +
                                      console::Counted(changed, "entry", "entries") + " of " +
                                      Title(prepared) + '?');
  }
  Send(prepared, request, session);
}

// Whether a script has a line that does more than set an entry: it may clear a book.
bool DoesMoreThanSet(const ImportFile& file) {
  std::ifstream lines(file.Path());
  for (std::string line; std::getline(lines, line);) {
    if (!contacts::IsBlank(line) && !line.starts_with("SE ")) return true;
  }
  return false;
}

// Sends the file to the appliance, which runs it, and reports the size of each book that it may
// have changed.
void SendScriptFile(const ImportFile& file, const Session& session) {
  const bool isAdmin = quillkit::IsAdminConnected(session.Scanner()) != 0;
  const std::span<const AddressBook> books = isAdmin ? PublicBooks() : PrivateBook();
  const auto sizes = [&] {
    std::vector<std::uint32_t> counts;
    for (const AddressBook& each : books) {
      std::uint32_t count = 0;
      const std::int32_t status = each.count(*session.Scanner(), &count);
      if (status == quillkit::kDataNotFound || status == quillkit::kNoSuchBook)
        count = 0;
      else
        RequireSuccess(status, "count the entries of the " + std::string(each.title));
      counts.push_back(count);
    }
    return counts;
  };
  const std::vector<std::uint32_t> before = sizes();
  const console::DeferredTermination untilReported("finishing the import");
  quillkit::ImportOptions options = {};
  options.format = quillkit::ImportFormatScript;
  const std::int32_t status =
      quillkit::ImportAddressBook(session.Scanner(), file.Path().c_str(), &options);
  if (status == quillkit::kServerFailure || status == quillkit::kTimeoutExpired) {
    throw UnknownResult("it is unknown what " + file.Name() + " changed: " + CodeAndText(status));
  }
  if (status != 0) {
    throw Refusal("cannot import " + file.Name() + ": " + CodeAndText(status) +
                  "; the appliance keeps what it imported before the failure");
  }
  std::cout << "Sent " << file.Name() << ".\n";
  const std::vector<std::uint32_t> now = ReadBack("sent " + file.Name(), sizes);
  for (std::size_t i = 0; i < books.size(); ++i) {
    std::cout << "The " << books[i].title << " had " << before[i] << " entries and now has "
              << now[i] << ".\n";
  }
}

void Preview(Prepared& prepared, const ImportRequest& request) {
  ShowForm(*prepared.source, prepared.file);
  ShowEntries(prepared.run, prepared.book, true, request.shown);
  ShowFindings(prepared.run, request.faultsShown);
}

void RunImport(const ImportRequest& request, const Credentials& credentials) {
  RequireFittingOptions(request);
  if (request.format == kScript) {
    const ImportFile file(request.file, true);
    const Session session(credentials);
    const bool isAdmin = quillkit::IsAdminConnected(session.Scanner()) != 0;
    if (isAdmin && DoesMoreThanSet(file)) {
      console::Confirm(request.yes, "Run a script that does more than set entries?");
    }
    return SendScriptFile(file, session);
  }
  Prepared prepared(request, credentials.user == kAdministrator);
  if (request.preview) return Preview(prepared, request);
  RequireRejectsFile(request);
  if (prepared.run.ToSend() == 0 && prepared.run.Rejected() != 0) {
    if (!request.json) ShowForm(*prepared.source, prepared.file);
    return Finish(prepared, request);
  }
  const Session session(credentials);
  Run(prepared, request, session);
}

constexpr const char* kMapHelp =
    "The source of each field of the book. FIELD=HEADING or FIELD=ATTRIBUTE, separated by commas: "
    "\"name=Full Name,address=Second E-mail\". In a csv file, a column number, counted from 1, may "
    "replace the heading. --format delimited requires a column number, counted from 0, for each "
    "field, or -1 for none: 2,10";

constexpr const char* kFooter =
    "Rows that cannot be imported are reported and not sent. The exit status is 3 if some rows "
    "were not imported, and 5 if the address book cannot be read afterwards.";

std::string PathFault(const std::string& path) {
  return path.empty() ? "the file name is empty" : "";
}

std::string DelimiterFault(const std::string& text) {
  const bool isOne = text.size() == 1 && contacts::kDelimiters.find(text.front()) != text.npos;
  return isOne || text == "tab" ? "" : R"(not one of "," ";" "|" and "tab")";
}

void AddFileOptions(CLI::App* command, ImportRequest& into) {
  command
      ->add_option("--format", into.format,
                   "The format of the file (default: recognised). delimited, directory, mail and "
                   "script are sent to the appliance as the library converts them")
      ->check(CLI::IsMember(
          {"csv", "ldif", "vcard", "json", "delimited", "directory", "mail", kScript}));
  command->add_option("--encoding", into.encoding, "The file's encoding (default: recognised)")
      ->check(CLI::IsMember(contacts::EncodingWords()));
  command
      ->add_option("--delimiter", into.delimiter,
                   "csv: the character between values, or \"tab\" (default: recognised)")
      ->check(DelimiterFault, "");
  command
      ->add_option("--headings", into.headings,
                   "csv: whether the first row holds headings (default: recognised)")
      ->check(CLI::IsMember({"yes", "no"}));
  command->add_option("--map", into.map, kMapHelp);
  command
      ->add_option("--prefer", into.prefer,
                   "Of several addresses of a contact, import that of this place")
      ->check(CLI::IsMember({"work", "home"}));
  command->add_flag("--skip-header", into.skipHeader,
                    "delimited: skip the first line that is not empty");
}

void AddBookOptions(CLI::App* command, ImportRequest& into) {
  command
      ->add_option("--book", into.book,
                   "The book (default: email; for other accounts than ADMINISTRATOR: private)")
      ->check(CLI::IsMember(AllBookWords()));
  command->add_option("--store-as", into.storeAs, "The encoding of the texts on the appliance")
      ->check(CLI::IsMember({"utf-8", "windows-1252"}))
      ->capture_default_str();
  command->add_flag("--shorten", into.shorten, "Shorten names that are too long, and report them");
  command
      ->add_option("--on-duplicate", into.onDuplicate,
                   "What happens to a row whose name the book, or an earlier row, has")
      ->check(CLI::IsMember({"skip", "replace", "refuse"}))
      ->capture_default_str();
  command->add_flag("--batch", into.batch, "Send one import script, not a call for each row");
  command->add_flag("--clear", into.clearFirst, "Clear the book first");
  console::AddYes(command, into.yes);
}

void AddReportOptions(CLI::App* command, ImportRequest& into) {
  command->add_flag("--preview", into.preview,
                    "Show how the file is read, without a login; send nothing");
  command->add_flag("--dry-run", into.dryRun, "Show what would be imported; send nothing");
  console::AddNumber(command, "--show", into.shown, "The number of entries to show", 0, UINT32_MAX)
      ->capture_default_str();
  command
      ->add_option("--rejects", into.rejects,
                   "Write the rows that are not imported to this file, unchanged")
      ->check(PathFault, "");
  command->add_flag("--force", into.force, "Overwrite an existing file of rejected rows");
  command->add_flag("--json", into.json, "Print the result as JSON")
      ->excludes(command->get_option("--preview"));
}

}  // namespace

void ImportInSession(const ImportRequest& request, const Session& session) {
  Prepared prepared(request, quillkit::IsAdminConnected(session.Scanner()) != 0);
  Run(prepared, request, session);
}

void AddImportCommand(Commands& entry) {
  const auto request = std::make_shared<ImportRequest>();
  CLI::App* command = entry.AddWithoutLogin(
      "import", "Import a file into an address book",
      [request](const Credentials& credentials) { RunImport(*request, credentials); });
  command->footer(kFooter);
  command->add_option("file", request->file, "The file to import; - is standard input")->required();
  AddFileOptions(command, *request);
  AddBookOptions(command, *request);
  AddReportOptions(command, *request);
}

}  // namespace quillctl
