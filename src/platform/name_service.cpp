// The part of the name service that needs nothing of the system.

#include "platform/name_service.h"

#include <array>
#include <cstdio>
#include <cstring>

namespace quillkit {

void AddressToText(const std::uint32_t* address, char* buffer, std::size_t size) {
  std::array<std::uint8_t, sizeof *address> bytes{};
  std::memcpy(bytes.data(), address, bytes.size());
  std::array<char, sizeof "255.255.255.255"> text{};
  const int length = std::snprintf(text.data(), text.size(), "%u.%u.%u.%u", bytes[0], bytes[1],
                                   bytes[2], bytes[3]);
  const std::size_t whole = static_cast<std::size_t>(length) + 1;
  std::memcpy(buffer, text.data(), size < whole ? size : whole);
}

}  // namespace quillkit
