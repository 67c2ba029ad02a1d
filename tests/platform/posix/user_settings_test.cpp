// The user's settings as a tree of folders: its location, foreign files in it, and that a value is
// never read half written. On Windows the settings are in the registry, which needs no such tests.

#include <sys/ptrace.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <csignal>
#include <filesystem>
#include <fstream>
#include <functional>
#include <thread>

#include "platform/written_file.h"
#include "settings/ldap_settings_store.h"
#include "tests/platform/user_settings_fixture.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;
using testing::AnyOf;
using namespace std::string_literals;

// Further statuses are 3 (path not found), 4 (too many open files) and 31 (general failure).

class SettingsFolderTest : public UserSettingsTest {
 protected:
  SettingsFolderTest() { EXPECT_EQ(WriteText(key, "v", "old"), kSettingsDone); }

  // The folder of the test's own key.
  const fs::path folder = home.Path() / "quillkit/Software/Tarvenor/Ledgerhouse/LDAP" / profile;
  const std::string inner = key + "\\inner";
};

TEST_F(SettingsFolderTest, IsPrivateAndInTheConfigurationFolder) {
  EXPECT_EQ(fs::status(folder).permissions(), fs::perms(0700));
  EXPECT_EQ(fs::status(folder / "=v").permissions(), fs::perms(0600));
  const EnvironmentVariable relative("XDG_CONFIG_HOME", "not/absolute");
  {
    const EnvironmentVariable userHome("HOME", (home.Path() / "new").string());
    EXPECT_EQ(WriteText(key, "v", "x"), kSettingsDone);
    EXPECT_TRUE(fs::exists(home.Path() / "new/.config/quillkit/Software"));
  }
  const EnvironmentVariable none("HOME", "");
  EXPECT_EQ(Read(key, "v"), "status 2");
  EXPECT_EQ(WriteText(key, "v", "x"), kNoSuchSetting);
  EXPECT_EQ(DeleteSettingsKey(key.c_str()), kNoSuchSetting);
}

TEST_F(SettingsFolderTest, ForeignFilesAreNeitherReadNorDeleted) {
  for (const char* each :
       {"%2e", "a%", "a%00b", ".hidden", "=folder", "../.quillkit-deleted/mine"}) {
    fs::create_directories(folder / each);
    EXPECT_TRUE(Subkeys(key).empty()) << each;
    EXPECT_EQ(Read(key, "folder"), "status 2");
    EXPECT_EQ(DeleteSettingsKey(key.c_str()), kSettingsDenied) << each;
    EXPECT_EQ(Read(key, "v"), "old\0"s) << each;
    fs::remove_all(folder / each);
  }
  std::ofstream(folder / "file") << "mine";
  fs::create_directory_symlink(home.Path(), folder / "link");
  for (const char* each : {"file", "link"}) {
    const std::string path = key + '\\' + each;
    EXPECT_EQ(Read(path, "v"), "status 3") << each;
    EXPECT_EQ(WriteText(path, "v", "x"), 3) << each;
    EXPECT_EQ(DeleteSettingsKey(path.c_str()), 3) << each;
  }
  ASSERT_EQ(mkfifo((folder / "=pipe").c_str(), 0600), 0);
  EXPECT_EQ(Read(key, "pipe"), "status 2");
  WriteBytes(folder / "=v", std::string(513, 'x'));
  EXPECT_EQ(GetLdapString(profile.c_str(), "v"), "")
      << "a value longer than 512 characters is not read as text";
}

// --- Other processes ---

// Runs `work`, which returns whether it succeeded, in a process of its own.
template <class Work>
pid_t Start(Work work) {
  const pid_t process = fork();
  if (process == 0) _exit(work() ? 0 : 1);
  return process;
}

// Waits for a process to end. Returns 0 if its work succeeded, or SIGKILL if it was killed.
int EndOf(pid_t process) {
  int status = -1;
  waitpid(process, &status, 0);
  return status;
}

