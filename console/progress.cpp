#include "console/progress.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <utility>

#include "console/system/terminal.h"

namespace console {
namespace {

using namespace std::chrono_literals;

constexpr auto kDelay = 500ms;
constexpr auto kInterval = 100ms;
constexpr std::size_t kLeastBar = 5;
constexpr std::size_t kMostBar = 20;

bool isSilent = false;

// Returns minutes and seconds.
std::string Duration(double seconds) {
  const auto whole = static_cast<std::uint64_t>(std::llround(seconds));
  const std::string rest = std::to_string(whole % 60);
  return std::to_string(whole / 60) + (rest.size() < 2 ? ":0" : ":") + rest;
}

}  // namespace

Progress::Progress(std::string newTitle, Total newTotal)
    : title(std::move(newTitle)),
      getTotal(std::move(newTotal)),
      columns(isSilent ? 0 : StderrColumns()),
      next(start + kDelay) {}

Progress::~Progress() {
  if (isShown) std::cerr << '\r' << std::string(columns - 1, ' ') << '\r' << std::flush;
}

void Progress::Step() {
  ++done;
  if (columns == 0) return;
  const Clock::time_point now = Clock::now();
  if (now >= next) Show(now);
}

void Progress::Silence() {
  isSilent = true;
}

void Progress::Show(Clock::time_point now) {
  if (!isShown && getTotal) total = getTotal();
  isShown = true;
  next = now + kInterval;
  std::string line = Line(now - start);
  line.resize(columns - 1, ' ');
  std::cerr << '\r' << line << std::flush;
}

std::string Progress::Line(std::chrono::duration<double> passed) const {
  const double rate = static_cast<double>(done) / passed.count();
  const bool hasTotal = total >= done;
  const std::string begin =
      title + "  " + std::to_string(done) + (hasTotal ? " of " + std::to_string(total) : "");
  std::string end = "  " + std::to_string(static_cast<std::uint64_t>(rate)) + "/s";
  if (hasTotal) end += "  " + Duration(static_cast<double>(total - done) / rate) + " left";
  const std::size_t used = begin.size() + end.size() + 5;  // spaces, brackets and the last column
  if (!hasTotal || used + kLeastBar > columns) return begin + end;
  const std::size_t bar = std::min(kMostBar, columns - used);
  const auto filled = static_cast<std::size_t>(bar * done / total);
  return begin + "  [" + std::string(filled, '#') + std::string(bar - filled, '.') + ']' + end;
}

}  // namespace console
