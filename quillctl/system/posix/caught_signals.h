// Signals that have another effect for a time. When these objects go, all is as it was.

#ifndef QUILLCTL_SYSTEM_POSIX_CAUGHT_SIGNALS_H_
#define QUILLCTL_SYSTEM_POSIX_CAUGHT_SIGNALS_H_

#include <array>
#include <csignal>
#include <cstddef>
#include <optional>

namespace quillkit {

// A signal with a handler of its own, or with SIG_IGN.
class SignalEffect {
 public:
  SignalEffect(int number, void (*handler)(int)) : number_(number) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number_, &action, &before_);
  }
  SignalEffect(const SignalEffect&) = delete;
  SignalEffect& operator=(const SignalEffect&) = delete;
  ~SignalEffect() { sigaction(number_, &before_, nullptr); }

 private:
  int number_;
  struct sigaction before_ = {};
};

// Those by which a program is ended that does nothing about them call the handler. One that is
// ignored stays so.
class CaughtSignals {
 public:
  explicit CaughtSignals(void (*handler)(int)) {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      struct sigaction now = {};
      sigaction(kSignals[i], nullptr, &now);
      if (now.sa_handler != SIG_IGN) effects_[i].emplace(kSignals[i], handler);
    }
  }

 private:
  static constexpr std::array kSignals = {SIGHUP,  SIGINT,  SIGQUIT, SIGTERM,   SIGPIPE, SIGALRM,
                                          SIGUSR1, SIGUSR2, SIGXCPU, SIGVTALRM, SIGPROF};
  std::array<std::optional<SignalEffect>, kSignals.size()> effects_;
};

}  // namespace quillkit

#endif  // QUILLCTL_SYSTEM_POSIX_CAUGHT_SIGNALS_H_
