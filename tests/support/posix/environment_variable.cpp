#include "tests/support/environment_variable.h"

#include <cstdlib>

namespace quillkit {

void EnvironmentVariable::Set(const std::string& value) {
  if (value.empty()) {
    unsetenv(name);
  } else {
    setenv(name, value.c_str(), 1);
  }
}

}  // namespace quillkit
