#include "tests/support/environment_variable.h"

#include <cstdlib>

namespace quillkit {

EnvironmentVariable::EnvironmentVariable(const char* variable, const std::string& value)
    : name(variable) {
  const char* const found = std::getenv(name);
  if (found != nullptr) before = found;
  Set(value);
}

}  // namespace quillkit
