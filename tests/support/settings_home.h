// The location of the user's settings during a test. On POSIX it is a new folder, which is deleted
// with this object. On Windows it is the usual location, so a test must delete what it created.

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
