// The steps common to all entry points: journal, faults, latency, session, then the work of the
// entry point, then the state file.

#ifndef QUILLKIT_SIMULATOR_CALL_H_
#define QUILLKIT_SIMULATOR_CALL_H_

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "simulator/protocol.h"
#include "simulator/the_appliance.h"

namespace quillbox {

// What a call requires: nothing; the library between IMSPInit and IMSPTerminate (otherwise 20);
// also an open session (otherwise 10).
enum class Precondition { kNothing, kLibrary, kSession };

struct ServedCall {
  const char* name = nullptr;
  Precondition need = Precondition::kSession;
  std::uint32_t* count = nullptr;  // a failed call sets it to 0; may be null
};

// Returns nothing if the call may run. A call that needs a session then keeps the session alive.
// Otherwise returns the status of the call: that of a fault, 19 after the time-out, 20, 10, or 18
// if the configuration or the state file is not usable.
std::optional<Status> CheckCall(Appliance& appliance, const ServedCall& entry);

// Adds a call to the journal and to the journal file, if they are on.
void RecordCall(Appliance& appliance, std::string text, Status status);

// Serves a call. `work` receives the appliance and returns the status. `arguments` are shown in the
// journal.
template <class Work, class... Arguments>
Status Serve(const ServedCall& entry, Work work, const Arguments&... arguments) {
  Appliance& appliance = TheAppliance();
  const bool isRecorded = appliance.journal.IsRecording() || appliance.journalFile.IsOpen();
  std::string text;
  if (isRecorded) text = CallText(entry.name, arguments...);
  const std::optional<Status> refusal = CheckCall(appliance, entry);
  const Status status = refusal ? *refusal : appliance.EndChange(work(appliance));
  const bool isFailure = refusal || (status != kNoError && status != kMoreData);
  if (isFailure && entry.count != nullptr && !appliance.defects.KeepsFailedCount())
    *entry.count = 0;
  (appliance.defects.ScribbleArgument(arguments), ...);
  if (isRecorded) RecordCall(appliance, std::move(text), status);
  return status;
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_CALL_H_
