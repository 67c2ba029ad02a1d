// The protocol of the simulator: the records and statuses of the toolkit.

#ifndef QUILLKIT_SIMULATOR_PROTOCOL_H_
#define QUILLKIT_SIMULATOR_PROTOCOL_H_

#include <string_view>

#include "bridge/records.h"

namespace quillbox {

// The names of the protocol are those of the toolkit.
using namespace quillkit;

// Returns the text of an argument. Null is the empty text.
inline std::string_view TextOf(const char* text) {
  return text != nullptr ? std::string_view(text) : std::string_view();
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_PROTOCOL_H_
