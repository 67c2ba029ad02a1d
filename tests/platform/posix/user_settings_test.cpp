// The store of the user's settings as a tree of folders: where it stands, what else may stand in
// it, and that no value is ever seen half. On Windows all this is the registry's business, which
// can neither be looked into nor be made to crash.

#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "tests/platform/posix/stopped_process.h"
#include "tests/platform/user_settings_fixture.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using namespace std::string_literals;

class SettingsFolderTest : public UserSettingsTest {
 protected:
  static std::vector<std::string> NamesIn(const fs::path& folder) {
    std::vector<std::string> names;
    for (const auto& each : fs::directory_iterator(folder)) names.push_back(each.path().filename());
    return names;
  }

  // Runs `work` in a process of its own.
  template <class Work>
  static pid_t Start(Work work) {
    const pid_t child = fork();
    if (child == 0) {
      work();
      _exit(0);
    }
    return child;
  }

  // The folder of the test's own key.
  const fs::path folder = home.Folder() / "quillkit/Software/Quillkit tests" /
                          testing::UnitTest::GetInstance()->current_test_info()->name();
};

TEST_F(SettingsFolderTest, NamesLeadNowhereElse) {
  for (const char* each : {"\\..\\..\\..\\..\\up", "\\../../../../up", "\\/tmp/up", "\\.\\up"}) {
    Make(root + each);
    WriteText(root, each, "x");
  }
  EXPECT_THAT(NamesIn(home.Folder()), ElementsAre("quillkit"));
  EXPECT_THAT(NamesIn(home.Folder() / "quillkit"), ElementsAre("Software"));
  EXPECT_FALSE(fs::exists("/tmp/up"));
}

TEST_F(SettingsFolderTest, EverythingIsTheUsersAlone) {
  ASSERT_EQ(WriteText(root, "v", "x"), kSettingsDone);
  EXPECT_EQ(fs::status(folder).permissions(), fs::perms::owner_all);
  EXPECT_EQ(fs::status(folder / "=v").permissions(),
            fs::perms::owner_read | fs::perms::owner_write);
  EXPECT_THAT(NamesIn(folder), ElementsAre("=v"));
}

TEST_F(SettingsFolderTest, HomeStandsInForTheConfigurationFolder) {
  const EnvironmentVariable relative("XDG_CONFIG_HOME", "not/absolute");
  {
    const EnvironmentVariable userHome("HOME", (home.Folder() / "new").string());
    EXPECT_EQ(WriteText(root, "v", "x"), kSettingsDone);
    EXPECT_TRUE(fs::exists(home.Folder() / "new/.config/quillkit/Software"));
  }
  const EnvironmentVariable none("HOME", "");
  EXPECT_EQ(Open(root), kNoSuchSetting);
  EXPECT_EQ(WriteText(root, "v", "x"), kNoSuchSetting);
  EXPECT_EQ(DeleteSettingsKey(root.c_str()), kNoSuchSetting);
}

TEST_F(SettingsFolderTest, WhatOthersPutThereIsNotTouched) {
  ASSERT_EQ(WriteText(root, "v", "x"), kSettingsDone);
  std::ofstream(folder / "notes.txt") << "mine";
  for (const char* each : {"%2e", "a%", "=folder", ".hidden"}) fs::create_directory(folder / each);
  fs::create_directory(folder / "a%00b");
  fs::create_directory(home.Folder() / "elsewhere");
  std::ofstream(home.Folder() / "elsewhere/=v") << "theirs";
  fs::create_directory_symlink(home.Folder() / "elsewhere", folder / "link");
  ASSERT_EQ(mkfifo((folder / "=pipe").c_str(), 0600), 0);
  EXPECT_THAT(Subkeys(root), ElementsAre());
  EXPECT_EQ(Read(root, "pipe"), "status 2");
  EXPECT_EQ(Read(root, "folder"), "status 2");
  EXPECT_EQ(DeleteSettingsKey(root.c_str()), kSettingsDenied);
  EXPECT_EQ(Read(root, "v"), "x\0"s);
  EXPECT_NE(DeleteSettingsKey((root + "\\link").c_str()), kSettingsDone);
  EXPECT_TRUE(fs::exists(home.Folder() / "elsewhere/=v"));

  const std::string inner = Make(root + "\\inner");
  ASSERT_EQ(WriteText(inner, "v", "kept"), kSettingsDone);
  fs::create_directory(folder / "inner/=folder");
  EXPECT_EQ(DeleteSettingsKey(inner.c_str()), kSettingsDenied);
  EXPECT_EQ(Read(inner, "v"), "kept\0"s) << "all of it or nothing";
  fs::remove(folder / "inner/=folder");
  EXPECT_EQ(DeleteSettingsKey(inner.c_str()), kSettingsDone);
  EXPECT_FALSE(fs::exists(folder / "inner"));
}

