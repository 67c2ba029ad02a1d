#include "platform/ending.h"

#include <optional>

#include "platform/posix/caught_signals.h"

namespace quillkit {
namespace {

// Of the one DeferredEnding.
volatile std::sig_atomic_t isDemanded = 0;
std::optional<CaughtSignals> caught;
std::optional<IgnoredSignal> brokenPipe;

extern "C" void NoteDemand(int) {
  isDemanded = 1;
}

}  // namespace

DeferredEnding::DeferredEnding() {
  isDemanded = 0;
  caught.emplace(NoteDemand);
  brokenPipe.emplace(SIGPIPE);
}

DeferredEnding::~DeferredEnding() {
  brokenPipe.reset();
  caught.reset();
}

bool DeferredEnding::IsDemanded() const {
  return isDemanded != 0;
}

}  // namespace quillkit
