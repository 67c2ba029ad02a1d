#include "bridge/long_timeout.h"

#include "bridge/agent.h"

namespace quillkit {

Status LongTimeout::Raise() {
  if (agent == nullptr) return kRefused;
  IOCtlRecord request;
  request.code = IOCtlCode::kGetTimeout;
  const Status status = agent->IMSPIOCtl(&request);
  if (status != kNoError) return status;
  old = request.value;
  return Set(kLongTimeout * kMillisecondsPerSecond);
}

Status LongTimeout::Restore() {
  return Set(old);
}

Status LongTimeout::Set(std::uint32_t milliseconds) {
  if (agent == nullptr) return kRefused;
  IOCtlRecord request;
  request.code = IOCtlCode::kSetTimeout;
  request.value = milliseconds;
  return agent->IMSPIOCtl(&request);
}

}  // namespace quillkit
