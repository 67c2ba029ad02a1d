// The session keep-alive: without it the server drops the session.

#include <utility>

#include "bridge/keep_alive.h"
#include "bridge/the_agent.h"

namespace quillkit {
namespace {

constinit KeepAliveSender keepAliveSender = nullptr;

// Discards the status, so that a failed keep-alive does not change the last error.
void SendKeepAlive() {
  auto* wakeup =
      reinterpret_cast<Status (*)()>(FindEntryPoint(TheAgent.ServerLibrary(), "IMSPWakeup"));
  if (wakeup != nullptr) wakeup();
}

// The routine of the timer.
void OnWakeupTimer() {
  if (keepAliveSender != nullptr) {
    keepAliveSender(SendKeepAlive);
  } else {
    SendKeepAlive();
  }
}

}  // namespace

KeepAliveSender SetKeepAliveSender(KeepAliveSender sender) {
  return std::exchange(keepAliveSender, sender);
}

Status CAgent::StartWakeup() {
  if (wakeupPeriod != 0) return kNoError;
  IOCtlRecord request;
  request.code = IOCtlCode::kGetWakeupPeriod;
  const Status status = IMSPIOCtl(&request);
  if (status != kNoError) return status;
  const std::uint32_t period = request.value >> 1;
  const TimerId earlier = wakeupTimer;  // if it is not 0, its period was 0
  wakeupTimer = StartThreadTimer(period, OnWakeupTimer);
  wakeupPeriod = period;  // only now: the allocation of the timer may fail
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