TEST_F(SettingsFolderTest, SystemLimitsAreReportedAndChangeNothing) {
  const std::string longest = key + '\\' + std::string(255, 'k');
  EXPECT_EQ(WriteText(longest, "v", "x"), kSettingsDone);
  EXPECT_EQ(DeleteSettingsKey(longest.c_str()), kSettingsDone);
  EXPECT_EQ(WriteText(longest + 'k', "v", "x"), kSettingNameTooLong);
  const auto writeWithLimit = [this](auto resource, rlim_t limit, SettingsStatus status) {
    signal(SIGXFSZ, SIG_IGN);
    const rlimit reached = {limit, limit};
    return setrlimit(resource, &reached) == 0 && WriteText(key, "v", "new") == status;
  };
  EXPECT_EQ(EndOf(Start([&] { return writeWithLimit(RLIMIT_FSIZE, 1, 31); })), 0);
  EXPECT_EQ(EndOf(Start([&] { return writeWithLimit(RLIMIT_NOFILE, 3, 4); })), 0);
  EXPECT_EQ(Read(key, "v"), "old\0"s);
  EXPECT_EQ(std::distance(fs::directory_iterator(folder), {}), 1)
      << "a failed write must not leave a draft";
}

TEST_F(SettingsFolderTest, WithoutPermissionNothingChanges) {
  ASSERT_EQ(WriteText(inner, "v", "old"), kSettingsDone);
  const fs::path outside = home.Path().parent_path();
  for (fs::path each = folder / "inner"; each != outside; each = each.parent_path()) {
    fs::permissions(each, fs::perms(0777));
  }
  for (const auto& [place, closed] : {std::pair(folder, key), {folder / "inner", inner}}) {
    fs::permissions(place, fs::perms(0555));
    // The administrator may do anything, another user may not.
    const pid_t process = Start([&, closed = closed] {
      return (geteuid() != 0 || seteuid(65534) == 0) &&
             WriteText(closed, "v", "new") == kSettingsDenied &&
             WriteText(closed + "\\new", "v", "new") == kSettingsDenied &&
             DeleteSettingsKey(inner.c_str()) == kSettingsDenied;
    });
    EXPECT_EQ(EndOf(process), 0) << closed;
    fs::permissions(place, fs::perms(0777));
    for (const std::string& each : {key, inner}) EXPECT_EQ(Read(each, "v"), "old\0"s);
  }
}

TEST_F(SettingsFolderTest, ReadsReturnWholeValuesWhileWritersRunAndAreKilled) {
  const std::string texts[] = {std::string(20, 's'), std::string(2000, 'l')};
  for (int round = 0; round < 20; ++round) {
    std::vector<pid_t> writers;
    for (const std::string& each : texts) {
      writers.push_back(Start([&] {
        while (WriteText(key, "v", each.c_str()) == kSettingsDone) {
        }
        return false;
      }));
    }
    for (int reads = 0; reads < 20; ++reads) {
      EXPECT_THAT(Read(key, "v"), AnyOf("old\0"s, texts[0] + '\0', texts[1] + '\0'));
    }
    for (const pid_t each : writers) {
      kill(each, SIGKILL);
      EXPECT_EQ(EndOf(each), SIGKILL) << "a writer ended before it was killed";
    }
  }
  fs::create_directory(folder / ".quillkit-deleted");  // as a killed deletion of a subkey leaves it
  EXPECT_EQ(DeleteSettingsKey(key.c_str()), kSettingsDone)
      << "a deletion also removes what a killed deletion left";
}

// --- Processes that are stopped ---

// Starts `work` in a process of its own that this one traces. It stops before the work.
template <class Work>
pid_t StartStopped(Work work) {
  return Start([&] {
    return ptrace(PTRACE_TRACEME, 0, nullptr, nullptr) == 0 && raise(SIGSTOP) == 0 && work();
  });
}

