// Host names and addresses. No name is asked for that a name server would have to be reached for.

#include "platform/name_service.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>
#include <string>

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

TEST(NameServiceTest, WritesDottedAddressesCutAtTheBuffer) {
  const std::uint32_t longest = Address(255, 250, 249, 100);
  const std::string whole("255.250.249.100\0", 16);
  for (std::size_t size = 0; size <= whole.size() + 2; ++size) {
    std::string buffer(whole.size() + 2, '#');
    AddressToText(&longest, buffer.data(), size);
    std::string expected = whole.substr(0, size);
    expected.resize(buffer.size(), '#');
    EXPECT_EQ(buffer, expected) << size;
  }
  const std::uint32_t shortest = Address(1, 2, 3, 4);
  std::array<char, 16> buffer{};
  AddressToText(&shortest, buffer.data(), buffer.size());
  EXPECT_STREQ(buffer.data(), "1.2.3.4");
}

}  // namespace
}  // namespace quillkit
