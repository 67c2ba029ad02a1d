// File search, temporary files, and files that are written whole.

#include "platform/files.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "platform/written_file.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
 protected:
  const ScratchFolder folder;
};

TEST_F(FilesTest, OnlyStarAndQuestionMarkArePatternsAndOnlyInTheLastPart) {
  fs::create_directory(folder.PathOf("inner"));
  for (const char* name : {"users.ldif", "export.txt", "aXbXc.csv", "inner/file", "[a]", "{b,c}",
                           "~d", "$e", "#f", "g!h", "i^j", "a b"}) {
    folder.Write(name, "text");
  }
  const std::pair<const char*, bool> kCases[] = {
      {"users.ldif", true}, {"users.ldi", false}, {"users.ldiff", false}, {"*", true},
      {"*.ldif", true},     {"*.ldiff", false},   {"u*", true},           {"z*", false},
      {"user?.ldif", true}, {"?sers.ldif", true}, {"use??.ldif", true},   {"use?.ldif", false},
      {"*s.ldif", true},    {"u*f", true},        {"*sers*", true},       {"a*X*c.csv", true},
      {"a*b*X*.csv", true}, {"a*c*b.csv", false}, {"**.txt", true},       {"*xport.txt", true},
      {"e*x*t*.t?t", true}, {"", false},          {"*X*X*X*", false},     {"inner/file", true},
      {"inner/f*", true},   {"inn*/file", false}, {"other/f*", false},    {"inner", true},
      {"inner/", false},    {"[a]", true},        {"[a]*", true},         {"{b,c}*", true},
      {"~d*", true},        {"$e*", true},        {"#f*", true},          {"g!h*", true},
      {"i^j*", true},       {"a b*", true},       {"a", false},           {"b", false},
      {"[ab]", false},      {"{b}", false},       {"[a-z]", false},       {"[a]?x", false},
  };
  for (const auto& [pattern, isFound] : kCases) {
    EXPECT_EQ(MatchesAnyFile(folder.PathOf(pattern).c_str()), isFound) << pattern;
  }
}

TEST_F(FilesTest, PathWithoutAFolderMeansTheCurrentOne) {
  folder.Write("here.txt", "text");
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path());
  for (const char* each : {"here.txt", "h*.txt"}) EXPECT_TRUE(MatchesAnyFile(each)) << each;
  for (const char* each : {"there.txt", "t*.txt", ""}) EXPECT_FALSE(MatchesAnyFile(each)) << each;
  EXPECT_FALSE(MatchesAnyFile(nullptr));
  fs::current_path(before);
}

TEST_F(FilesTest, TemporaryFileIsEmptyAndNewAndHasThePrefixAndCanBeDeleted) {
  const TemporaryFolder redirected(folder.Path().string());
  for (int i = 0; i < 50; ++i) {
    const fs::path path = CreateTemporaryFile("QK7").path;
    EXPECT_TRUE(fs::equivalent(path.parent_path(), folder.Path())) << path;
  }
  EXPECT_EQ(folder.Names().size(), 50U);
  for (const std::string& name : folder.Names()) {
    EXPECT_EQ(name.substr(0, 3), "QK7");
    EXPECT_EQ(fs::file_size(folder.PathOf(name)), 0U) << name;
    for (int time = 0; time < 2; ++time) DeleteFileAt(folder.PathOf(name));
  }
  EXPECT_TRUE(folder.Names().empty());
}

TEST_F(FilesTest, WriteFileWholeRemovesOnlyAbandonedDrafts) {
  const std::vector<std::string> kept = {
      ".quillkit-new-",   ".quillkit-new-0", ".quillkit-new-01",
      ".quillkit-new-1x", "state",           "state.quillkit-new-1"};
  for (const std::string& each : kept) folder.Write(each, "mine");
  for (const char* each : {".quillkit-new-1", ".quillkit-new-20"}) folder.Write(each, "half");
  EXPECT_TRUE(WriteFileWhole(folder.PathOf("state"), "new"));
  EXPECT_THAT(folder.Names(), testing::ElementsAreArray(kept));
  for (const std::string& each : kept) {
    EXPECT_EQ(ReadBytes(folder.PathOf(each)), each == "state" ? "new" : "mine") << each;
  }
}

}  // namespace
}  // namespace quillkit
