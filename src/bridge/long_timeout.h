// The long time-out of server calls: an hour, for an operation that takes long.
//
// The operations differ in three ways, all visible to the server and to the caller:
//   - how the time-out is set: in seconds by CAgent::SetServerTimeout, or in milliseconds by
//     IMSPIOCtl itself;
//   - whether a failed raise prevents the work;
//   - whether the old time-out is restored after work that failed.

#ifndef QUILLKIT_BRIDGE_LONG_TIMEOUT_H_
#define QUILLKIT_BRIDGE_LONG_TIMEOUT_H_

#include <cstdint>

#include "bridge/agent.h"

namespace quillkit {

class LongTimeout {
 public:
  // Server calls to raise the time-out: IMSPIOCtl 2 and 1. To restore it: IMSPIOCtl 1 in
  // milliseconds; IMSPIOCtl 2 and 1 in seconds, where the old value is rounded down.
  enum class Unit { kSeconds, kMilliseconds };

  struct Results {
    Status work;
    Status restored;
  };

  // With a null agent, raise and restore fail with -1 and make no server call.
  LongTimeout(CAgent* newAgent, Unit newUnit) : agent(newAgent), unit(newUnit) {}

  // Raises the time-out, runs `work`, restores the time-out. Stops at the first status that is not
  // 0 and returns it: if the work fails, the server keeps the long time-out.
  template <class Work>
  Status RunUntilFailure(Work work) {
    Status status = Raise();
    if (status == kNoError) status = work();
    return status == kNoError ? Restore() : status;
  }

  // Raises the time-out and, if that succeeds, runs `work` and restores the time-out, even if the
  // work fails. Returns both statuses; that of a failed raise, twice.
  template <class Work>
  Results RunAndRestore(Work work) {
    const Status raised = Raise();
    if (raised != kNoError) return {raised, raised};
    const Status status = work();
    return {status, Restore()};
  }

  // Raises the time-out, runs `work` and restores the time-out, even if one of them fails. If the
  // old time-out could not be read, the long one is not set, and the restore reads the present
  // time-out and sets it again. Returns the status of the work.
  // REQUIRES: the agent is not null, the unit is seconds.
  template <class Work>
  Status RunAlways(Work work) {
    Raise();
    const Status status = work();
    Restore();
    return status;
  }

 private:
  static constexpr std::uint32_t kNotRead = UINT32_MAX;  // no time-out has as many seconds

  Status Raise();
  Status Restore();
  Status SetMilliseconds(std::uint32_t value);

  CAgent* agent;
  Unit unit;
  std::uint32_t old = kNotRead;  // in `unit`
};

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_LONG_TIMEOUT_H_
