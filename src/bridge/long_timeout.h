// The long time-out of server calls as the books raise it: in milliseconds, by IMSPIOCtl itself.
//
// Raising and restoring are two steps whose order and whose failures are the caller's: where an
// operation ends between them, the server stays at the long time-out.

#ifndef QUILLKIT_BRIDGE_LONG_TIMEOUT_H_
#define QUILLKIT_BRIDGE_LONG_TIMEOUT_H_

#include <cstdint>

#include "bridge/agent.h"

namespace quillkit {

class LongTimeout {
 public:
  // A null agent makes both steps give -1.
  explicit LongTimeout(CAgent* newAgent) : agent(newAgent) {}

  // IMSPIOCtl 2, and on 0 IMSPIOCtl 1 with an hour. The first status that is not 0, else 0.
  Status Raise();

  // IMSPIOCtl 1 with what Raise read. REQUIRES: Raise gave 0.
  Status Restore();

 private:
  Status Set(std::uint32_t milliseconds);

  CAgent* agent;
  std::uint32_t old = 0;  // milliseconds
};

// Does `work` under the long time-out as CAgent::SetServerTimeout sets it, and puts the old one
// back, whatever any of it returns. Where the old one could not be read, the long one was not set:
// the restoring call then keeps the time-out that it reads. The status of the work.
template <class Work>
Status RunLongAndRestore(CAgent* agent, Work work) {
  constexpr std::uint32_t kNotRead = UINT32_MAX;  // no time-out has as many seconds
  std::uint32_t old = kNotRead;
  agent->SetServerTimeout(kLongTimeout, &old);
  const Status status = work();
  std::uint32_t raised = 0;
  if (old != kNotRead) {
    agent->SetServerTimeout(old, &raised);
  } else {
    agent->KeepServerTimeout();
  }
  return status;
}

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_LONG_TIMEOUT_H_
