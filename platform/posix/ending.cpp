#include "platform/ending.h"

#include <optional>

#include "platform/posix/caught_signals.h"

namespace quillkit {
namespace {

// Of the one DeferredEnding.
volatile std::sig_atomic_t isDemanded = 0;
std::optional<CaughtSignals> caught;
std::optional<SignalEffect> brokenPipe;

extern "C" void NoteDemand(int number) {
  if (number != SIGHUP && isDemanded != 0) {  // that one comes twice where a terminal goes
    static_cast<void>(std::signal(number, SIG_DFL));
    static_cast<void>(raise(number));
  }
  isDemanded = 1;
}

}  // namespace

DeferredEnding::DeferredEnding() {
  isDemanded = 0;
  caught.emplace(NoteDemand);
  brokenPipe.emplace(SIGPIPE, SIG_IGN);
}

DeferredEnding::~DeferredEnding() {
  brokenPipe.reset();
  caught.reset();
}

bool DeferredEnding::IsDemanded() const {
  return isDemanded != 0;
}

}  // namespace quillkit