TEST_F(SettingsFolderTest, EveryNameThatCanBeStoredCanBeDeleted) {
  for (const std::size_t length : {1U, 200U, 240U, 254U, 255U}) {
    const std::string key = root + '\\' + std::string(length, 'k');
    ASSERT_EQ(WriteText(key, "v", "x"), kSettingsDone);
    EXPECT_EQ(DeleteSettingsKey(key.c_str()), kSettingsDone) << length;
    EXPECT_THAT(NamesIn(folder), ElementsAre());
  }
}

TEST_F(SettingsFolderTest, WithoutPermissionNothingChanges) {
  ASSERT_EQ(WriteText(root, "v", "x"), kSettingsDone);
  const std::string inner = root + "\\inner";
  const std::string closed = Make(root + "\\closed");
  ASSERT_EQ(WriteText(closed, "v", "x"), kSettingsDone);
  const auto permit = [&](fs::perms allowed) {
    for (fs::path each = folder; each != home.Folder().parent_path(); each = each.parent_path()) {
      fs::permissions(each, allowed);
    }
  };
  // The administrator may do anything, so somebody else does it.
  const bool isAdministrator = geteuid() == 0;
  permit(fs::perms(0777));
  fs::permissions(folder / "closed", fs::perms(0555));
  ASSERT_EQ(isAdministrator ? seteuid(65534) : 0, 0);
  EXPECT_EQ(DeleteSettingsKey(closed.c_str()), kSettingsDenied) << "its values would stay";
  ASSERT_EQ(isAdministrator ? seteuid(0) : 0, 0);
  EXPECT_EQ(Read(closed, "v"), "x\0"s);
  fs::permissions(folder / "closed", fs::perms::owner_all);
  permit(fs::perms(0555));
  ASSERT_EQ(isAdministrator ? seteuid(65534) : 0, 0);
  EXPECT_EQ(WriteText(root, "v", "y"), kSettingsDenied);
  EXPECT_EQ(SettingsKey(inner.c_str(), SettingsAccess::kWrite).OpenStatus(), kSettingsDenied);
  EXPECT_EQ(DeleteSettingsKey(root.c_str()), kSettingsDenied);
  ASSERT_EQ(isAdministrator ? seteuid(0) : 0, 0);
  EXPECT_EQ(Read(root, "v"), "x\0"s);
  permit(fs::perms::owner_all);
}

TEST_F(SettingsFolderTest, FileInTheWayIsAFailure) {
  std::ofstream(folder / "key") << "no folder";
  const std::string key = root + "\\key";
  EXPECT_NE(Open(key), kSettingsDone);
  EXPECT_NE(SettingsKey(key.c_str(), SettingsAccess::kWrite).OpenStatus(), kSettingsDone);
  EXPECT_NE(DeleteSettingsKey(key.c_str()), kSettingsDone);
  EXPECT_TRUE(fs::exists(folder / "key"));
}

TEST_F(SettingsFolderTest, WhereTheDiskIsFullTheOldValueStays) {
  ASSERT_EQ(WriteText(root, "v", "x"), kSettingsDone);
  rlimit unlimited{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &unlimited), 0);
  rlimit full = unlimited;
  full.rlim_cur = 1;  // a file of more than that is refused as by a full disk
  const auto ending = signal(SIGXFSZ, SIG_IGN);
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &full), 0);
  const SettingsStatus written = WriteText(root, "v", "y");
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &unlimited), 0);
  signal(SIGXFSZ, ending);
  EXPECT_NE(written, kSettingsDone);
  EXPECT_EQ(Read(root, "v"), "x\0"s);
  EXPECT_THAT(NamesIn(folder), ElementsAre("=v")) << "nothing is left of the new one";
}

// --- Other processes ---

const std::string kShort(20, 's');
const std::string kLong(2000, 'l');

