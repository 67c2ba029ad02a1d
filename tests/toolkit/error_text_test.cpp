// What an application sees of errors: the text of a code and the room that it needs.

#include <gtest/gtest.h>

#include <array>
#include <ostream>
#include <string>

#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPlenty = 64;

struct Translation {
  std::int32_t code;
  const char* text;
};

std::ostream& operator<<(std::ostream& out, const Translation& each) {
  return out << "code " << each.code;
}

class ErrorText : public testing::TestWithParam<Translation> {
 protected:
  std::array<char, kPlenty> buffer_ = [] {
    std::array<char, kPlenty> filled{};
    filled.fill('#');
    return filled;
  }();
};

TEST_P(ErrorText, NeedsOneByteMoreThanTheLengthItReports) {
  const std::string text = GetParam().text;
  const auto length = static_cast<std::int32_t>(text.size());

  for (const std::int32_t tooSmall : {length, length - 1, 0, -1}) {
    std::int32_t size = tooSmall;
    EXPECT_EQ(TranslateToolkitError(GetParam().code, buffer_.data(), &size), 0);
    EXPECT_EQ(size, length);
    EXPECT_EQ(buffer_[0], '#');
  }

  std::int32_t size = length + 1;
  EXPECT_EQ(TranslateToolkitError(GetParam().code, buffer_.data(), &size), 1);
  EXPECT_EQ(size, length + 1);
  EXPECT_EQ(buffer_.data(), text);
  EXPECT_EQ(buffer_[text.size() + 1], '#');
}

INSTANTIATE_TEST_SUITE_P(Codes, ErrorText,
                         testing::Values(Translation{0, "No Error"},
                                         Translation{20, "IMSP Unitialized"},
                                         Translation{22, "IMSP Busy"}, Translation{23, ""},
                                         Translation{24, "Address Book Full"},
                                         Translation{25, "Invalid host name"}, Translation{31, ""},
                                         Translation{32, "Unknown Error Code !"},
                                         Translation{-1, "Unknown Error Code !"},
                                         Translation{-2147483647 - 1, "Unknown Error Code !"}));

TEST(ErrorText, WithoutABufferOnlyTheLengthIsWritten) {
  std::int32_t size = 0;
  EXPECT_EQ(TranslateToolkitError(21, nullptr, &size), 0);
  EXPECT_EQ(size, 32);
}

}  // namespace
}  // namespace quillkit
