// The store of the user's settings, in what holds on every system.

#include "tests/platform/user_settings_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using namespace std::string_literals;

TEST_F(UserSettingsTest, KeyIsMadeWithThoseOnItsPath) {
  const std::string deep = root + "\\a\\b";
  EXPECT_EQ(Open(deep), kNoSuchSetting);
  Make(root + "\\a");
  Make(deep);
  EXPECT_EQ(Open(deep), kSettingsDone);
  ASSERT_EQ(WriteText(deep, "v", "text"), kSettingsDone);
  EXPECT_EQ(Read(root + "\\\\a\\\\\\b\\", "v"), "text\0"s);  // backslashes that count for nothing
}

TEST_F(UserSettingsTest, ValuesAreReplaced) {
  SettingsKey key(root.c_str(), SettingsAccess::kWrite);
  EXPECT_EQ(Read(root, "v"), "status 2");
  EXPECT_EQ(key.WriteNumber("v", 0x04030201), kSettingsDone);
  EXPECT_EQ(Read(root, "v"), "\1\2\3\4");
  EXPECT_EQ(key.WriteText("v", ""), kSettingsDone);
  EXPECT_EQ(Read(root, "v"), "");
  const std::string large(3000, 'x');
  EXPECT_EQ(key.WriteText("v", large.c_str()), kSettingsDone);
  EXPECT_EQ(Read(root, "v"), large + '\0');
}

TEST_F(UserSettingsTest, SmallBufferTakesNothing) {
  ASSERT_EQ(WriteText(root, "v", "abcd"), kSettingsDone);
  const SettingsKey key(root.c_str(), SettingsAccess::kRead);
  std::array<char, 6> bytes = {'#', '#', '#', '#', '#', '#'};
  std::uint32_t size = 4;
  EXPECT_EQ(key.Read("v", bytes.data(), &size), kMoreSettingData);
  EXPECT_EQ(size, 5U);
  EXPECT_EQ(bytes[4], '#');
  EXPECT_EQ(key.Read("v", bytes.data(), &size), kSettingsDone);
  EXPECT_EQ(std::string(bytes.data(), bytes.size()), "abcd\0#"s);
}

// Names that mean something elsewhere are names like any other here, of keys and of values.
TEST_F(UserSettingsTest, AnyNameWillDo) {
  std::vector<std::string> names = {" ",     "%",      "%2E",     "%zz",  "..", "../../up",
                                    ".",     ".new-1", "/",       "/etc", "=x", "a\tb",
                                    "a.b=c", "c:",     "caf\xE9", "*?",   "~"};
  for (const std::string& each : names) {
    SCOPED_TRACE(each);
    const std::string path = Make(root + "\\" + each);
    EXPECT_EQ(WriteText(path, each.c_str(), each.c_str()), kSettingsDone);
    EXPECT_EQ(Read(path, each.c_str()), each + '\0');
    EXPECT_EQ(WriteText(root, each.c_str(), "beside the key"), kSettingsDone);
  }
  EXPECT_THAT(Subkeys(root), testing::UnorderedElementsAreArray(names));
  EXPECT_EQ(WriteText(root, "", "unnamed"), kSettingsDone);
  EXPECT_EQ(WriteText(root, "a\\b", "no key"), kSettingsDone);
  EXPECT_EQ(Read(root, ""), "unnamed\0"s);
  EXPECT_EQ(Read(root, "a\\b"), "no key\0"s);
}

TEST_F(UserSettingsTest, NameThatIsTooLongIsRefused) {
  const std::string longest(200, 'k');  // the registry may take 260 characters for a whole path
  EXPECT_EQ(WriteText(Make(root + "\\" + longest), "v", "x"), kSettingsDone);
  EXPECT_THAT(Subkeys(root), ElementsAre(longest));
  const std::string path = root + "\\" + std::string(300, 'k');
  EXPECT_NE(SettingsKey(path.c_str(), SettingsAccess::kWrite).OpenStatus(), kSettingsDone);
  EXPECT_NE(Open(path), kSettingsDone);
  EXPECT_NE(DeleteSettingsKey(path.c_str()), kSettingsDone);
}

}  // namespace
}  // namespace quillkit
