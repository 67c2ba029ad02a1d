// A key of the running test's own in the user's settings, which goes with the test.

#ifndef QUILLKIT_TESTS_PLATFORM_USER_SETTINGS_FIXTURE_H_
#define QUILLKIT_TESTS_PLATFORM_USER_SETTINGS_FIXTURE_H_

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <list>
#include <string>
#include <vector>

#include "platform/user_settings.h"
#include "tests/support/settings_home.h"

namespace quillkit {

class UserSettingsTest : public testing::Test {
 protected:
  UserSettingsTest() { Make(root); }
  ~UserSettingsTest() override {
    for (const std::string& each : made) DeleteSettingsKey(each.c_str());
  }

  // Makes a key and has it deleted at the end; keys below it come after it. Its path.
  std::string Make(const std::string& path) {
    made.push_front(path);
    EXPECT_EQ(SettingsKey(path.c_str(), SettingsAccess::kWrite).OpenStatus(), kSettingsDone);
    return path;
  }

  static SettingsStatus Open(const std::string& path) {
    return SettingsKey(path.c_str(), SettingsAccess::kRead).OpenStatus();
  }

  static SettingsStatus WriteText(const std::string& path, const char* name, const char* text) {
    SettingsKey key(path.c_str(), SettingsAccess::kWrite);
    return key.OpenStatus() == kSettingsDone ? key.WriteText(name, text) : key.OpenStatus();
  }

  // The bytes of a value, or "status " and the status of reading it.
  static std::string Read(const std::string& path, const char* name) {
    std::array<char, 4096> bytes{};
    std::uint32_t size = bytes.size();
    const SettingsKey key(path.c_str(), SettingsAccess::kRead);
    const SettingsStatus status = key.Read(name, bytes.data(), &size);
    return status == kSettingsDone ? std::string(bytes.data(), size)
                                   : "status " + std::to_string(status);
  }

  static std::vector<std::string> Subkeys(const std::string& path) {
    std::vector<std::string> names;
    const SettingsKey key(path.c_str(), SettingsAccess::kRead);
    for (std::uint32_t index = 0;; ++index) {
      std::array<char, 256> name{};
      std::uint32_t length = name.size();
      const SettingsStatus status = key.SubkeyName(index, name.data(), &length);
      if (status == kNoMoreSettings) return names;
      if (status != kSettingsDone) return {"status " + std::to_string(status)};
      EXPECT_EQ(std::strlen(name.data()), length);
      names.emplace_back(name.data(), length);
    }
  }

  const SettingsHome home;
  const std::string root = std::string("Software\\\\Quillkit tests\\") +
                           testing::UnitTest::GetInstance()->current_test_info()->name();

 private:
  std::list<std::string> made;  // the latest first
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_USER_SETTINGS_FIXTURE_H_
