// Sending of the session keep-alive (IMSPWakeup) when it is due.
//
// By default the library sends it immediately, on the thread of the timer. A module that serialises
// the calls of several threads can install its own sender, so that the keep-alive also waits for
// its turn.

#ifndef QUILLKIT_BRIDGE_KEEP_ALIVE_H_
#define QUILLKIT_BRIDGE_KEEP_ALIVE_H_

namespace quillkit {

// Sends the keep-alive. Does nothing if the server library is not loaded.
using KeepAlive = void (*)();
using KeepAliveSender = void (*)(KeepAlive send);

// Passes every later keep-alive to `sender`, on the thread of the timer. Null restores immediate
// sending. `sender` runs `send` now or later, on any thread, while no other thread is inside the
// library. Returns the earlier sender, or null if there was none.
// REQUIRES: no other thread uses the library.
KeepAliveSender SetKeepAliveSender(KeepAliveSender sender);

}  // namespace quillkit

#endif  // QUILLKIT_BRIDGE_KEEP_ALIVE_H_
