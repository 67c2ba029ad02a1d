#include "console/confirmation.h"

#include <filesystem>
#include <iostream>
#include <system_error>

#include "console/displayed_text.h"
#include "console/failure.h"
#include "console/system/terminal.h"
#include "console/text_file.h"
#include "console/text_table.h"

namespace console {

CLI::Option* AddYes(CLI::App* command, bool& into) {
  return command->add_flag("--yes", into, "Do not ask for confirmation");
}

void Confirm(bool yes, const std::string& question) {
  if (yes) return;
  if (!StdinIsTerminal()) {
    throw UsageError(question + " Nothing was changed; to confirm without a terminal, add --yes");
  }
  std::cout.flush();
  if (!std::cout) throw Refusal("cannot print what would change; nothing was changed");
  std::cerr << question << " [y/N] " << std::flush;
  const std::string answer = LowerCase(ReadLineFromTerminal());
  if (answer != "y" && answer != "yes") throw Refusal("not confirmed; nothing was changed");
}

CLI::Option* AddDryRun(CLI::App* command, Consent& into) {
  return command->add_flag("--dry-run", into.dryRun,
                           "Print what would be done, without changing anything");
}

bool IsDryRun(const Consent& consent, const std::string& action) {
  if (consent.dryRun) {
    std::cout << "Would " << LowerCase(action.substr(0, 1)) << action.substr(1) << ".\n";
  }
  return consent.dryRun;
}

void AddConsent(CLI::App* command, Consent& into) {
  CLI::Option* yes = AddYes(command, into.yes);
  AddDryRun(command, into)->excludes(yes);
}

bool Agreed(const Consent& consent, const std::string& action) {
  if (IsDryRun(consent, action)) return false;
  Confirm(consent.yes, action + '?');
  return true;
}

void ConfirmOverwrite(bool yes, const std::string& path) {
  std::error_code failure;
  if (!IsStandardOutput(path) && std::filesystem::is_regular_file(path, failure)) {
    Confirm(yes, "Overwrite " + Quoted(path) + '?');
  }
}

}  // namespace console
