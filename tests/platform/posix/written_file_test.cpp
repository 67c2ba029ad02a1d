// Files that are written whole: their rights, the locks of their drafts, and kills.

#include "platform/written_file.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/file.h>

#include "platform/posix/descriptor.h"
#include "tests/platform/posix/stopped_process.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;

class PosixWrittenFileTest : public testing::Test {
 protected:
  const ScratchFolder folder;
  const std::string path = folder.Write("file", "old");
};

TEST_F(PosixWrittenFileTest, KeepsTheRights) {
  for (const auto rights : {fs::perms(0600), fs::perms(0444), fs::perms(0642)}) {
    fs::permissions(path, rights);
    EXPECT_TRUE(WriteFileWhole(path, "new"));
    EXPECT_EQ(fs::status(path).permissions(), rights);
  }
}

TEST_F(PosixWrittenFileTest, NameMayHaveAnyLength) {
  const std::string longest(255, 'n');
  EXPECT_TRUE(WriteFileWhole(folder.PathOf(longest), "new"));
  EXPECT_THAT(folder.Names(), ElementsAre("file", longest));
}

TEST_F(PosixWrittenFileTest, LeavesTheDraftOfALivingWriter) {
  const std::string draft = folder.Write(".quillkit-new-1", "half");
  {
    const Descriptor writer(open(draft.c_str(), O_RDWR | O_CLOEXEC));
    ASSERT_EQ(flock(writer.Number(), LOCK_EX), 0);
    EXPECT_TRUE(WriteFileWhole(path, "new"));
    EXPECT_THAT(folder.Names(), ElementsAre(".quillkit-new-1", "file"));
  }
  EXPECT_TRUE(WriteFileWhole(path, "newer"));
  EXPECT_THAT(folder.Names(), ElementsAre("file"));
}

using StoppedWriterTest = PosixWrittenFileTest;

TEST_F(StoppedWriterTest, KillsLeaveNothingForGood) {
  const auto write = [this] { return WriteFileWhole(path, "new"); };
  const int kills = StopAtEveryCall(write, [this](pid_t process) {
    Kill(process);
    EXPECT_THAT(ReadBytes(path), testing::AnyOf("old", "new"));
    EXPECT_TRUE(WriteFileWhole(path, "old"));
    EXPECT_THAT(folder.Names(), ElementsAre("file"));
  });
  if (kills == 0) GTEST_SKIP() << "processes cannot be traced";
}

}  // namespace
}  // namespace quillkit