TEST_F(SettingsFolderTest, NeitherWritersNorTheirCrashesTearAValue) {
  ASSERT_EQ(WriteText(root, "v", kShort.c_str()), kSettingsDone);
  for (int round = 0; round < 20; ++round) {
    std::vector<pid_t> writers;
    for (const std::string* each : {&kShort, &kLong}) {
      writers.push_back(Start([&] {
        while (WriteText(root, "v", each->c_str()) == kSettingsDone) {
        }
      }));
    }
    for (int reads = 0; reads < 20; ++reads) {
      EXPECT_THAT(Read(root, "v"), testing::AnyOf(kShort + '\0', kLong + '\0'));
    }
    for (const pid_t each : writers) {
      int status = 0;
      kill(each, SIGKILL);
      waitpid(each, &status, 0);
      EXPECT_TRUE(WIFSIGNALED(status)) << "a writer was refused";
    }
    EXPECT_THAT(Read(root, "v"), testing::AnyOf(kShort + '\0', kLong + '\0'));
  }
  EXPECT_THAT(Subkeys(root), ElementsAre());
  EXPECT_EQ(WriteText(root, "v", "after"), kSettingsDone);
  EXPECT_EQ(DeleteSettingsKey(root.c_str()), kSettingsDone);  // with what the crashes left
}

// --- Processes that are stopped ---

using StoppedSettingsTest = SettingsFolderTest;

constexpr const char* kNotTraced = "processes cannot be traced";

// A writer does not lose its draft to another, and both values come to be.
TEST_F(StoppedSettingsTest, WritersLeaveEachOthersDrafts) {
  const auto write = [this] { return WriteText(root, "v", "x") == kSettingsDone; };
  const int stops = StopAtEveryCall(write, [&](pid_t writer) {
    EXPECT_EQ(WriteText(root, "w", "y"), kSettingsDone);
    EXPECT_TRUE(LetGoOn(writer));
    EXPECT_EQ(Read(root, "v"), "x\0"s);
  });
  if (stops == 0) GTEST_SKIP() << kNotTraced;
  EXPECT_THAT(NamesIn(folder), testing::UnorderedElementsAre("=v", "=w"));
}

// A key is not deleted with a key in it that another process creates meanwhile.
TEST_F(StoppedSettingsTest, DeletionSparesAKeyThatGetsSubkeys) {
  const std::string key = root + "\\key";
  const std::string inner = key + "\\inner";
  ASSERT_EQ(WriteText(key, "v", "x"), kSettingsDone);
  const auto remove = [&] { return DeleteSettingsKey(key.c_str()) == kSettingsDone; };
  const int stops = StopAtEveryCall(remove, [&](pid_t deleter) {
    const pid_t creator =
        Start([&] { _exit(WriteText(inner, "v", "x") == kSettingsDone ? 0 : 1); });
    std::this_thread::sleep_for(std::chrono::milliseconds(10));  // it may wait for the deleter
    LetGoOn(deleter);
    EXPECT_TRUE(ResultOf(creator));
    EXPECT_EQ(Read(inner, "v"), "x\0"s);
    EXPECT_EQ(DeleteSettingsKey(inner.c_str()), kSettingsDone);
    EXPECT_EQ(WriteText(key, "v", "x"), kSettingsDone);
  });
  if (stops == 0) GTEST_SKIP() << kNotTraced;
  EXPECT_THAT(NamesIn(folder), ElementsAre());
}

// Whenever a change of a key is killed, each value is whole, and the key is there with all of its
// values or not at all. The next change of the key, of either kind, removes what the kill has left.
TEST_F(StoppedSettingsTest, KillsLeaveNothingForGood) {
  const std::string key = root + "\\key";
  const struct {
    bool isThere;
    std::function<bool()> change;
  } kCases[] = {
      {true, [&] { return WriteText(key, "v", "new") == kSettingsDone; }},
      {false, [&] { return WriteText(key, "v", "new") == kSettingsDone; }},
      {true, [&] { return DeleteSettingsKey(key.c_str()) == kSettingsDone; }},
  };
  for (const auto& each : kCases) {
    const auto prepare = [&] {
      if (!each.isThere) return DeleteSettingsKey(key.c_str());
      return std::max(WriteText(key, "v", "old"), WriteText(key, "w", "other"));
    };
    bool isDeletedNext = false;
    const auto killAndCheck = [&](pid_t process) {
      Kill(process);
      if (Open(key) == kSettingsDone) {
        EXPECT_THAT(Read(key, "v"),
                    testing::AnyOf("new\0"s, each.isThere ? "old\0"s : "status 2"s));
        EXPECT_EQ(Read(key, "w"), each.isThere ? "other\0"s : "status 2"s);
      }
      isDeletedNext = !isDeletedNext;
      isDeletedNext ? DeleteSettingsKey(key.c_str()) : WriteText(key, "v", "next");
      for (const auto& left : fs::recursive_directory_iterator(folder)) {
        EXPECT_NE(left.path().filename().string().front(), '.') << left;
      }
      prepare();
    };
    prepare();
    if (StopAtEveryCall(each.change, killAndCheck) == 0) GTEST_SKIP() << kNotTraced;
  }
  DeleteSettingsKey(key.c_str());
}

}  // namespace
}  // namespace quillkit
