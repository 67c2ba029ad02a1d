// The one session that the appliance's server library can have open, and the clock by which a
// silent one is dropped.

#ifndef QUILLKIT_SIMULATOR_SESSION_H_
#define QUILLKIT_SIMULATOR_SESSION_H_

#include <chrono>
#include <cstdint>
#include <string>
#include <string_view>

namespace quillbox {

// Real time, and what was put on top of it.
class Clock {
 public:
  struct Moment {
    std::chrono::steady_clock::time_point real;
    std::chrono::milliseconds advanced{0};
  };

  Moment Now() const { return {std::chrono::steady_clock::now(), advanced}; }
  void Advance(std::uint32_t milliseconds) { advanced += std::chrono::milliseconds(milliseconds); }

  // The time since a moment. Real time below a tenth of a second does not count, so that a short
  // period measures what a client does and not how busy the machine is.
  std::chrono::milliseconds Since(const Moment& moment) const;

 private:
  std::chrono::milliseconds advanced{0};
};

class Session {
 public:
  // Opens it for an account, in the place of one that is open.
  void Open(std::string_view newAccount, const Clock& clock);
  void Close();

  // Closes it when it has been silent for the period, in milliseconds. Whether it is open.
  bool IsOpen(const Clock& clock, std::uint32_t period);

  // Takes a sign of life.
  void Wake(const Clock& clock) { lastSign = clock.Now(); }

  // Whose rights it has: the account that logged in, or the user it acts as since. "" when closed.
  const std::string& User() const { return user; }
  void ActAs(std::string_view newUser) { user = newUser; }

  // Who logged in. "" when closed.
  const std::string& Account() const { return account; }

 private:
  bool isOpen = false;
  std::string account;
  std::string user;
  Clock::Moment lastSign;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SESSION_H_
