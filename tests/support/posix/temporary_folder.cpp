#include "tests/support/temporary_folder.h"

#include <cstdlib>

namespace quillkit {
namespace {

constexpr const char* kVariable = "TMPDIR";

}  // namespace

TemporaryFolder::TemporaryFolder(const std::string& path) {
  const char* const before = std::getenv(kVariable);
  if (before != nullptr) before_ = before;
  setenv(kVariable, path.c_str(), 1);
}

TemporaryFolder::~TemporaryFolder() {
  if (before_.empty()) {
    unsetenv(kVariable);
  } else {
    setenv(kVariable, before_.c_str(), 1);
  }
}

}  // namespace quillkit
