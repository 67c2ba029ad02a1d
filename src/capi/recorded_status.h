// The status that one call records, whatever was recorded before it.

#ifndef QUILLKIT_CAPI_RECORDED_STATUS_H_
#define QUILLKIT_CAPI_RECORDED_STATUS_H_

#include <limits>

#include "bridge/the_agent.h"

namespace quillkit::capi {

// From construction to destruction, the last error is what is recorded meanwhile. The destructor
// restores the last error if nothing was recorded.
class RecordedStatus {
 public:
  RecordedStatus() { TheAgent.SetError(kNone); }
  RecordedStatus(const RecordedStatus&) = delete;
  RecordedStatus& operator=(const RecordedStatus&) = delete;
  ~RecordedStatus() {
    if (TheAgent.LastError() == kNone) TheAgent.SetError(before);
  }

  // Returns 0 if nothing was recorded.
  Status Get() const {
    const Status last = TheAgent.LastError();
    return last != kNone ? last : kNoError;
  }

 private:
  static constexpr Status kNone = std::numeric_limits<Status>::min();

  Status before = TheAgent.LastError();
};

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_RECORDED_STATUS_H_
