// What the DLL's file carries beside code.

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "platform/message_box.h"
#include "tests/platform/system.h"

namespace quillkit {
namespace {

// The DLL's file, looked into without being run.
class ResourcesTest : public testing::Test {
 protected:
  ResourcesTest()
      : dll(LoadLibraryExA((ProgramFolder() + "\\" + kLibraryFile).c_str(), nullptr,
                           LOAD_LIBRARY_AS_DATAFILE)) {}
  ~ResourcesTest() override { FreeLibrary(dll); }

  HMODULE dll;
};

TEST_F(ResourcesTest, TextsAreInTheStringTable) {
  for (const unsigned id :
       {kSocketsFailedText, kServerLibraryMissingText, kSettingsKeyText, kSettingsFailedText}) {
    std::array<char, 256> text{};
    EXPECT_GT(LoadStringA(dll, id, text.data(), static_cast<int>(text.size())), 0) << id;
    EXPECT_EQ(text.data(), LoadResourceText(id));
  }
}

TEST_F(ResourcesTest, VersionIsThere) {
  const HRSRC place = FindResourceA(dll, MAKEINTRESOURCEA(VS_VERSION_INFO), RT_VERSION);
  ASSERT_NE(place, nullptr);
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(dll, place)));
  const std::string record(bytes, SizeofResource(dll, place));
  const std::u16string name = u"Quillkit.dll";
  const std::string wanted(reinterpret_cast<const char*>(name.data()), 2 * name.size());
  EXPECT_NE(record.find(wanted), std::string::npos);
  const std::string signature("\xBD\x04\xEF\xFE", 4);
  EXPECT_NE(record.find(signature), std::string::npos);
}

}  // namespace
}  // namespace quillkit
