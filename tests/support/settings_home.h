// Where the user's settings stand while a test runs: on POSIX in a fresh folder, which goes with
// this object; on Windows where they always stand, so that a test takes away what it made.

#ifndef QUILLKIT_TESTS_SUPPORT_SETTINGS_HOME_H_
#define QUILLKIT_TESTS_SUPPORT_SETTINGS_HOME_H_

#include <filesystem>

#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

class SettingsHome {
 public:
  // The configuration folder. REQUIRES: POSIX.
  const std::filesystem::path& Folder() const { return folder.Path(); }

 private:
  const ScratchFolder folder;
  const EnvironmentVariable variable{"XDG_CONFIG_HOME", folder.Path().string()};
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_SETTINGS_HOME_H_
