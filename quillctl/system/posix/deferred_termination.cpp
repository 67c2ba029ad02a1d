#include "quillctl/system/ending.h"

#include <optional>

#include "quillctl/system/posix/caught_signals.h"

namespace quillkit {
namespace {

// Of the one DeferredEnding.
volatile std::sig_atomic_t isDemanded = 0;
extern "C" void NoteDemand(int number) {
  if (number != SIGHUP && isDemanded != 0) {  // that one comes twice where a terminal goes
    static_cast<void>(std::signal(number, SIG_DFL));
    static_cast<void>(raise(number));
  }
  isDemanded = 1;
}

struct Effects {
  CaughtSignals demands{NoteDemand};
  SignalEffect brokenPipe{SIGPIPE, SIG_IGN};  // it is none
};
std::optional<Effects> effects;

}  // namespace

DeferredEnding::DeferredEnding() {
  isDemanded = 0;
  effects.emplace();
}

DeferredEnding::~DeferredEnding() {
  effects.reset();
}

bool DeferredEnding::IsDemanded() const {
  return isDemanded != 0;
}

}  // namespace quillkit
