// The one way in which every entry point is served: journal, faults, latency, session, then the
// entry point's own work, and the state file.

#ifndef QUILLKIT_SIMULATOR_CALL_H_
#define QUILLKIT_SIMULATOR_CALL_H_

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "simulator/protocol.h"
#include "simulator/the_appliance.h"

namespace quillbox {

// What a call has to find: nothing, the library between IMSPInit and IMSPTerminate (else 20), and
// in that a session too (else 10).
enum class Precondition { kNothing, kLibrary, kSession };

struct ServedCall {
  const char* name = nullptr;
  Precondition need = Precondition::kSession;
  std::uint32_t* count = nullptr;  // a failed call sets it to 0; may be null
};

// Nothing when the call may run, which in a session is a sign of life. Else what it gives: the
// status of a fault, 19 after waiting for the time-out, 20 or 10.
std::optional<Status> Refusal(Appliance& appliance, const ServedCall& entry);

// Adds a call to the journal and its file, to each where it is wanted.
void RecordCall(Appliance& appliance, std::string text, Status status);

// Serves a call: `work` takes the appliance and gives the status. `arguments` are what the journal
// shows.
template <class Work, class... Arguments>
Status Serve(const ServedCall& entry, Work work, const Arguments&... arguments) {
  Appliance& appliance = TheAppliance();
  const bool isRecorded = appliance.journal.IsRecording() || appliance.journalFile.IsOpen();
  std::string text;
  if (isRecorded) text = CallText(entry.name, arguments...);
  const std::optional<Status> refusal = Refusal(appliance, entry);
  const Status status = refusal ? *refusal : work(appliance);
  const bool isFailure = refusal || (status != kNoError && status != kMoreData);
  if (isFailure && entry.count != nullptr && !appliance.lies.KeepsFailedCount()) *entry.count = 0;
  (appliance.lies.ScribbleArgument(arguments), ...);
  if (isRecorded) RecordCall(appliance, std::move(text), status);
  appliance.SaveChange();
  return status;
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_CALL_H_
