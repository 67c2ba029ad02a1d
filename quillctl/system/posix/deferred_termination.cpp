#include "quillctl/system/deferred_termination.h"

#include <unistd.h>

#include <cstring>
#include <optional>

#include "quillctl/system/posix/caught_signals.h"

namespace quillctl {
namespace {

// Belongs to the one DeferredTermination.
volatile std::sig_atomic_t isRequested = 0;
const char* announced = nullptr;

void Print(const char* text) {
  static_cast<void>(!write(STDERR_FILENO, text, std::strlen(text)));
}

extern "C" void RecordRequest(int number) {
  if (number != SIGHUP && isRequested != 0) {  // SIGHUP arrives twice when a terminal is closed
    static_cast<void>(std::signal(number, SIG_DFL));
    static_cast<void>(raise(number));
  }
  if (isRequested == 0 && announced != nullptr) {
    Print("\nquillctl: ");
    Print(announced);
    Print("; a second interruption stops at once\n");
  }
  isRequested = 1;
}

struct Actions {
  CaughtSignals requests{RecordRequest};
  SignalAction brokenPipe{SIGPIPE, SIG_IGN};  // no request
};
std::optional<Actions> actions;

}  // namespace

DeferredTermination::DeferredTermination(const char* reason) {
  isRequested = 0;
  announced = reason;
  actions.emplace();
}

DeferredTermination::~DeferredTermination() {
  actions.reset();
}

bool DeferredTermination::IsRequested() const {
  return isRequested != 0;
}

}  // namespace quillctl
