// The clock that determines when a session is dropped, and that dates the journal.

#ifndef QUILLKIT_SIMULATOR_CLOCK_H_
#define QUILLKIT_SIMULATOR_CLOCK_H_

#include <chrono>
#include <cstdint>
#include <string>

namespace quillbox {

// The appliance's clock: real time plus the time added by Advance, or only that time.
class Clock {
 public:
  struct Moment {
    std::chrono::steady_clock::time_point real;
    std::chrono::milliseconds advanced{0};
  };

  Moment Now() const { return {std::chrono::steady_clock::now(), advanced}; }
  void Advance(std::uint32_t milliseconds) { advanced += std::chrono::milliseconds(milliseconds); }

  // From now on the clock only shows the time added to this date.
  void Simulate(std::chrono::sys_seconds date);

  // Waits this many milliseconds in real time, or advances a simulated clock by them.
  void Wait(std::uint32_t time);

  // The time since a moment. Real time below a tenth of a second does not count, so that tests with
  // a short period do not depend on the load of the machine.
  std::chrono::milliseconds Since(const Moment& moment) const;

  // The time since the clock was created.
  std::chrono::milliseconds Elapsed() const;

  // The date and the time of the day, such as 2026-01-01T00:00:00.000Z.
  std::string Timestamp() const;

 private:
  std::chrono::milliseconds RealSince(const Moment& moment) const;

  bool isSimulated = false;
  std::chrono::sys_seconds start;
  Moment created{std::chrono::steady_clock::now()};
  std::chrono::milliseconds advanced{0};
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_CLOCK_H_
