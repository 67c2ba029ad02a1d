#include "simulator/appliance.h"

#include <utility>

#include "simulator/warning.h"

namespace quillbox {

void Appliance::Reset() {
  Appliance fresh;
  fresh.isInitialised = isInitialised;
  fresh.stateFile = std::move(stateFile);
  fresh.journalFile = std::move(journalFile);
  fresh.report = std::move(report);
  fresh.isLenient = isLenient;
  fresh.isMisconfigured = isMisconfigured;
  *this = std::move(fresh);
}

std::optional<Status> Appliance::BeginChange() {
  const std::string fault = stateFile.Begin(contents);
  if (fault.empty()) return std::nullopt;
  Warn(kStateVariable, fault);
  return isLenient ? std::nullopt : std::optional(kServerFailure);
}

Status Appliance::EndChange(Status status) {
  const std::string fault = stateFile.End(contents);
  if (fault.empty()) return status;
  Warn(kStateVariable, fault + "; the change is not saved");
  return isLenient ? status : kServerFailure;
}

}  // namespace quillbox
