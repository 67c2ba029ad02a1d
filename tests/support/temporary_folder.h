// Where this process puts its temporary files, redirected as long as the object lives.

#ifndef QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
#define QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_

#include <string>

#include "tests/support/environment_variable.h"

namespace quillkit {

class TemporaryFolder {
 public:
  // `path` need not exist.
  explicit TemporaryFolder(const std::string& path) : posix("TMPDIR", path), win32("TMP", path) {}

 private:
  // Each system looks at its own first.
  const EnvironmentVariable posix;
  const EnvironmentVariable win32;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
