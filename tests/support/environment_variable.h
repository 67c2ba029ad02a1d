// Sets a variable of this process's environment. The destructor restores the earlier value.

#ifndef QUILLKIT_TESTS_SUPPORT_ENVIRONMENT_VARIABLE_H_
#define QUILLKIT_TESTS_SUPPORT_ENVIRONMENT_VARIABLE_H_

#include <cstdlib>
#include <string>

namespace quillkit {

class EnvironmentVariable {
 public:
  // An empty value removes the variable. The name must outlive the object.
  EnvironmentVariable(const char* variable, const std::string& value) : name(variable) {
    if (const char* const found = std::getenv(name)) before = found;
    Set(value);
  }
  EnvironmentVariable(const EnvironmentVariable&) = delete;
  EnvironmentVariable& operator=(const EnvironmentVariable&) = delete;
  ~EnvironmentVariable() { Set(before); }

 private:
  void Set(const std::string& value);

  const char* name;
  std::string before;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_ENVIRONMENT_VARIABLE_H_
