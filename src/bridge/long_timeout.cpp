#include "bridge/long_timeout.h"

namespace quillkit {

Status LongTimeout::Raise() {
  if (agent == nullptr) return kRefused;
  if (unit == Unit::kSeconds) return agent->SetServerTimeout(kLongTimeout, &old);
  IOCtlRecord request;
  request.code = IOCtlCode::kGetTimeout;
  const Status status = agent->IMSPIOCtl(&request);
  if (status != kNoError) return status;
  old = request.value;
  return SetMilliseconds(kLongTimeout * kMillisecondsPerSecond);
}

Status LongTimeout::Restore() {
  if (agent == nullptr) return kRefused;
  if (unit == Unit::kMilliseconds) return SetMilliseconds(old);
  if (old == kNotRead) return agent->KeepServerTimeout();
  std::uint32_t raised = 0;
  return agent->SetServerTimeout(old, &raised);
}

Status LongTimeout::SetMilliseconds(std::uint32_t value) {
  IOCtlRecord request;
  request.code = IOCtlCode::kSetTimeout;
  request.value = value;
  return agent->IMSPIOCtl(&request);
}

}  // namespace quillkit
