// Text fields at their limits, and fields that somebody else filled.

#include "base/fixed_text.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace quillkit {
namespace {

template <class Field>
class FixedTextTest : public testing::Test {
 protected:
  static constexpr std::size_t kMax = Field::kMaxLength;

  // A field whose every byte is 'x': there is no NUL in it.
  static Field Filled() {
    Field field;
    std::memset(static_cast<void*>(&field), 'x', sizeof field);
    return field;
  }
};

using Fields = testing::Types<FixedText<11>, FixedText<32>, FixedText<256>>;
TYPED_TEST_SUITE(FixedTextTest, Fields);

TYPED_TEST(FixedTextTest, TakesWhatFitsAndRefusesOneMore) {
  TypeParam field;
  EXPECT_TRUE(field.IsEmpty());
  const std::string longest(TestFixture::kMax, 'a');
  EXPECT_EQ(field.Set(longest), 1);
  EXPECT_EQ(field.c_str(), longest);
  EXPECT_EQ(field.Set(longest + 'b'), 0);
  EXPECT_EQ(field.View(), longest);
  EXPECT_EQ(field.Set(""), 1);
  EXPECT_TRUE(field.IsEmpty());
}

TYPED_TEST(FixedTextTest, CutsWhereAnyLengthIsTaken) {
  const std::string tooLong(TestFixture::kMax + 100, 'a');
  EXPECT_EQ(TypeParam(tooLong).View(), tooLong.substr(0, TestFixture::kMax));
}

TYPED_TEST(FixedTextTest, LeavesTheBytesBehindTheNul) {
  TypeParam field(std::string(TestFixture::kMax, 'a'));
  field.Set("bcd");
  EXPECT_EQ(field.View(), "bcd");
  EXPECT_EQ(field.c_str()[4], 'a');
}

TYPED_TEST(FixedTextTest, AFieldWithoutANulEndsWithTheField) {
  TypeParam field = TestFixture::Filled();
  EXPECT_FALSE(field.IsTerminated());
  EXPECT_EQ(field.View(), std::string(sizeof(TypeParam), 'x'));
  EXPECT_TRUE(field == field);
  EXPECT_EQ(TypeParam().Set(field.View()), 0);
  field.Terminate();
  EXPECT_EQ(field.c_str(), std::string(TestFixture::kMax, 'x'));
}

TYPED_TEST(FixedTextTest, TakesAPartOfItself) {
  TypeParam field("abcdefgh");
  field.Assign(field.View().substr(3));
  EXPECT_EQ(field.View(), "defgh");
}

}  // namespace
}  // namespace quillkit
