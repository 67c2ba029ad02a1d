#include "tests/support/environment_variable.h"

#include <cstdlib>

namespace quillkit {

EnvironmentVariable::EnvironmentVariable(const char* name, const std::string& value) : name_(name) {
  const char* const before = std::getenv(name);
  if (before != nullptr) before_ = before;
  Set(value);
}

}  // namespace quillkit
