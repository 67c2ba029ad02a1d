#include "simulator/system/variables.h"

#include <windows.h>

namespace quillbox {

// The block consists of texts, and ends with an empty one.
std::vector<std::string> VariableNames(std::string_view prefix) {
  std::vector<std::string> names;
  char* const block = GetEnvironmentStringsA();
  if (block == nullptr) return names;
  for (const char* each = block; *each != '\0';) {
    const std::string_view variable = each;
    if (variable.starts_with(prefix)) names.emplace_back(variable.substr(0, variable.find('=')));
    each += variable.size() + 1;
  }
  FreeEnvironmentStringsA(block);
  return names;
}

}  // namespace quillbox
