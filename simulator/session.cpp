#include "simulator/session.h"

namespace quillbox {

std::chrono::milliseconds Clock::Since(const Moment& moment) const {
  using std::chrono::milliseconds;
  constexpr milliseconds kLeastCounted{100};
  const auto real =
      std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - moment.real);
  return advanced - moment.advanced + (real < kLeastCounted ? milliseconds{0} : real);
}

void Session::Open(std::string_view newAccount, const Clock& clock) {
  isOpen = true;
  account = newAccount;
  user = newAccount;
  KeepAlive(clock);
}

void Session::Close() {
  isOpen = false;
  account.clear();
  user.clear();
}

bool Session::IsOpen(const Clock& clock, std::uint32_t period) {
  if (isOpen && clock.Since(lastCall) >= std::chrono::milliseconds(period)) Close();
  return isOpen;
}

}  // namespace quillbox
