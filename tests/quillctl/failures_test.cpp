#include "quillctl/failures.h"

#include <gtest/gtest.h>

namespace quillctl {
namespace {

TEST(CodeAndText, HasTheTextOfTheLibraryOrItsOwnForLocalCodes) {
  EXPECT_EQ(CodeAndText(21), "code 21, More Data Available than request");  // the longest
  EXPECT_EQ(CodeAndText(23), "code 23, no description");
  EXPECT_EQ(CodeAndText(-2), "code -2, cannot read the file");
  EXPECT_EQ(CodeAndText(-7), "code -7, no description");
}

}  // namespace
}  // namespace quillctl
