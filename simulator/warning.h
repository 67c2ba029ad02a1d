// Warnings for the person who set up the simulator, for errors that no call can return.

#ifndef QUILLKIT_SIMULATOR_WARNING_H_
#define QUILLKIT_SIMULATOR_WARNING_H_

#include <string_view>

namespace quillbox {

// The environment variables that configure the appliance.
inline constexpr const char* kStateVariable = "QUILLBOX_STATE";      // the path of a StateFile
inline constexpr const char* kFaultsVariable = "QUILLBOX_FAULTS";    // a text for ScriptFaults
inline constexpr const char* kJournalVariable = "QUILLBOX_JOURNAL";  // the path of a JournalFile
// Not empty: continue after a mistake in another variable, and if a file cannot be used.
inline constexpr const char* kLenientVariable = "QUILLBOX_LENIENT";

// Writes "simulated Quillbox: VARIABLE: TEXT" and a newline to standard error. Reports an invalid
// value of an environment variable.
void Warn(std::string_view variable, std::string_view text);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_WARNING_H_
