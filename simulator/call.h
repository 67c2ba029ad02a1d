// The steps common to all entry points: faults, latency, session and state file, then the work of
// the entry point, then the journal.

#ifndef QUILLKIT_SIMULATOR_CALL_H_
#define QUILLKIT_SIMULATOR_CALL_H_

#include <cstdint>
#include <optional>
#include <string>
#include <utility>

#include "simulator/call_facts.h"
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

// The result of the steps before the work of a call.
struct CallStart {
  // Nothing if the call may run. Otherwise the status of the call: that of a fault, 19 after the
  // time-out, 20, 10, or 18 if the configuration or the state file is not usable.
  std::optional<Status> refusal;
  bool isReplyLost = false;
  std::string fault;  // that applies to the call
};

// A call that needs a session keeps it alive.
CallStart StartCall(Appliance& appliance, const ServedCall& entry, CallFacts facts);

// Adds a call to the journal and to the journal file, if they are on, and ends its wrong replies.
void EndCall(Appliance& appliance, std::string text, Status status, const CallStart& start);

// Serves a call. `work` receives the appliance and returns the status. `arguments` are shown in the
// journal.
template <class Work, class... Arguments>
Status Serve(const ServedCall& entry, Work work, const Arguments&... arguments) {
  Appliance& appliance = TheAppliance();
  std::string text;
  if (appliance.IsRecording()) text = CallText(entry.name, arguments...);
  CallFacts facts;
  (facts.Add(arguments), ...);
  const CallStart start = StartCall(appliance, entry, std::move(facts));
  Status status = start.refusal ? *start.refusal : appliance.EndChange(work(appliance));
  if (start.isReplyLost) status = kTimeoutExpired;
  const bool isFailure =
      start.refusal || start.isReplyLost || (status != kNoError && status != kMoreData);
  if (isFailure && entry.count != nullptr && !appliance.defects.KeepsFailedCount())
    *entry.count = 0;
  (appliance.defects.ScribbleArgument(arguments), ...);
  EndCall(appliance, std::move(text), status, start);
  return status;
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_CALL_H_
