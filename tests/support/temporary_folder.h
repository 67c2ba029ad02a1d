// Redirects the temporary files of this process to another folder while the object exists.

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
  // Each system reads its own variable first.
  const EnvironmentVariable posix;
  const EnvironmentVariable win32;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_TEMPORARY_FOLDER_H_
