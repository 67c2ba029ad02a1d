// Text fields at their limits, and fields that somebody else filled.

#include "base/fixed_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace quillkit {
namespace {

using Field = FixedText<11>;

const std::string kLongest(10, 'a');

TEST(FixedText, TakesWhatFitsAndRefusesOneMore) {
  Field field;
  EXPECT_EQ(field.Set(kLongest), 1);
  EXPECT_EQ(field.Set(kLongest + 'b'), 0);
  EXPECT_EQ(field.c_str(), kLongest);
  EXPECT_EQ(Field(kLongest + 'b').View(), kLongest) << "cut where any length is taken";
  EXPECT_EQ(field.Set(""), 1);
  EXPECT_TRUE(field.IsEmpty());
  EXPECT_EQ(field.c_str()[1], 'a') << "the bytes behind the NUL stay";
}

TEST(FixedText, AFieldWithoutANulEndsWithTheField) {
  Field field;
  std::memset(static_cast<void*>(&field), 'x', sizeof field);
  EXPECT_FALSE(field.IsTerminated());
  EXPECT_EQ(field.View(), std::string(11, 'x'));
  EXPECT_EQ(Field().Set(field.View()), 0);
  field.Terminate();
  EXPECT_EQ(field.c_str(), std::string(10, 'x'));
}

TEST(FixedText, TakesAPartOfItself) {
  Field field("abcdefgh");
  field.Assign(field.View().substr(3));
  EXPECT_EQ(field.View(), "defgh");
}

}  // namespace
}  // namespace quillkit
