#include "simulator/session.h"

namespace quillbox {

std::chrono::milliseconds Clock::Since(const Moment& moment) const {
  using std::chrono::milliseconds;
  constexpr milliseconds kLeastCounted{100};
  const auto real =
      std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - moment.real);
  return advanced_ - moment.advanced + (real < kLeastCounted ? milliseconds{0} : real);
}

void Session::Open(std::string_view account, const Clock& clock) {
  isOpen_ = true;
  account_ = account;
  user_ = account;
  Wake(clock);
}

void Session::Close() {
  isOpen_ = false;
  account_.clear();
  user_.clear();
}

bool Session::IsOpen(const Clock& clock, std::uint32_t period) {
  if (isOpen_ && clock.Since(lastSign_) >= std::chrono::milliseconds(period)) Close();
  return isOpen_;
}

}  // namespace quillbox
