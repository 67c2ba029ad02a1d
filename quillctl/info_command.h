// `quillctl info`: the appliance's identity and the account that is logged in.

#ifndef QUILLCTL_INFO_COMMAND_H_
#define QUILLCTL_INFO_COMMAND_H_

#include <cstdint>
#include <string>

#include "quillctl/session.h"

namespace quillctl {

// Returns the dotted text of an IPv4 address in network byte order.
std::string DottedAddress(std::uint32_t address);

struct InfoArguments {
  bool json = false;
};

void ShowInfo(const Session& session, const InfoArguments& a);

}  // namespace quillctl

#endif  // QUILLCTL_INFO_COMMAND_H_
