// What the appliance says of itself, and who is logged in.

#ifndef QUILLKIT_EXAMPLES_INFO_COMMAND_H_
#define QUILLKIT_EXAMPLES_INFO_COMMAND_H_

#include <cstdint>
#include <string>

#include "quillctl/session.h"

namespace quillctl {

// The address is in network byte order: its first byte in memory is its first number.
std::string DottedAddress(std::uint32_t address);

void ShowInfo(const Session& session, bool json = false);

}  // namespace quillctl

#endif  // QUILLKIT_EXAMPLES_INFO_COMMAND_H_
