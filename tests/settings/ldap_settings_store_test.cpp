// The settings of directory servers.

#include "settings/ldap_settings_store.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <cstring>
#include <list>
#include <string>
#include <vector>

#include "platform/message_box.h"
#include "tests/support/settings_home.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr int kBoxResult = 5;
constexpr const char* kMessage = "Cannot access the Windows Registry.";

class LdapSettingsTest : public testing::Test {
 protected:
  LdapSettingsTest() {
    shown.clear();
    earlier = SetMessageBoxHandler([](const char* text) {
      shown.emplace_back(text);
      return kBoxResult;
    });
    while (Next() == kSettingsDone) {
      // Brings the walk, which is one for the whole process, back to its beginning.
    }
  }

  // Takes away what the test made, and the key of no profile with it where nobody else's is left.
  ~LdapSettingsTest() override {
    for (const std::string& each : profiles) DeleteLdapProfile(each.c_str());
    DeleteLdapProfile("");
    SetMessageBoxHandler(earlier);
  }

  // The name of a profile of this test's own, which goes with the test.
  const char* Profile(const std::string& ending) {
    profiles.push_back(testing::UnitTest::GetInstance()->current_test_info()->name() + ending);
    return profiles.back().c_str();
  }

  // The next profile into `name`.
  SettingsStatus Next(std::uint32_t room = 256) {
    name.fill('#');
    length = room;
    return EnumLdapProfiles(name.data(), &length);
  }

  static inline std::vector<std::string> shown;
  std::array<char, 256> name{};
  std::uint32_t length = 0;

 private:
  const SettingsHome home;
  std::list<std::string> profiles;
  MessageBoxHandler earlier = nullptr;
};

TEST_F(LdapSettingsTest, TextsAreReadUpTo512Characters) {
  const char* const profile = Profile("");
  for (const std::size_t each : {1U, 511U, 512U, 513U, 5000U}) {
    const std::string text(each, '\xE9');
    EXPECT_EQ(SetLdapString(profile, "host", text.c_str()), 1);
    EXPECT_EQ(GetLdapString(profile, "host"), each <= 512 ? text : "") << each;
  }
  EXPECT_EQ(SetLdapString(profile, "host", nullptr), 1);
  EXPECT_EQ(GetLdapString(profile, "host"), "");
}

TEST_F(LdapSettingsTest, TypesAreNotLookedAt) {
  const char* const profile = Profile("");
  SetLdapDword(profile, "number", 0x434241);
  EXPECT_EQ(GetLdapString(profile, "number"), "ABC");
  SetLdapDword(profile, "number", 0x44434241);
  EXPECT_EQ(GetLdapString(profile, "number"), "ABCD");
  SetLdapString(profile, "text", "abc");
  EXPECT_EQ(GetLdapDword(profile, "text", 7), 0x636261U);
  SetLdapString(profile, "text", "abcd");
  EXPECT_EQ(GetLdapDword(profile, "text", 7), 7U);
  SetLdapString(profile, "text", "");
  EXPECT_EQ(GetLdapDword(profile, "text", 7), 0U);
}

// 37 characters of the path are the store's own.
TEST_F(LdapSettingsTest, PathOf260CharactersIsTheLongestForTexts) {
  const std::string start = Profile("");
  const char* const longest = Profile(std::string(223 - start.size(), 'x'));
  EXPECT_EQ(SetLdapString(longest, "host", "x"), 1);
  EXPECT_THAT(shown, IsEmpty());
  const char* const tooLong = Profile(std::string(224 - start.size(), 'x'));
  EXPECT_EQ(SetLdapString(tooLong, "host", "x"), 0);
  EXPECT_THAT(shown, ElementsAre(kMessage));
  EXPECT_EQ(GetLdapDword(tooLong, "host", 7), 0U);  // not even the key was made
  // For numbers the store has no limit; where the system has one of its own, its refusal is told.
  SetLdapDword(tooLong, "port", 389);
  EXPECT_EQ(GetLdapDword(tooLong, "port", 7), shown.size() == 1 ? 389U : 0U);
  EXPECT_LE(shown.size(), 2U);
}

TEST_F(LdapSettingsTest, ProfilesAreDeletedOnceNothingIsBelowThem) {
  const char* const profile = Profile("");
  const std::string below = Profile("\\below");
  SetLdapDword(profile, "port", 389);
  SetLdapDword(below.c_str(), "port", 636);
  EXPECT_EQ(DeleteLdapProfile(profile), 0);
  EXPECT_EQ(GetLdapDword(profile, "port", 7), 389U);
  EXPECT_EQ(DeleteLdapProfile(nullptr), 0);
  EXPECT_EQ(DeleteLdapProfile(below.c_str()), 1);
  EXPECT_EQ(DeleteLdapProfile(profile), 1);
  EXPECT_EQ(GetLdapDword(profile, "port", 7), 0U);
  EXPECT_EQ(DeleteLdapProfile(profile), 0);
  SetLdapDword(profile, "other", 1);
  EXPECT_EQ(GetLdapDword(profile, "port", 7), 7U) << "its values went with it";
  EXPECT_THAT(shown, ElementsAre(kMessage, kMessage, kMessage));

  SetLdapDword(Profile(std::string(300, 'x')), "port", 389);
  EXPECT_THAT(shown, testing::SizeIs(4)) << "a refused number shows the message too";
  EXPECT_EQ(ReportRegistryError(5, kSettingsFailedText, "label: "), kBoxResult);
}

TEST_F(LdapSettingsTest, WalkGoesOnWhereItWasBrokenOff) {
  EXPECT_EQ(Next(), kNoSuchSetting);  // there is no key yet
  const char* const named[] = {Profile("A"), Profile("B"), Profile("C")};
  for (const int each : {1, 0, 2}) SetLdapDword(named[each], "port", 389);
  for (int i = 0; i < 2; ++i) {
    EXPECT_EQ(Next(), kSettingsDone);
    EXPECT_STREQ(name.data(), named[0]);
    EXPECT_EQ(length, std::strlen(named[0]));
    const auto tooSmall = static_cast<std::uint32_t>(std::strlen(named[1]));
    EXPECT_EQ(Next(tooSmall), kMoreSettingData);  // the second: it counts as told
    EXPECT_EQ(name[tooSmall], '#');
    EXPECT_EQ(Next(), kSettingsDone);
    EXPECT_STREQ(name.data(), named[2]);
    EXPECT_EQ(Next(), kNoMoreSettings);
  }
  EXPECT_EQ(Next(), kSettingsDone);
  for (const char* each : named) DeleteLdapProfile(each);
  DeleteLdapProfile("");
  EXPECT_EQ(Next(), kNoSuchSetting);
  SetLdapDword(named[0], "port", 389);
  EXPECT_EQ(Next(), kNoMoreSettings);  // behind the one that was told before
  EXPECT_EQ(Next(), kSettingsDone);
}

}  // namespace
}  // namespace quillkit
