// Faults as one line of text: "IMSPCreateEntry:2=11,*:0=20" makes the second call of one entry
// point from now on give 11, and each call of any give 20.

#ifndef QUILLKIT_SIMULATOR_FAULT_SCRIPT_H_
#define QUILLKIT_SIMULATOR_FAULT_SCRIPT_H_

#include <string>
#include <string_view>

#include "simulator/faults.h"

namespace quillbox {

// Adds the faults of a text, which may be empty. An empty text, or what is wrong with it, with
// nothing added then: an entry point that does not exist, a number that is none.
std::string ScriptFaults(std::string_view text, Faults& faults);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_FAULT_SCRIPT_H_
