// The command "import" as it is added to the command line.

#include <memory>

#include "quillctl/address_books.h"
#include "quillctl/commands.h"
#include "quillctl/import_command.h"
#include "quillctl/import_plan.h"

namespace quillctl {
namespace {

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
