// What a server says of itself, well formed and not.

#include "bridge/identity.h"

#include <gtest/gtest.h>

#include <string>

namespace quillkit {
namespace {

TEST(ParseIdentity, FillsWhatIsThere) {
  const std::string kLong(300, 'x');
  const std::string kCut(63, 'x');
  const struct {
    std::string text;
    std::string model;
    std::string version;
    std::string third;
  } cases[] = {
      // Blanks before a dash belong to the field, those behind it to nothing.
      {"Box -\t\n 3.1  -  K7 more", "Box ", "3.1  ", "K7"},
      {" Box-3.1-K7-8", " Box", "3.1", "K7-8"},
      // What is missing takes the rest with it.
      {"", "", "", ""},
      {"-3.1-K7", "", "", ""},
      {"Box -- K7", "Box ", "", ""},
      {"Box - 3.1", "Box ", "3.1", ""},
      {"Box - 3.1 - ", "Box ", "3.1 ", ""},
      // No field grows over its end.
      {kLong + "-" + kLong + "-" + kLong, kCut, kCut, kCut},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.text);
    const Identity identity = ParseIdentity(each.text);
    EXPECT_EQ(identity.model.View(), each.model);
    EXPECT_EQ(identity.version.View(), each.version);
    EXPECT_EQ(identity.third.View(), each.third);
  }
}

}  // namespace
}  // namespace quillkit
