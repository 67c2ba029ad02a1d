#include "simulator/system/variables.h"

#include <unistd.h>

namespace quillbox {

std::vector<std::string> VariableNames(std::string_view prefix) {
  std::vector<std::string> names;
  for (char** each = environ; each != nullptr && *each != nullptr; ++each) {
    const std::string_view variable = *each;
    if (variable.starts_with(prefix)) names.emplace_back(variable.substr(0, variable.find('=')));
  }
  return names;
}

}  // namespace quillbox
