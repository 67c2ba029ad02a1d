#include "simulator/environment.h"

#include <algorithm>
#include <cstdlib>
#include <string>
#include <string_view>

#include "simulator/appliance.h"
#include "simulator/escaped_text.h"
#include "simulator/fault_script.h"
#include "simulator/scenario.h"
#include "simulator/system/variables.h"
#include "simulator/warning.h"

namespace quillbox {
namespace {

std::string Variable(const char* variable) {
  const char* const value = std::getenv(variable);
  return value != nullptr ? value : "";
}

// Reports mistakes. Unless the appliance is lenient, its calls then fail.
class Mistakes {
 public:
  explicit Mistakes(Appliance& newAppliance) : appliance(newAppliance) {}

  // `leniency` is what a lenient appliance does. An empty fault is no mistake.
  void Check(const char* variable, const std::string& fault, const char* leniency) const {
    if (fault.empty()) return;
    Warn(variable,
         fault + "; " + (appliance.isLenient ? leniency : "every call but IMSPInit fails"));
    if (appliance.isLenient) return;
    appliance.isMisconfigured = true;
    appliance.report.AddMistake();
  }

 private:
  Appliance& appliance;
};

constexpr const char* kNoFile = "starting with the initial books; changes will not be saved";
constexpr const char* kNoJournal = "no call is recorded";

void CheckNames(const Mistakes& mistakes) {
  for (const std::string& name : VariableNames(kVariablePrefix)) {
    const bool isKnown = std::ranges::count(kVariables, std::string_view(name)) != 0;
    if (isKnown || Variable(name.c_str()).empty()) continue;
    mistakes.Check(Escaped(name).c_str(), "unknown variable", "it is ignored");
  }
}

// Applies the scenario and returns it. Without one, returns one that has no files.
Scenario ReadScenarioVariable(Appliance& appliance, const Mistakes& mistakes) {
  Scenario scenario;
  const std::string path = Variable(kScenarioVariable);
  if (path.empty()) return scenario;
  std::string fault = ReadScenario(path, scenario);
  if (fault.empty()) fault = ApplyScenario(scenario, appliance);
  mistakes.Check(kScenarioVariable, fault, "it is ignored");
  return fault.empty() ? scenario : Scenario();
}

void OpenJournal(Appliance& appliance, const Mistakes& mistakes, const std::string& path,
                 JournalForm form) {
  const std::string name = Variable(kJournalFormVariable);
  const auto named = JournalFormOf(name);
  if (!name.empty() && !named) {
    mistakes.Check(kJournalFormVariable, "unknown form \"" + Escaped(name) + '"', kNoJournal);
    return;
  }
  mistakes.Check(kJournalVariable, appliance.journalFile.Open(path, named.value_or(form)),
                 kNoJournal);
}

}  // namespace

void ReadEnvironment(Appliance& appliance) {
  appliance.isLenient = !Variable(kLenientVariable).empty();
  const Mistakes mistakes(appliance);
  const std::string report = Variable(kReportVariable);
  if (!report.empty()) {
    mistakes.Check(kReportVariable, appliance.report.Open(report), "nothing is reported");
  }
  CheckNames(mistakes);
  const Scenario scenario = ReadScenarioVariable(appliance, mistakes);
  const auto fileOf = [](const char* variable, const std::string& file) {
    const std::string path = Variable(variable);
    return path.empty() ? file : path;
  };
  const std::string state = fileOf(kStateVariable, scenario.state);
  if (!state.empty()) {
    mistakes.Check(kStateVariable, appliance.stateFile.Open(state, appliance.contents), kNoFile);
  }
  const std::string journal = fileOf(kJournalVariable, scenario.journal);
  if (!journal.empty()) OpenJournal(appliance, mistakes, journal, scenario.journalForm);
  mistakes.Check(kFaultsVariable, ScriptFaults(Variable(kFaultsVariable), appliance.faults),
                 "no call fails");
}

}  // namespace quillbox
