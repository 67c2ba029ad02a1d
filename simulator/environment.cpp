#include "simulator/environment.h"

#include <cstdlib>
#include <string>

#include "simulator/appliance.h"
#include "simulator/fault_script.h"
#include "simulator/warning.h"

namespace quillbox {
namespace {

std::string Variable(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr ? value : "";
}

}  // namespace

void ReadEnvironment(Appliance& appliance) {
  appliance.isLenient = !Variable(kLenientVariable).empty();
  const auto check = [&appliance](const char* variable, const std::string& fault,
                                  const char* leniency) {
    if (fault.empty()) return;
    Warn(variable,
         fault + "; " + (appliance.isLenient ? leniency : "every call but IMSPInit fails"));
    if (!appliance.isLenient) appliance.isMisconfigured = true;
  };
  const std::string state = Variable(kStateVariable);
  if (!state.empty()) {
    check(kStateVariable, appliance.stateFile.Open(state, appliance.contents),
          "starting with the initial books; changes will not be saved");
  }
  const std::string journal = Variable(kJournalVariable);
  if (!journal.empty()) {
    check(kJournalVariable, appliance.journalFile.Open(journal), "no call is recorded");
  }
  check(kFaultsVariable, ScriptFaults(Variable(kFaultsVariable), appliance.faults),
        "no call fails");
}

}  // namespace quillbox
