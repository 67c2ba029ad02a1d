// What the appliance says of itself, and who is logged in.

#ifndef QUILLCTL_INFO_COMMAND_H_
#define QUILLCTL_INFO_COMMAND_H_

#include <cstdint>
#include <string>

#include "quillctl/session.h"

namespace quillctl {

class Commands;

// The address is in network byte order: its first byte in memory is its first number.
std::string DottedAddress(std::uint32_t address);

void ShowInfo(const Session& session, bool json = false);

// Adds "info".
void AddInfoCommand(Commands& commands);

}  // namespace quillctl

#endif  // QUILLCTL_INFO_COMMAND_H_
