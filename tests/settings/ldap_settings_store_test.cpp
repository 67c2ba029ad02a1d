// The user's settings, in the part that is the same on every system: the settings of directory
// servers, and their keys and values.

#include "settings/ldap_settings_store.h"

#include <cstring>

#include "platform/message_box.h"
#include "tests/platform/user_settings_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using namespace std::string_literals;

constexpr int kBoxResult = 5;
constexpr const char* kMessage = "Cannot access the Windows Registry.";

class LdapSettingsTest : public UserSettingsTest {
 protected:
  LdapSettingsTest() { shown.clear(); }
  ~LdapSettingsTest() override { SetMessageBoxHandler(earlier); }

  // The next profile, read into a buffer of `size` bytes; or "status " and the status.
  static std::string Next(std::size_t size = 255) {
    std::string name(size + 1, '#');
    auto length = static_cast<std::uint32_t>(size);
    const SettingsStatus status = EnumLdapProfiles(name.data(), &length);
    EXPECT_EQ(name.back(), '#') << "a byte after the end of the buffer was written";
    if (status != kSettingsDone) return "status " + std::to_string(status);
    EXPECT_EQ(std::strlen(name.data()), length);
    return name.substr(0, length);
  }

  const char* const name = profile.c_str();
  static inline std::vector<std::string> shown;

 private:
  const MessageBoxHandler earlier = SetMessageBoxHandler([](const char* text) {
    shown.emplace_back(text);
    return kBoxResult;
  });
};

TEST_F(LdapSettingsTest, ValueIsReadableAsATextAndAsANumber) {
  EXPECT_EQ(GetLdapDword(name, "v", 7), 0U) << "without a key the number is 0";
  EXPECT_EQ(SetLdapString(name, "other", "x"), 1);
  EXPECT_EQ(GetLdapDword(name, "v", 7), 7U) << "without a value the default is returned";
  const std::string longest(512, '\xE9');
  const struct {
    std::string written, text;
    std::uint32_t number;
  } kTexts[] = {{"abcd", "abcd", 7},
                {longest, longest, 7},
                {"", "", 0},
                {longest + '\xE9', "", 7},
                {"abc", "abc", 0x636261}};
  for (const auto& each : kTexts) {
    EXPECT_EQ(SetLdapString(name, "v", each.written.c_str()), 1);
    EXPECT_EQ(Read(key, "v"), each.written.empty() ? "" : each.written + '\0');
    EXPECT_EQ(GetLdapString(name, "v"), each.text);
    EXPECT_EQ(GetLdapDword(name, "v", 7), each.number) << each.written;
  }
  EXPECT_EQ(Read(key, "v", 3), "status 234");
  EXPECT_EQ(Read(key, "v", 4), "abc\0"s);
  SetLdapDword(name, "v", 0x44434241);
  EXPECT_EQ(Read(key, "v"), "ABCD");
  EXPECT_EQ(GetLdapString(name, "v"), "ABCD");
  EXPECT_EQ(SetLdapString(name, "v", nullptr), 1);
  EXPECT_EQ(Read(key, "v"), "");
}

// Names of keys and values that have a special meaning elsewhere are ordinary names here.
TEST_F(LdapSettingsTest, NamesMayHaveAnyBytes) {
  const std::vector<std::string> names = {" ",     "%",      "%2E",     "%zz",  "..", "../../up",
                                          ".",     ".new-1", "/",       "/etc", "=x", "a\tb",
                                          "a.b=c", "c:",     "caf\xE9", "*?",   "~"};
  for (const std::string& each : names) {
    EXPECT_EQ(SetLdapString((profile + '\\' + each).c_str(), each.c_str(), each.c_str()), 1);
    EXPECT_EQ(Read(key + '\\' + each, each.c_str()), each + '\0');
    EXPECT_EQ(SetLdapString(name, each.c_str(), "beside the key"), 1) << each;
  }
  EXPECT_THAT(Subkeys(key), testing::UnorderedElementsAreArray(names));
  for (const char* each : {"", "a\\b"}) {
    EXPECT_EQ(SetLdapString(name, each, "a value"), 1);
    EXPECT_EQ(Read(key, each), "a value\0"s) << each;
  }
}

