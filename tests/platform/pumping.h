// Runs the timers of the calling thread, as the message loop of an application would.

#ifndef QUILLKIT_TESTS_PLATFORM_PUMPING_H_
#define QUILLKIT_TESTS_PLATFORM_PUMPING_H_

#include <chrono>
#include <cstdint>
#include <thread>

#include "platform/message_pump.h"

namespace quillkit {

// Lets the thread's due timers run. The window is no dialog, so that every message is dispatched.
inline void Pump() {
  static int noDialog = 0;
  PumpThreadMessages(&noDialog);
}

inline void Sleep(std::chrono::milliseconds time) {
  std::this_thread::sleep_for(time);
}

// Pumps until `isDone` returns true. Returns false if it does not within a minute.
template <class Condition>
bool PumpUntil(Condition isDone) {
  const auto end = std::chrono::steady_clock::now() + std::chrono::seconds(60);
  while (!isDone()) {
    if (std::chrono::steady_clock::now() > end) return false;
    Sleep(std::chrono::milliseconds(2));
    Pump();
  }
  return true;
}

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_PUMPING_H_
