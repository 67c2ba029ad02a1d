#include "quillctl/help_texts.h"

#include <string>

#include "toolkit/version.h"

namespace quillctl {
namespace {

constexpr const char* kVersion = "quillctl " QUILLKIT_VERSION;

constexpr const char* kFooter =
    "These options stand before or behind the command; quillctl COMMAND --help tells its own.\n"
    "Without a password quillctl takes that of the variable QUILLCTL_PASSWORD, or asks for it, or\n"
    "takes the empty one where nobody can type.\n"
    "\n"
    "Exit status:\n"
    "  0  good\n"
    "  1  the appliance or the library refused, does not have what is named, or fails a check\n"
    "  2  the command line or a file cannot be carried out as it stands\n"
    "  3  an import of which some rows did not become entries\n"
    "  4  nobody could be logged in: no appliance is there, or it refused the account";

constexpr const char* kCommandFooter =
    "\nThe options for the login, and the exit statuses: quillctl --help";

// A run of each command.
struct Example {
  const char* command;
  const char* arguments;
};
constexpr Example kExamples[] = {
    {"info", "--host quillbox.example"},
    {"check", "--host quillbox.example --write"},
    {"keys", "--json"},
    {"add-key", "Accounting"},
    {"rename-key", "Archive Records"},
    {"delete-key", "Accounting"},
    {"items", "Desks"},
    {"find", "Inv"},
    {"add-item", "Desks Dora --address 10.0.4.24 --path /inbox"},
    {"edit-item", "Desks Agnes --address 10.0.4.25"},
    {"rename-item", "Desks Ewa \"Ewa Lind\""},
    {"move", "Desks Ewa --to Workshop"},
    {"delete-item", "Desks Ewa"},
    {"export", "keys.json"},
    {"apply", "keys.json --dry-run"},
    {"import", "contacts.csv --format csv --map 2,10 --skip-header"},
};

}  // namespace

void AddHelpTexts(CLI::App& app) {
  app.footer(kFooter);
  app.set_version_flag("--version", kVersion, "Print the version and exit");
  for (const Example& each : kExamples) {
    CLI::App* command = app.get_subcommand(each.command);
    const std::string own = command->get_footer();
    command->footer("Example: quillctl " + command->get_name() + ' ' + each.arguments + '\n' +
                    (own.empty() ? "" : '\n' + own + '\n'));
  }
  for (CLI::App* command : app.get_subcommands(nullptr)) {
    command->footer(command->get_footer() + kCommandFooter);
  }
}

}  // namespace quillctl
