// The protocol of the simulator: the records and statuses of the toolkit.

#ifndef QUILLKIT_SIMULATOR_PROTOCOL_H_
#define QUILLKIT_SIMULATOR_PROTOCOL_H_

#include "bridge/records.h"

namespace quillbox {

using namespace quillkit;

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_PROTOCOL_H_
