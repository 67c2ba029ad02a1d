#include "console/system/deferred_termination.h"

#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstring>
#include <optional>
#include <utility>

#include "console/program.h"
#include "console/system/posix/caught_signals.h"

namespace console {
namespace {

// A path, for a signal handler.
struct Slot {
  std::array<char, 4096> path = {};
  volatile std::sig_atomic_t isUsed = 0;
};
std::array<Slot, 4> slots;

void DeleteFiles() {
  for (const Slot& each : slots) {
    if (each.isUsed != 0) unlink(each.path.data());
  }
}

extern "C" void Terminate(int number) {
  DeleteFiles();
  static_cast<void>(std::signal(number, SIG_DFL));
  static_cast<void>(raise(number));
}

std::optional<CaughtSignals> deletion;  // set while there are files, unless termination is deferred

// Belong to the first DeferredTermination.
volatile std::sig_atomic_t isRequested = 0;
volatile std::sig_atomic_t lastRequest = 0;  // the number of its signal
const char* announced = nullptr;

void Print(const char* text) {
  static_cast<void>(!write(STDERR_FILENO, text, std::strlen(text)));
}

extern "C" void RecordRequest(int number) {
  if (number != SIGHUP && isRequested != 0) {  // SIGHUP arrives twice when a terminal is closed
    Terminate(number);
  }
  if (isRequested == 0 && announced != nullptr) {
    for (const char* each : {"\n", ProgramName(), ": ", announced}) Print(each);
    Print("; a second interruption stops at once\n");
  }
  isRequested = 1;
  lastRequest = number;
}

struct Actions {
  CaughtSignals requests{RecordRequest};
  SignalAction brokenPipe{SIGPIPE, SIG_IGN};  // no request
};
std::optional<Actions> actions;

}  // namespace

DeletedOnTermination::DeletedOnTermination(const std::string& path) {
  const auto* const free = std::ranges::find(std::as_const(slots), 0, &Slot::isUsed);
  slot = static_cast<std::size_t>(free - slots.begin());
  if (slot == slots.size() || path.size() >= slots[slot].path.size()) {
    slot = slots.size();
    return;
  }
  path.copy(slots[slot].path.data(), path.size());
  slots[slot].path[path.size()] = '\0';
  slots[slot].isUsed = 1;
  if (!actions && !deletion) deletion.emplace(Terminate);
}

DeletedOnTermination::~DeletedOnTermination() {
  if (slot < slots.size()) slots[slot].isUsed = 0;
  if (!actions && std::ranges::all_of(slots, [](const Slot& each) { return each.isUsed == 0; })) {
    deletion.reset();
  }
}

DeferredTermination::DeferredTermination(const char* reason) : isFirst(!actions) {
  if (!isFirst) return;
  isRequested = 0;
  announced = reason;
  actions.emplace();
}

DeferredTermination::~DeferredTermination() {
  if (isFirst) actions.reset();
}

bool DeferredTermination::IsRequested() const {
  return isRequested != 0;
}

void TerminateIfRequested() {
  if (lastRequest != 0) Terminate(lastRequest);
}

}  // namespace console
