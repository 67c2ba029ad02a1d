// Signal handlers that are installed for a time. The destructors restore the former ones.

#ifndef CONSOLE_SYSTEM_POSIX_CAUGHT_SIGNALS_H_
#define CONSOLE_SYSTEM_POSIX_CAUGHT_SIGNALS_H_

#include <array>
#include <csignal>
#include <cstddef>
#include <optional>

namespace console {

// The handler of one signal, or SIG_IGN.
class SignalAction {
 public:
  SignalAction(int caughtSignal, void (*handler)(int)) : number(caughtSignal) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    sigaction(number, &action, &former);
  }
  SignalAction(const SignalAction&) = delete;
  SignalAction& operator=(const SignalAction&) = delete;
  ~SignalAction() { sigaction(number, &former, nullptr); }

 private:
  int number;
  struct sigaction former = {};
};

// Routes every signal whose default action is to terminate to the handler. An ignored signal stays
// ignored.
class CaughtSignals {
 public:
  explicit CaughtSignals(void (*handler)(int)) {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      struct sigaction now = {};
      sigaction(kSignals[i], nullptr, &now);
      if (now.sa_handler != SIG_IGN) actions[i].emplace(kSignals[i], handler);
    }
  }

 private:
  static constexpr std::array kSignals = {SIGHUP,  SIGINT,  SIGQUIT, SIGTERM, SIGPIPE,   SIGALRM,
                                          SIGUSR1, SIGUSR2, SIGXCPU, SIGXFSZ, SIGVTALRM, SIGPROF};
  std::array<std::optional<SignalAction>, kSignals.size()> actions;
};

}  // namespace console

#endif  // CONSOLE_SYSTEM_POSIX_CAUGHT_SIGNALS_H_
