// File search and temporary files.

#include "platform/files.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <vector>

#include "tests/support/scratch_folder.h"
#include "tests/support/temporary_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;

class FilesTest : public testing::Test {
 protected:
  void Create(const std::string& name) const { folder.Write(name, "text\n"); }
  bool Matches(const std::string& name) const {
    return MatchesAnyFile(folder.PathOf(name).c_str());
  }

  ScratchFolder folder;
};

TEST_F(FilesTest, PatternsOfTheLastPart) {
  for (const char* name : {"users.ldif", "export.txt", "aXbXc.csv"}) Create(name);
  const struct {
    const char* pattern;
    bool found;
  } kCases[] = {
      {"users.ldif", true}, {"users.ldi", false}, {"users.ldiff", false}, {"*", true},
      {"*.ldif", true},     {"*.ldiff", false},   {"u*", true},           {"z*", false},
      {"user?.ldif", true}, {"?sers.ldif", true}, {"use??.ldif", true},   {"use?.ldif", false},
      {"*s.ldif", true},    {"u*f", true},        {"*sers*", true},       {"a*X*c.csv", true},
      {"a*b*X*.csv", true}, {"a*c*b.csv", false}, {"**.txt", true},       {"*xport.txt", true},
      {"e*x*t*.t?t", true}, {"", false},          {"*X*X*X*", false},
  };
  for (const auto& each : kCases) EXPECT_EQ(Matches(each.pattern), each.found) << each.pattern;
}

TEST_F(FilesTest, EveryOtherCharacterStandsForItself) {
  const std::vector<std::string> names = {"[a]", "{b,c}", "~d", "$e", "#f", "g!h", "i^j", "a b"};
  for (const std::string& name : names) {
    EXPECT_FALSE(Matches(name)) << name;
    Create(name);
    EXPECT_TRUE(Matches(name)) << name;
    EXPECT_TRUE(Matches(name + "*")) << name;
  }
  for (const char* other : {"a", "b", "c", "[ab]", "{b}", "[a-z]", "[a]?x"}) {
    EXPECT_FALSE(Matches(other)) << other;
  }
}

TEST_F(FilesTest, PatternsStandInTheLastPartAlone) {
  fs::create_directory(folder.PathOf("inner"));
  Create("inner/file");
  EXPECT_TRUE(Matches("inner/file"));
  EXPECT_TRUE(Matches("inner/f*"));
  EXPECT_FALSE(Matches("inn*/file"));
  EXPECT_FALSE(Matches("other/f*"));
  EXPECT_TRUE(Matches("inner"));
  EXPECT_FALSE(Matches("inner/"));
}

TEST_F(FilesTest, PathsWithoutAFolderAreOfTheCurrentOne) {
  Create("here.txt");
  const fs::path before = fs::current_path();
  fs::current_path(folder.Path());
  EXPECT_TRUE(MatchesAnyFile("here.txt"));
  EXPECT_TRUE(MatchesAnyFile("h*.txt"));
  EXPECT_FALSE(MatchesAnyFile("there.txt"));
  EXPECT_FALSE(MatchesAnyFile(nullptr));
  EXPECT_FALSE(MatchesAnyFile(""));
  fs::current_path(before);
}

TEST(TemporaryFileTest, IsEmptyAndNewAndBearsThePrefixAndIsDeletedOnce) {
  const ScratchFolder folder;
  const TemporaryFolder redirected(folder.Path().string());
  for (int i = 0; i < 50; ++i) {
    const fs::path path = CreateTemporaryFile("QK7").path;
    EXPECT_TRUE(fs::equivalent(path.parent_path(), folder.Path())) << path;
  }
  const std::vector<std::string> names = folder.Names();
  EXPECT_EQ(names.size(), 50U);
  for (const std::string& name : names) {
    EXPECT_EQ(name.substr(0, 3), "QK7");
    EXPECT_EQ(fs::file_size(folder.PathOf(name)), 0U) << name;
    DeleteFileAt(folder.PathOf(name));
    DeleteFileAt(folder.PathOf(name));
  }
  EXPECT_TRUE(folder.Names().empty());
}

}  // namespace
}  // namespace quillkit
