#include "simulator/session.h"

#include <chrono>

namespace quillbox {

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