// Power may be lost at any time: the disk must have the bytes before the file has its name.
TEST_F(SettingsFolderTest, FilesAreSyncedBeforeTheyGetTheirNames) {
  const std::string file = home.PathOf("file");
  const std::function<bool()> kWrites[] = {
      [&] { return WriteText(key, "v", "new") == kSettingsDone; },
      [&] { return WriteFileWhole(file, "new"); }};
  for (const auto& write : kWrites) {
    const pid_t process = StartStopped(write);
    std::string calls;
    int status = 0;
    waitpid(process, &status, WUNTRACED);
    if (!WIFSTOPPED(status)) GTEST_SKIP() << "processes cannot be traced";
    ptrace(PTRACE_SETOPTIONS, process, nullptr, PTRACE_O_TRACESYSGOOD);  // to get the call
    for (; WIFSTOPPED(status); waitpid(process, &status, 0)) {
      __ptrace_syscall_info call = {};
      EXPECT_GT(ptrace(PTRACE_GET_SYSCALL_INFO, process, sizeof call, &call), 0);
      const bool isEntry = call.op == PTRACE_SYSCALL_INFO_ENTRY;
      if (isEntry && call.entry.nr == SYS_fsync) calls += "sync ";
      if (isEntry && call.entry.nr == SYS_renameat) calls += "rename ";
      ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
    }
    EXPECT_EQ(status, 0);
    EXPECT_EQ(calls, "sync rename ");
  }
}

// A change of a key is stopped after each of its system calls. It is then killed, or continued
// after the next change has begun. Each value must be complete, the key must exist with all of its
// values or not at all, and the next change must remove what a killed one left.
TEST_F(SettingsFolderTest, ChangesOfStoppedProcessesAreAtomicAndIndependent) {
  struct Change {
    std::string path;
    const char* text;  // of the value "v"; null to delete the key
  };
  const Change write = {inner, "new"};
  const Change remove = {inner, nullptr};
  const auto make = [](const Change& change) {
    return kSettingsDone == (change.text != nullptr ? WriteText(change.path, "v", change.text)
                                                    : DeleteSettingsKey(change.path.c_str()));
  };
  const struct {
    bool isThere, isKilled;
    Change change, next;
  } kCases[] = {{true, false, write, write}, {true, false, remove, {inner + "\\key", "new"}},
                {true, true, write, write},  {true, true, write, remove},
                {false, true, write, write}, {true, true, remove, write},
                {true, true, remove, remove}};
  for (const char* value : {"v", "w"}) WriteText(key + "\\prepared", value, "old");
  for (const auto& each : kCases) {
    const std::string before = each.isThere ? "old\0"s : "status 2";
    for (int calls = 0;; ++calls) {
      SCOPED_TRACE(testing::Message()
                   << (each.isThere ? "value " : "new value ") << each.change.text
                   << (each.isKilled ? " killed after " : " stopped after ") << calls
                   << " system calls, then value " << each.next.text);  // null: a deletion
      fs::remove_all(folder / "inner");
      if (each.isThere) fs::copy(folder / "prepared", folder / "inner");
      const pid_t process = StartStopped([&] { return make(each.change); });
      int status = 0;
      waitpid(process, &status, WUNTRACED);
      for (int stop = 0; stop < 2 * calls && WIFSTOPPED(status); ++stop) {  // two a call
        ptrace(PTRACE_SYSCALL, process, nullptr, nullptr);
        waitpid(process, &status, 0);
      }
      if (!WIFSTOPPED(status) && calls == 0) GTEST_SKIP() << "processes cannot be traced";
      if (!WIFSTOPPED(status)) break;
      if (each.isKilled) kill(process, SIGKILL), EndOf(process);
      const bool isDeletion = each.change.text == nullptr;
      EXPECT_THAT(Read(inner, "v") + Read(inner, "w"),
                  AnyOf(before + before, isDeletion ? "status 2status 2" : "new\0"s + before));
      const pid_t other = Start([&] { return make(each.next); });
      if (!each.isKilled) {
        std::this_thread::sleep_for(std::chrono::milliseconds(10));  // the other may wait for it
        ptrace(PTRACE_DETACH, process, nullptr, nullptr);
        EXPECT_TRUE(EndOf(process) == 0 || isDeletion);
      }
      EXPECT_TRUE(EndOf(other) == 0 || each.next.text == nullptr);
      EXPECT_EQ(Read(each.next.path, "v"), each.next.text != nullptr ? "new\0"s : "status 2");
      for (const auto& left : fs::recursive_directory_iterator(folder)) {
        EXPECT_NE(left.path().filename().string().front(), '.') << left;
      }
    }
  }
}

}  // namespace
}  // namespace quillkit
