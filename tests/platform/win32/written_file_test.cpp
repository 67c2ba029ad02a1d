// The drafts of files that are written whole, while another process has them open.

#include "platform/written_file.h"

#include <gtest/gtest.h>

#include "platform/open_file.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

TEST(WrittenFileTest, LeavesTheDraftOfALivingWriter) {
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

}  // namespace
}  // namespace quillkit
