// Warnings for the person who set up the simulator, for errors that no call can return.

#ifndef QUILLKIT_SIMULATOR_WARNING_H_
#define QUILLKIT_SIMULATOR_WARNING_H_

#include <string_view>

namespace quillbox {

// The environment variables that configure the appliance.
inline constexpr const char* kStateVariable = "QUILLBOX_STATE";      // the path of a StateFile
inline constexpr const char* kFaultsVariable = "QUILLBOX_FAULTS";    // a text for ScriptFaults
inline constexpr const char* kJournalVariable = "QUILLBOX_JOURNAL";  // the path of a JournalFile
inline constexpr const char* kJournalFormVariable = "QUILLBOX_JOURNAL_FORMAT";  // JournalFormOf
inline constexpr const char* kScenarioVariable = "QUILLBOX_SCENARIO";  // the path of a Scenario
inline constexpr const char* kReportVariable = "QUILLBOX_REPORT";      // the path of a RunReport
// Not empty: continue after a mistake in another variable, and if a file cannot be used.
inline constexpr const char* kLenientVariable = "QUILLBOX_LENIENT";

inline constexpr const char* kVariables[] = {
    kStateVariable,    kFaultsVariable, kJournalVariable, kJournalFormVariable,
    kScenarioVariable, kReportVariable, kLenientVariable};
// Another variable that begins with this is misspelt.
inline constexpr const char* kVariablePrefix = "QUILLBOX_";

// Writes "simulated Quillbox: SUBJECT: TEXT" and a newline to standard error. The subject is the
// environment variable with the error.
void Warn(std::string_view subject, std::string_view text);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_WARNING_H_
