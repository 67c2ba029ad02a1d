// Host names and addresses. No name is asked for that a name server would have to be reached for.

#include "platform/name_service.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>

namespace quillkit {
namespace {

// The number whose bytes in memory are these.
std::uint32_t Address(std::uint8_t a, std::uint8_t b, std::uint8_t c, std::uint8_t d) {
  return std::bit_cast<std::uint32_t>(std::array{a, b, c, d});
}

TEST(NameServiceTest, ReadsDottedAddresses) {
  EXPECT_EQ(TextToAddress("127.0.0.1"), Address(127, 0, 0, 1));
  EXPECT_EQ(TextToAddress("10.20.30.255"), Address(10, 20, 30, 255));
  EXPECT_EQ(TextToAddress("0.0.0.0"), 0U);
  for (const char* text : {"256.1.1.1", "1.2.3.4.5", "quillbox", "1.2.3.x", "localhost"}) {
    EXPECT_EQ(TextToAddress(text), kNoAddress) << text;
  }
  EXPECT_EQ(TextToAddress(nullptr), kNoAddress);
}

}  // namespace
}  // namespace quillkit
