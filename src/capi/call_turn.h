// The turns of threads: one call or keep-alive at a time is inside the library.

#ifndef QUILLKIT_CAPI_CALL_TURN_H_
#define QUILLKIT_CAPI_CALL_TURN_H_

#include <cstdint>

namespace quillkit::capi {

// The turn of one call, from construction to destruction. The constructor waits while another
// thread is inside the library. If Fault() is not 0, the call has no turn and must do nothing.
//
// If a keep-alive is due while another thread is inside the library, that thread sends it at the
// end of its call. The thread of the keep-alive does not wait, so its windows stay responsive
// during an import on another thread.
class CallTurn {
 public:
  CallTurn();
  CallTurn(const CallTurn&) = delete;
  CallTurn& operator=(const CallTurn&) = delete;
  ~CallTurn();

  // Returns 0; QUILL_E_NESTED inside another call of the thread; QUILL_E_FORKED in a forked child.
  // The child does not take the lock: the thread that holds it may not exist in the child.
  std::int32_t Fault() const { return fault; }

 private:
  std::int32_t fault = 0;
};

// Returns what Fault() of a turn would be, without a turn and without waiting.
std::int32_t FaultOfThread();

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_CALL_TURN_H_
