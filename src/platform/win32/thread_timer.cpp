#include "platform/thread_timer.h"

#include <windows.h>

#include <map>
#include <mutex>
#include <utility>

namespace quillkit {
namespace {

// A timer without a window has an identifier that is unique within its thread.
using ThreadAndTimer = std::pair<DWORD, UINT_PTR>;

ThreadAndTimer OfThisThread(UINT_PTR timer) {
  return {GetCurrentThreadId(), timer};
}

// Needs no memory, unlike std::mutex, whose first lock allocates the system's object.
class Lock {
 public:
  Lock() { InitializeCriticalSection(&section); }
  Lock(const Lock&) = delete;
  Lock& operator=(const Lock&) = delete;
  ~Lock() { DeleteCriticalSection(&section); }

  void lock() { EnterCriticalSection(&section); }
  void unlock() { LeaveCriticalSection(&section); }

 private:
  CRITICAL_SECTION section;
};

// The routine of each running timer. The system passes OnTimer only the id of a timer.
class Routines {
 public:
  Routines() = default;
  Routines(const Routines&) = delete;
  Routines& operator=(const Routines&) = delete;

  // The routines are unloaded with the library. Timers of other threads cannot be stopped.
  ~Routines() {
    for (const auto& [timer, routine] : running) {
      if (timer.first == GetCurrentThreadId()) KillTimer(nullptr, timer.second);
    }
  }

  // Returns the id of the new timer, or 0 if the system refuses it.
  UINT_PTR Start(UINT period, TIMERPROC callback, TimerRoutine routine) {
    std::map<ThreadAndTimer, TimerRoutine> added;
    added[{}] = routine;  // the one step that may throw
    const UINT_PTR timer = SetTimer(nullptr, 0, period, callback);
    if (timer == 0) return 0;
    auto node = added.extract(added.begin());
    node.key() = OfThisThread(timer);
    const std::lock_guard hold(lock);
    running.erase(node.key());  // of an ended thread that had the same id
    running.insert(std::move(node));
    return timer;
  }

  // Returns false if the calling thread has no such timer.
  bool Remove(UINT_PTR timer) {
    const std::lock_guard hold(lock);
    return running.erase(OfThisThread(timer)) != 0;
  }

  void Run(UINT_PTR timer) {
    TimerRoutine routine = nullptr;
    {
      const std::lock_guard hold(lock);
      const auto found = running.find(OfThisThread(timer));
      if (found != running.end()) routine = found->second;
    }
    if (routine != nullptr) routine();
  }

 private:
  Lock lock;
  std::map<ThreadAndTimer, TimerRoutine> running;
};

// Null after the library is stopped; a static object may still stop its timer then.
constinit Routines* routines = nullptr;

struct LibraryLife {
  LibraryLife() { routines = new Routines; }
  LibraryLife(const LibraryLife&) = delete;
  LibraryLife& operator=(const LibraryLife&) = delete;
  ~LibraryLife() { delete std::exchange(routines, nullptr); }
};

const LibraryLife libraryLife;

void CALLBACK OnTimer(HWND /*window*/, UINT /*message*/, UINT_PTR timer, DWORD /*time*/) {
  if (routines != nullptr) routines->Run(timer);
}

}  // namespace

TimerId StartThreadTimer(std::uint32_t period, TimerRoutine routine) {
  return routines != nullptr ? routines->Start(period, OnTimer, routine) : 0;
}

void StopThreadTimer(TimerId timer) {
  if (routines != nullptr && routines->Remove(timer)) KillTimer(nullptr, timer);
}

void EnterLibrary() {}

}  // namespace quillkit
