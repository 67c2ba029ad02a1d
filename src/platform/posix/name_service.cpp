#include "platform/name_service.h"

#include <arpa/inet.h>
#include <netdb.h>
#include <netinet/in.h>
#include <sys/socket.h>

#include <cstring>

namespace quillkit {

bool StartSockets() {
  return true;
}

void StopSockets() {}

std::uint32_t TextToAddress(const char* text) {
  return text != nullptr ? inet_addr(text) : kNoAddress;
}

bool FindHostByName(const char* name, std::uint32_t* address) {
  if (name == nullptr || *name == '\0') return false;
  addrinfo wanted{};
  wanted.ai_family = AF_INET;
  wanted.ai_socktype = SOCK_STREAM;
  addrinfo* found = nullptr;
  if (getaddrinfo(name, nullptr, &wanted, &found) != 0) return false;
  sockaddr_in first{};
  std::memcpy(&first, found->ai_addr, sizeof first);
  freeaddrinfo(found);
  *address = first.sin_addr.s_addr;
  return true;
}

}  // namespace quillkit
