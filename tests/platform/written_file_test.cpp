// Files that are written whole, in what holds on every system.

#include "platform/written_file.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

TEST(WrittenFileTest, RemovesAbandonedDraftsAndNothingElse) {
  const ScratchFolder folder;
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