TEST_F(LdapSettingsTest, RejectsNamesThatAreTooLongAndShowsAMessage) {
  // The longest path for texts has 260 characters, including the 37 of the store.
  const std::string longest = profile + '\\' + std::string(222 - profile.size(), 'x');
  EXPECT_EQ(SetLdapString(longest.c_str(), "host", "x"), 1);
  const std::string tooLong = longest + 'x';
  EXPECT_EQ(SetLdapString(tooLong.c_str(), "host", "x"), 0);
  EXPECT_THAT(shown, ElementsAre(kMessage));
  EXPECT_EQ(GetLdapDword(tooLong.c_str(), "host", 7), 0U) << "the key must not be created";
  // For numbers the store has no limit; where the system has one, its refusal shows the message.
  SetLdapDword(tooLong.c_str(), "port", 389);
  EXPECT_EQ(GetLdapDword(tooLong.c_str(), "port", 7), shown.size() == 1 ? 389U : 0U);

  shown.clear();
  SetLdapDword((profile + '\\' + std::string(300, 'x')).c_str(), "port", 389);
  EXPECT_THAT(shown, ElementsAre(kMessage));
  shown.clear();
  const std::string value(300, 'v');  // a name that POSIX refuses
  SetLdapDword(name, value.c_str(), 389);
  EXPECT_EQ(GetLdapDword(name, value.c_str(), 7), shown.empty() ? 389U : 7U);
}

TEST_F(LdapSettingsTest, WritingCreatesParentKeysAndAKeyWithSubkeysIsNotDeleted) {
  SetLdapDword(name, "port", 389);
  EXPECT_EQ(Read(key + "\\a\\b", "port"), "status 2");
  SetLdapDword((profile + "\\a\\b").c_str(), "port", 0x434241);
  EXPECT_EQ(Read(key + "\\\\a\\\\\\b\\", "port"), "ABC\0"s)
      << "repeated and final backslashes are ignored";
  for (const char* each : {name, "", static_cast<const char*>(nullptr)}) {
    EXPECT_EQ(DeleteLdapProfile(each), 0);
  }
  EXPECT_EQ(GetLdapDword(name, "port", 7), 389U);
  for (const char* each : {"\\a\\b", "\\a", ""}) {
    EXPECT_EQ(DeleteLdapProfile((profile + each).c_str()), 1) << each;
  }
  EXPECT_EQ(DeleteLdapProfile(name), 0) << "the profile is already deleted";
  EXPECT_THAT(shown, ElementsAre(kMessage, kMessage, kMessage, kMessage));
  EXPECT_EQ(ReportRegistryError(5, kSettingsFailedText, "label: "), kBoxResult);
}

TEST_F(LdapSettingsTest, EnumerationContinuesWhereTheLatestCallEnded) {
  EXPECT_EQ(Next(), "status 2") << "there is no profile yet";
  const std::string second = profile + "2";
  const std::string third = profile + "3";
  for (const std::string& each : {second, profile, third}) SetLdapDword(each.c_str(), "port", 389);
  for (int round = 0; round < 2; ++round) {
    EXPECT_EQ(Next(profile.size() + 1), profile);
    EXPECT_EQ(Next(second.size()), "status 234");
    EXPECT_EQ(Next(), third) << "a name that does not fit is skipped";
    EXPECT_EQ(Next(), "status 259");
  }
  EXPECT_EQ(Next(), profile);
  for (const std::string& each : {second, profile, third, ""s}) DeleteLdapProfile(each.c_str());
  EXPECT_EQ(Next(), "status 2");
  SetLdapDword(name, "port", 389);
  EXPECT_EQ(Next(), "status 259") << "the only profile was already returned";
  EXPECT_EQ(Next(), profile);
  EXPECT_EQ(Next(), "status 259");
}

}  // namespace
}  // namespace quillkit
