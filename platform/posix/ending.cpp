#include "platform/ending.h"

#include <optional>

#include "platform/posix/caught_signals.h"

namespace quillkit {
namespace {

// Of the one DeferredEnding.
volatile std::sig_atomic_t isDemanded = 0;
std::optional<CaughtSignals> caught;
struct sigaction brokenPipe;

extern "C" void NoteDemand(int) {
  isDemanded = 1;
}

}  // namespace

DeferredEnding::DeferredEnding() {
  isDemanded = 0;
  caught.emplace(NoteDemand);
  struct sigaction ignore = {};
  ignore.sa_handler = SIG_IGN;
  sigaction(SIGPIPE, &ignore, &brokenPipe);
}

DeferredEnding::~DeferredEnding() {
  sigaction(SIGPIPE, &brokenPipe, nullptr);
  caught.reset();
}

bool DeferredEnding::IsDemanded() const {
  return isDemanded != 0;
}

}  // namespace quillkit
