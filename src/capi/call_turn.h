// The turns of threads: one call at a time is inside the library, and so is the session keep-alive.

#ifndef QUILLKIT_CAPI_CALL_TURN_H_
#define QUILLKIT_CAPI_CALL_TURN_H_

#include <cstdint>

namespace quillkit::capi {

// The turn of one call, from construction to destruction. The constructor waits while another
// thread's call is inside. A turn that has a fault was not given: the call must do nothing.
//
// A keep-alive that falls due while another thread's call is inside is sent at the end of that
// call's turn. The thread that it belongs to never waits for it, so its windows stay responsive
// during an import of another thread.
class CallTurn {
 public:
  CallTurn();
  CallTurn(const CallTurn&) = delete;
  CallTurn& operator=(const CallTurn&) = delete;
  ~CallTurn();

  // 0; QUILL_E_NESTED inside another call of the thread; QUILL_E_FORKED in a forked child, which
  // touches no lock: its holder may not exist there.
  std::int32_t Fault() const { return fault; }

 private:
  std::int32_t fault = 0;
};

}  // namespace quillkit::capi

#endif  // QUILLKIT_CAPI_CALL_TURN_H_
