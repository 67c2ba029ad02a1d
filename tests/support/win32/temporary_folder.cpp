#include "tests/support/temporary_folder.h"

#include <cstdlib>

namespace quillkit {
namespace {

// The variable that the system looks at first.
constexpr const char* kVariable = "TMP";

}  // namespace

TemporaryFolder::TemporaryFolder(const std::string& path) {
  const char* const before = std::getenv(kVariable);
  if (before != nullptr) before_ = before;
  _putenv_s(kVariable, path.c_str());
}

TemporaryFolder::~TemporaryFolder() {
  _putenv_s(kVariable, before_.c_str());  // an empty text removes the variable
}

}  // namespace quillkit
