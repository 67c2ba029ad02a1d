// Progress of long work, on the terminal of standard error.

#ifndef CONSOLE_PROGRESS_H_
#define CONSOLE_PROGRESS_H_

#include <chrono>
#include <cstdint>
#include <functional>
#include <string>

namespace console {

// Work that consists of steps. From half a second on, shows how many of them are done, their rate
// and the remaining time. The destructor erases that. Shows nothing if standard error is not a
// terminal, or after Silence().
class Progress {
 public:
  // Returns the number of steps, 0 if it is unknown. Called at most once, when there is something
  // to show.
  using Total = std::function<std::uint64_t()>;

  explicit Progress(std::string newTitle, Total newTotal = {});
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;
  ~Progress();

  // Counts a step that is done.
  void Step();

  // From now on, no object of this class shows anything.
  static void Silence();

 private:
  using Clock = std::chrono::steady_clock;

  void Show(Clock::time_point now);
  std::string Line(std::chrono::duration<double> passed) const;

  std::string title;
  Total getTotal;
  std::size_t columns;  // of the terminal, 0 to show nothing
  Clock::time_point start = Clock::now();
  Clock::time_point next;  // when to show it again
  std::uint64_t total = 0;
  std::uint64_t done = 0;
  bool isShown = false;
};

}  // namespace console

#endif  // CONSOLE_PROGRESS_H_
