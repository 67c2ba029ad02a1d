// The agent that the library uses.

#ifndef QUILLKIT_BRIDGE_THE_AGENT_H_
#define QUILLKIT_BRIDGE_THE_AGENT_H_

#include "bridge/agent.h"

namespace quillkit {

// The agent is constructed before, and destroyed after, every other static object of the program or
// shared library that contains it.
extern CAgent TheAgent;

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_THE_AGENT_H_
