// Host names and addresses. An address is 32 bits of IPv4 in network byte order, as inet_addr gives
// it.

#ifndef QUILLKIT_PLATFORM_NAME_SERVICE_H_
#define QUILLKIT_PLATFORM_NAME_SERVICE_H_

#include <cstddef>
#include <cstdint>

namespace quillkit {

// What TextToAddress gives for a text that is no dotted address, and for 255.255.255.255.
inline constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;

// Starts the socket layer. False when it cannot be had.
bool StartSockets();

// Releases what StartSockets took.
void StopSockets();

// Reads a dotted address; no name service is asked.
std::uint32_t TextToAddress(const char* text);

// Writes the address in dotted form into `buffer`, cut at `size` bytes, its NUL included where it
// fits.
void AddressToText(const std::uint32_t* address, char* buffer, std::size_t size);

// Asks the name service. True, and the first address, when the host is found.
bool FindHostByName(const char* name, std::uint32_t* address);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_NAME_SERVICE_H_
