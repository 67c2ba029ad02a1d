// Addresses. No name is looked up that would need a name server.

#include "platform/name_service.h"

#include <gtest/gtest.h>

#include <array>
#include <bit>

namespace quillkit {
namespace {

TEST(NameServiceTest, ReadsDottedAddresses) {
  using Bytes = std::array<std::uint8_t, 4>;
  EXPECT_EQ(std::bit_cast<Bytes>(TextToAddress("10.20.30.255")), (Bytes{10, 20, 30, 255}));
  EXPECT_EQ(TextToAddress("0.0.0.0"), 0U);
  for (const char* text : {"256.1.1.1", "1.2.3.4.5", "quillbox", "1.2.3.x", "localhost"}) {
    EXPECT_EQ(TextToAddress(text), kNoAddress) << text;
  }
  EXPECT_EQ(TextToAddress(nullptr), kNoAddress);
}

}  // namespace
}  // namespace quillkit
