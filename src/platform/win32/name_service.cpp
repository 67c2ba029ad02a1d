#include "platform/name_service.h"

#include <winsock2.h>

#include <cstring>

namespace quillkit {
namespace {

int timesStarted = 0;

}  // namespace

bool StartSockets() {
  WSADATA details{};
  if (WSAStartup(MAKEWORD(2, 2), &details) != 0) return false;
  ++timesStarted;
  return true;
}

void StopSockets() {
  if (timesStarted == 0) return;
  --timesStarted;
  WSACleanup();
}

std::uint32_t TextToAddress(const char* text) {
  return text != nullptr ? inet_addr(text) : kNoAddress;
}

bool FindHostByName(const char* name, std::uint32_t* address) {
  if (name == nullptr || *name == '\0') return false;
  const hostent* found = gethostbyname(name);
  if (found == nullptr || found->h_addrtype != AF_INET || found->h_addr_list[0] == nullptr) {
    return false;
  }
  std::memcpy(address, found->h_addr_list[0], sizeof *address);
  return true;
}

}  // namespace quillkit
