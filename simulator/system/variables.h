// The environment of the process.

#ifndef QUILLKIT_SIMULATOR_SYSTEM_VARIABLES_H_
#define QUILLKIT_SIMULATOR_SYSTEM_VARIABLES_H_

#include <string>
#include <string_view>
#include <vector>

namespace quillbox {

// Returns the names of the variables that begin with `prefix`.
std::vector<std::string> VariableNames(std::string_view prefix);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SYSTEM_VARIABLES_H_
