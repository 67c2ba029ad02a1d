// Host names and addresses. An address is an IPv4 address in network byte order, as inet_addr
// returns it.

#ifndef QUILLKIT_PLATFORM_NAME_SERVICE_H_
#define QUILLKIT_PLATFORM_NAME_SERVICE_H_

#include <cstdint>

namespace quillkit {

// Returned by TextToAddress for a text that is not a dotted address, and for 255.255.255.255.
inline constexpr std::uint32_t kNoAddress = 0xFFFFFFFF;

// Starts the socket layer. Returns false on failure.
bool StartSockets();

// Call once for each successful StartSockets.
void StopSockets();

// Converts a dotted address, without a name look-up. Null yields kNoAddress.
std::uint32_t TextToAddress(const char* text);

// Looks up a host name. If it is found, stores its first address and returns true.
bool FindHostByName(const char* name, std::uint32_t* address);

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_NAME_SERVICE_H_
