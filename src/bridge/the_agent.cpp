#include "bridge/the_agent.h"

namespace quillkit {

// 101 is the first priority that a program may use. Objects without one are constructed later.
[[gnu::init_priority(101)]] CAgent TheAgent;

}  // namespace quillkit
