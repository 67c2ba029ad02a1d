// The sign of life that keeps the server from dropping the session.

#include "bridge/the_agent.h"

namespace quillkit {
namespace {

// What the timer runs. Its result is discarded, so that a failing sign of life never changes the
// last error.
void SendSignOfLife() {
  auto* wakeup =
      reinterpret_cast<Status (*)()>(FindEntryPoint(TheAgent.ServerLibrary(), "IMSPWakeup"));
  if (wakeup != nullptr) wakeup();
}

}  // namespace

Status CAgent::StartWakeup() {
  if (wakeupPeriod != 0) return kNoError;
  IOCtlRecord request;
  request.code = IOCtlCode::kGetWakeupPeriod;
  const Status status = IMSPIOCtl(&request);
  if (status != kNoError) return status;
  const std::uint32_t period = request.value >> 1;
  const TimerId earlier = wakeupTimer;  // one with a period of 0 passes for none
  wakeupTimer = StartThreadTimer(period, SendSignOfLife);
  wakeupPeriod = period;  // only now: the timer may have been refused its memory
  if (earlier != 0) StopThreadTimer(earlier);
  return lastError;
}

void CAgent::StopWakeup() {
  if (wakeupTimer == 0) return;
  StopThreadTimer(wakeupTimer);
  wakeupTimer = 0;
}

bool CAgent::EnsureWakeup() {
  return wakeupTimer != 0 || StartWakeup() == kNoError;
}

}  // namespace quillkit
