// Faults as one line of text: "IMSPCreateEntry:2=11,*:0=20" makes the second IMSPCreateEntry,
// counted from now, return 11, and every other call of any entry point return 20.

#ifndef QUILLKIT_SIMULATOR_FAULT_SCRIPT_H_
#define QUILLKIT_SIMULATOR_FAULT_SCRIPT_H_

#include <string>
#include <string_view>

#include "simulator/faults.h"

namespace quillbox {

// Adds the faults of a text, which may be empty. Returns an empty text, or a description of the
// error (an unknown entry point, an invalid number); then no fault is added.
std::string ScriptFaults(std::string_view text, Faults& faults);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_FAULT_SCRIPT_H_
