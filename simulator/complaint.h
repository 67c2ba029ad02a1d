// What the simulator has to say to the person who set it up, and no caller could be told.

#ifndef QUILLKIT_SIMULATOR_COMPLAINT_H_
#define QUILLKIT_SIMULATOR_COMPLAINT_H_

#include <string_view>

namespace quillbox {

// The variables of the environment that set the appliance up.
inline constexpr const char* kStateVariable = "QUILLBOX_STATE";      // the path of a StateFile
inline constexpr const char* kFaultsVariable = "QUILLBOX_FAULTS";    // a text for ScriptFaults
inline constexpr const char* kJournalVariable = "QUILLBOX_JOURNAL";  // the path of a JournalFile

// Writes "simulated Quillbox: VARIABLE: TEXT" and a newline to standard error: what is wrong with
// what a variable of the environment asks for.
void Complain(std::string_view variable, std::string_view text);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_COMPLAINT_H_
