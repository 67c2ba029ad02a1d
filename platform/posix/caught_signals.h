// A handler for the signals that end a program which does nothing about them.

#ifndef QUILLKIT_PLATFORM_POSIX_CAUGHT_SIGNALS_H_
#define QUILLKIT_PLATFORM_POSIX_CAUGHT_SIGNALS_H_

#include <array>
#include <csignal>

namespace quillkit {

// A signal that is ignored stays so. When this goes, all is as it was.
class CaughtSignals {
 public:
  explicit CaughtSignals(void (*handler)(int)) {
    struct sigaction action = {};
    action.sa_handler = handler;
    action.sa_flags = SA_RESTART;
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], nullptr, &before_[i]);
      if (before_[i].sa_handler != SIG_IGN) sigaction(kSignals[i], &action, nullptr);
    }
  }
  CaughtSignals(const CaughtSignals&) = delete;
  CaughtSignals& operator=(const CaughtSignals&) = delete;
  ~CaughtSignals() {
    for (std::size_t i = 0; i < kSignals.size(); ++i) {
      sigaction(kSignals[i], &before_[i], nullptr);
    }
  }

 private:
  static constexpr std::array<int, 4> kSignals = {SIGHUP, SIGINT, SIGQUIT, SIGTERM};
  std::array<struct sigaction, kSignals.size()> before_ = {};
};

}  // namespace quillkit

#endif  // QUILLKIT_PLATFORM_POSIX_CAUGHT_SIGNALS_H_
