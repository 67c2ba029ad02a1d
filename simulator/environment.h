// What the environment of the process asks of the appliance. Each variable may be absent or empty.

#ifndef QUILLKIT_SIMULATOR_ENVIRONMENT_H_
#define QUILLKIT_SIMULATOR_ENVIRONMENT_H_

namespace quillkit {

class Appliance;

inline constexpr const char* kStateVariable = "QUILLBOX_STATE";      // the path of a StateFile
inline constexpr const char* kFaultsVariable = "QUILLBOX_FAULTS";    // a text for ScriptFaults
inline constexpr const char* kJournalVariable = "QUILLBOX_JOURNAL";  // the path of a JournalFile

// Sets an appliance up as the three variables say.
void ReadEnvironment(Appliance& appliance);

}  // namespace quillkit

#endif  // QUILLKIT_SIMULATOR_ENVIRONMENT_H_
