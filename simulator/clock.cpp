#include "simulator/clock.h"

#include <array>
#include <cstdio>
#include <thread>

namespace quillbox {

using std::chrono::milliseconds;

void Clock::Simulate(std::chrono::sys_seconds date) {
  isSimulated = true;
  start = date;
}

void Clock::Wait(std::uint32_t time) {
  if (isSimulated) {
    Advance(time);
  } else if (time != 0) {
    std::this_thread::sleep_for(milliseconds(time));
  }
}

milliseconds Clock::Since(const Moment& moment) const {
  constexpr milliseconds kLeastCounted{100};
  const milliseconds real = RealSince(moment);
  return advanced - moment.advanced + (real < kLeastCounted ? milliseconds{0} : real);
}

milliseconds Clock::Elapsed() const {
  return advanced + RealSince(created);
}

std::string Clock::Timestamp() const {
  using namespace std::chrono;
  const auto time = isSimulated ? start + advanced
                                : time_point_cast<milliseconds>(system_clock::now()) + advanced;
  const auto day = floor<days>(time);
  const year_month_day date(day);
  const hh_mm_ss clock(time - day);
  std::array<char, 64> text{};
  std::snprintf(text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02d.%03dZ",
                static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                static_cast<unsigned>(date.day()), static_cast<int>(clock.hours().count()),
                static_cast<int>(clock.minutes().count()),
                static_cast<int>(clock.seconds().count()),
                static_cast<int>(clock.subseconds().count()));
  return text.data();
}

milliseconds Clock::RealSince(const Moment& moment) const {
  if (isSimulated) return milliseconds{0};
  return std::chrono::duration_cast<milliseconds>(std::chrono::steady_clock::now() - moment.real);
}

}  // namespace quillbox
