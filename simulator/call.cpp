#include "simulator/call.h"

#include <algorithm>
#include <chrono>
#include <thread>

namespace quillbox {
namespace {

// Waits for the latency, at most for the time-out. Returns whether the call was in time.
bool WaitForAnswer(const Appliance& appliance) {
  const std::uint32_t latency = appliance.settings.latency;
  if (latency == 0) return true;
  std::this_thread::sleep_for(std::chrono::milliseconds(std::min(latency, appliance.timeout)));
  return latency <= appliance.timeout;
}

}  // namespace

std::optional<Status> CheckCall(Appliance& appliance, const ServedCall& entry) {
  // A library whose start fails only reports that the server library is missing.
  if (appliance.isMisconfigured && entry.need != Precondition::kNothing) return kServerFailure;
  if (const auto fault = appliance.faults.CountCall(entry.name)) return fault;
  if (!WaitForAnswer(appliance)) return kTimeoutExpired;
  if (entry.need == Precondition::kNothing) return std::nullopt;
  if (!appliance.isInitialised) return kNotInitialised;
  if (entry.need == Precondition::kSession) {
    if (!appliance.HasSession()) return kNotLoggedIn;
    appliance.session.KeepAlive(appliance.clock);
  }
  return appliance.BeginChange();
}

void RecordCall(Appliance& appliance, std::string text, Status status) {
  if (appliance.journalFile.IsOpen()) appliance.journalFile.Add(text, status);
  if (appliance.journal.IsRecording()) appliance.journal.Add(std::move(text), status);
}

}  // namespace quillbox
