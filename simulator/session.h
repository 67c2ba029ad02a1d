// The only session of the server library.

#ifndef QUILLKIT_SIMULATOR_SESSION_H_
#define QUILLKIT_SIMULATOR_SESSION_H_

#include <cstdint>
#include <string>
#include <string_view>

#include "simulator/clock.h"

namespace quillbox {

class Session {
 public:
  // Opens it for an account. Replaces an open session.
  void Open(std::string_view newAccount, const Clock& clock);
  void Close();

  // Closes it if there was no call for the period, in milliseconds. Returns whether it is open.
  bool IsOpen(const Clock& clock, std::uint32_t period);

  // Records a call, which keeps the session alive.
  void KeepAlive(const Clock& clock) { lastCall = clock.Now(); }

  // The user whose rights apply: the account that logged in, or the user it changed to. "" if
  // closed.
  const std::string& User() const { return user; }
  void ChangeUser(std::string_view newUser) { user = newUser; }

  // The account that logged in. "" if closed.
  const std::string& Account() const { return account; }

 private:
  bool isOpen = false;
  std::string account;
  std::string user;
  Clock::Moment lastCall;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SESSION_H_
