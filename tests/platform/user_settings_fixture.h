// A profile of settings of directory servers that only the running test uses, and its key in the
// user's settings. Both are deleted after the test.

#ifndef QUILLKIT_TESTS_PLATFORM_USER_SETTINGS_FIXTURE_H_
#define QUILLKIT_TESTS_PLATFORM_USER_SETTINGS_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/user_settings.h"
#include "tests/support/environment_variable.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

class UserSettingsTest : public testing::Test {
 protected:
  // Deletes the profile, and the key of all profiles if it is empty then.
  ~UserSettingsTest() override {
    for (const std::string& each : Subkeys(key)) DeleteSettingsKey((key + '\\' + each).c_str());
    DeleteSettingsKey(key.c_str());
    DeleteSettingsKey(key.substr(0, key.size() - profile.size()).c_str());
  }

  static SettingsStatus WriteText(const std::string& path, const char* name, const char* text) {
    SettingsKey opened(path.c_str(), SettingsAccess::kWrite);
    return opened.OpenStatus() == kSettingsDone ? opened.WriteText(name, text)
                                                : opened.OpenStatus();
  }

  // The bytes of a value, read into a buffer of `size` bytes; or "status " and the status of
  // opening the key or reading the value.
  static std::string Read(const std::string& path, const char* name, std::uint32_t size = 8000) {
    std::string bytes(size + 1, '#');
    const SettingsKey opened(path.c_str(), SettingsAccess::kRead);
    SettingsStatus status = opened.OpenStatus();
    if (status == kSettingsDone) status = opened.Read(name, bytes.data(), &size);
    EXPECT_EQ(bytes.back(), '#') << "a byte after the end of the buffer was written";
    return status == kSettingsDone ? bytes.substr(0, size) : "status " + std::to_string(status);
  }

  // The names of the keys in a key; empty if the key does not exist.
  static std::vector<std::string> Subkeys(const std::string& path) {
    const SettingsKey opened(path.c_str(), SettingsAccess::kRead);
    std::vector<std::string> names;
    for (SettingsStatus status = opened.OpenStatus(); status == kSettingsDone;) {
      char name[256];
      std::uint32_t length = sizeof name;
      status = opened.SubkeyName(static_cast<std::uint32_t>(names.size()), name, &length);
      if (status == kSettingsDone) names.emplace_back(name);
    }
    return names;
  }

  // The location of the settings. On Windows it is the usual one.
  const ScratchFolder home;
  const EnvironmentVariable variable{"XDG_CONFIG_HOME", home.Path().string()};
  const std::string profile = testing::UnitTest::GetInstance()->current_test_info()->name();
  const std::string key = "Software\\\\Tarvenor\\\\Ledgerhouse\\LDAP\\" + profile;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_USER_SETTINGS_FIXTURE_H_
