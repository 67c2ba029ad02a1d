// What a server says of itself, well formed and not.

#include "bridge/identity.h"

#include <gtest/gtest.h>

#include <string>

namespace quillkit {
namespace {

struct Case {
  std::string text;
  std::string model;
  std::string version;
  std::string third;
};

class ParseIdentityTest : public testing::TestWithParam<Case> {};

TEST_P(ParseIdentityTest, FillsWhatIsThere) {
  const Case& expected = GetParam();
  const Identity identity = ParseIdentity(expected.text);
  EXPECT_EQ(identity.model.View(), expected.model);
  EXPECT_EQ(identity.version.View(), expected.version);
  EXPECT_EQ(identity.third.View(), expected.third);
}

const std::string kLong(300, 'x');
const std::string kCut(63, 'x');

INSTANTIATE_TEST_SUITE_P(
    Texts, ParseIdentityTest,
    testing::Values(
        // Blanks before a dash belong to the field, those behind it to nothing.
        Case{"Box 40 - 3.1 - K7", "Box 40 ", "3.1 ", "K7"}, Case{"Box-3.1-K7", "Box", "3.1", "K7"},
        Case{"Box -\t\n 3.1  -  K7 more", "Box ", "3.1  ", "K7"},
        Case{" Box - 3.1 - K7-8", " Box ", "3.1 ", "K7-8"},
        // What is missing takes the rest with it.
        Case{"", "", "", ""}, Case{"-3.1-K7", "", "", ""}, Case{"Box", "Box", "", ""},
        Case{"Box -", "Box ", "", ""}, Case{"Box -- K7", "Box ", "", ""},
        Case{"Box - - K7", "Box ", "", ""}, Case{"Box - 3.1", "Box ", "3.1", ""},
        Case{"Box - 3.1 - ", "Box ", "3.1 ", ""}, Case{"   ", "   ", "", ""},
        // No field grows over its end.
        Case{kLong, kCut, "", ""}, Case{kLong + "-" + kLong + "-" + kLong, kCut, kCut, kCut}));

}  // namespace
}  // namespace quillkit
