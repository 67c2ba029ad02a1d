#include "simulator/call.h"

#include <algorithm>

namespace quillbox {
namespace {

// Waits for the latency and the delay of a fault, at most for the time-out. Returns whether the
// call was in time.
bool WaitForAnswer(Appliance& appliance, std::string_view entryPoint, std::uint32_t delay) {
  const ApplianceSettings& settings = appliance.settings;
  const auto found = settings.latencies.find(entryPoint);
  const std::uint64_t latency =
      std::uint64_t{delay} + (found != settings.latencies.end() ? found->second : settings.latency);
  const bool isInTime = latency <= appliance.timeout;
  appliance.clock.Wait(isInTime ? static_cast<std::uint32_t>(latency) : appliance.timeout);
  return isInTime;
}

// Whether a call is for the appliance. Quillkit starts and ends the server library in any process
// that loads it.
bool IsForAppliance(std::string_view entryPoint) {
  return entryPoint != "IMSPInit" && entryPoint != "IMSPTerminate";
}

// Returns the status of a call that does not run.
std::optional<Status> Refusal(Appliance& appliance, const ServedCall& entry,
                              const FaultEffect& effect) {
  if (effect.isSessionLost) appliance.session.Close();
  if (effect.status && effect.delay == 0) return effect.status;
  if (!WaitForAnswer(appliance, entry.name, effect.delay)) return kTimeoutExpired;
  if (effect.status) return effect.status;
  if (entry.need == Precondition::kNothing) return std::nullopt;
  if (!appliance.isInitialised) return kNotInitialised;
  if (entry.need == Precondition::kSession) {
    if (!appliance.HasSession()) return kNotLoggedIn;
    appliance.session.KeepAlive(appliance.clock);
  }
  return appliance.BeginChange();
}

}  // namespace

CallStart StartCall(Appliance& appliance, const ServedCall& entry, CallFacts facts) {
  // A library whose start fails only reports that the server library is missing.
  if (appliance.isMisconfigured && entry.need != Precondition::kNothing) {
    return {kServerFailure, false, {}};
  }
  appliance.clock.Advance(appliance.settings.clockStep);
  facts.entryPoint = entry.name;
  if (facts.account.empty() && appliance.HasSession()) facts.account = appliance.session.User();
  facts.time = static_cast<std::uint64_t>(appliance.clock.Elapsed().count());
  const Fault* const fault = appliance.faults.CountCall(facts);
  const FaultEffect effect = fault != nullptr ? fault->effect : FaultEffect();
  CallStart start;
  if (fault != nullptr) {
    start.fault = fault->text;
    appliance.report.AddFault(fault->text);
  }
  if (fault != nullptr || IsForAppliance(entry.name)) appliance.report.SetUsed();
  appliance.defects.SetForCall(effect.defects);
  start.refusal = Refusal(appliance, entry, effect);
  start.isReplyLost = effect.isReplyLost && !start.refusal;
  return start;
}

void EndCall(Appliance& appliance, std::string text, Status status, const CallStart& start) {
  appliance.defects.SetForCall(0);
  appliance.report.SetSession(!appliance.session.Account().empty());
  if (appliance.journalFile.IsOpen()) {
    appliance.journalFile.Add({appliance.clock.Timestamp(), text, status, start.fault});
  }
  if (appliance.journal.IsRecording()) appliance.journal.Add(std::move(text), status);
}

}  // namespace quillbox
