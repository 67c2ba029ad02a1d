#include "tests/support/environment_variable.h"

#include <cstdlib>

namespace quillkit {

void EnvironmentVariable::Set(const std::string& value) {
  _putenv_s(name, value.c_str());  // an empty text removes the variable
}

}  // namespace quillkit
