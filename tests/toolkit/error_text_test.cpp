// The text of an error code, and the size of the buffer that it needs.

#include <gtest/gtest.h>

#include <map>
#include <string>

#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

TEST(ErrorText, NeedsOneByteMoreThanTheLengthItReports) {
  const std::map<std::int32_t, std::string> texts = {{0, "No Error"},
                                                     {2, "Invalid User or Password"},
                                                     {20, "IMSP Unitialized"},
                                                     {23, ""},
                                                     {24, "Address Book Full"},
                                                     {25, "Invalid host name"},
                                                     {31, ""},
                                                     {32, "Unknown Error Code !"},
                                                     {-1, "Unknown Error Code !"},
                                                     {INT32_MIN, "Unknown Error Code !"}};
  for (const auto& [code, text] : texts) {
    SCOPED_TRACE(text);
    const auto length = static_cast<std::int32_t>(text.size());
    std::string buffer(64, '#');
    for (const std::int32_t tooSmall : {length, length - 1, 0, -1}) {
      std::int32_t size = tooSmall;
      EXPECT_EQ(TranslateToolkitError(code, nullptr, &size), 0);
      EXPECT_EQ(size, length);
    }
    std::int32_t size = length + 1;
    EXPECT_EQ(TranslateToolkitError(code, buffer.data(), &size), 1);
    EXPECT_EQ(size, length + 1);
    EXPECT_EQ(buffer, text + '\0' + std::string(63 - text.size(), '#'));
  }
}

}  // namespace
}  // namespace quillkit
