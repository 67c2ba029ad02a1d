// Temporary files, in what is POSIX's own.

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>

#include "platform/files.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/temporary_folder.h"

namespace quillkit {
namespace {

TEST(PosixTemporaryFileTest, EmptyVariableIsSkipped) {
  const ScratchFolder folder;
  const TemporaryFolder redirected(folder.Path().string());
  ASSERT_EQ(setenv("TMPDIR", "", 1), 0);
  const std::filesystem::path path = CreateTemporaryFile("QK7");
  EXPECT_EQ(path.parent_path(), folder.Path());
}

}  // namespace
}  // namespace quillkit
