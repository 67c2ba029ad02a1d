#include "capi/call_turn.h"

#include <atomic>
#include <mutex>

#include "bridge/keep_alive.h"
#include "capi/quillkit_c.h"
#include "platform/forked_child.h"

namespace quillkit::capi {
namespace {

// Recursive: a thread inside a call can send a due keep-alive and detect a nested call.
constinit std::recursive_mutex callMutex;
constinit int depth = 0;  // of the thread that holds the lock

// A keep-alive that waits for the lock.
constinit std::atomic<KeepAlive> pendingKeepAlive = nullptr;

// Sends a waiting keep-alive unless another thread holds the lock. In that case, the other thread
// sends it after it has released the lock.
void SendPending() {
  while (pendingKeepAlive.load() != nullptr && callMutex.try_lock()) {
    ++depth;
    if (const KeepAlive send = pendingKeepAlive.exchange(nullptr)) send();
    --depth;
    callMutex.unlock();
  }
}

void OnKeepAlive(KeepAlive send) {
  pendingKeepAlive.store(send);
  SendPending();
}

[[maybe_unused]] const KeepAliveSender earlierSender = SetKeepAliveSender(OnKeepAlive);

}  // namespace

CallTurn::CallTurn() {
  if (IsForkedChild()) {
    fault = QUILL_E_FORKED;
    return;
  }
  callMutex.lock();
  if (++depth != 1) fault = QUILL_E_NESTED;
}

CallTurn::~CallTurn() {
  if (fault == QUILL_E_FORKED) return;
  const bool isOutermost = --depth == 0;
  callMutex.unlock();
  if (isOutermost) SendPending();
}

std::int32_t FaultOfThread() {
  if (IsForkedChild()) return QUILL_E_FORKED;
  // Only the thread that is inside a call gets the lock while it runs.
  if (callMutex.try_lock()) {
    const bool isInside = depth != 0;
    callMutex.unlock();
    if (isInside) return QUILL_E_NESTED;
    SendPending();  // the lock may have kept a keep-alive waiting
  }
  return 0;
}

}  // namespace quillkit::capi
