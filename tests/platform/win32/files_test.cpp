// The Windows part of files: drafts that another process has open, and the resources of the DLL.

#include "platform/files.h"

#include <gtest/gtest.h>
#include <windows.h>

#include <array>
#include <string>

#include "platform/message_box.h"
#include "platform/open_file.h"
#include "platform/written_file.h"
#include "tests/platform/process.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

TEST(Win32FilesTest, WriteFileWholeKeepsTheDraftOfARunningWriter) {
  const ScratchFolder folder;
  const std::string draft = folder.PathOf(".quillkit-new-1");
  OpenFile writer = OpenFile::ToWrite(draft.c_str());
  EXPECT_TRUE(WriteFileWhole(folder.PathOf("file"), "new"));
  EXPECT_TRUE(std::filesystem::exists(draft));
  writer.Close();
  EXPECT_TRUE(WriteFileWhole(folder.PathOf("file"), "newer"));
  EXPECT_FALSE(std::filesystem::exists(draft));
  EXPECT_EQ(ReadBytes(folder.PathOf("file")), "newer");
}

TEST(Win32FilesTest, ConvertsPathsFromUtf8ToTheCodePage) {
  if (GetACP() != 1252) GTEST_SKIP() << "another code page";
  EXPECT_EQ(SystemPath("caf\xC3\xA9.csv"), "caf\xE9.csv");
  EXPECT_EQ(SystemPath("\xD0\x96.csv"), "");  // no such file, so no short path either
  EXPECT_EQ(SystemPath("\xFF"), "");
}

TEST(Win32FilesTest, LibraryContainsItsMessageTextsAndItsVersion) {
  const HMODULE dll = LoadLibraryExA(kLibraryFile, nullptr, LOAD_LIBRARY_AS_DATAFILE);
  for (const unsigned id :
       {kSocketsFailedText, kServerLibraryMissingText, kSettingsKeyText, kSettingsFailedText}) {
    std::array<char, 256> text{};
    EXPECT_GT(LoadStringA(dll, id, text.data(), static_cast<int>(text.size())), 0) << id;
    EXPECT_EQ(text.data(), LoadResourceText(id));
  }
  const HRSRC place = FindResourceA(dll, MAKEINTRESOURCEA(VS_VERSION_INFO), RT_VERSION);
  ASSERT_NE(place, nullptr);
  const auto* bytes = static_cast<const char*>(LockResource(LoadResource(dll, place)));
  const std::string record(bytes, SizeofResource(dll, place));
  const std::string fileName("Q\0u\0i\0l\0l\0k\0i\0t\0.\0d\0l\0l\0", 24);  // in UTF-16
  EXPECT_NE(record.find(fileName), std::string::npos);
  EXPECT_NE(record.find("\xBD\x04\xEF\xFE"), std::string::npos);
  FreeLibrary(dll);
}

}  // namespace
}  // namespace quillkit
