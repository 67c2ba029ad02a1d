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
  const std::string state = Variable(kStateVariable);
  if (!state.empty()) appliance.stateFile.Open(state, appliance.contents);
  const std::string journal = Variable(kJournalVariable);
  if (!journal.empty()) appliance.journalFile.Open(journal);
  const std::string fault = ScriptFaults(Variable(kFaultsVariable), appliance.faults);
  if (!fault.empty()) Warn(kFaultsVariable, fault + "; no call fails");
}

}  // namespace quillbox
