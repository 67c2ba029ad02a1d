// Keeping the session alive in an application's own poll loop. The appliance ends a session after
// two seconds without a call; the application waits three seconds for a worker thread.

#include <poll.h>
#include <unistd.h>

#include <cerrno>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <thread>

#include "platform/posix/event_loop.h"
#include "simulator/simulator.h"
#include "toolkit/quillkit.h"

namespace {

// Polls until the worker closes its pipe. Returns the number of keep-alives sent, or -1 on failure.
int WaitFor(int worker) {
  // The library's descriptor is readable when a keep-alive is due.
  pollfd watched[] = {{QuillkitEventDescriptor(), POLLIN, 0}, {worker, POLLIN, 0}};
  for (int sent = 0;;) {
    if (poll(watched, 2, -1) < 0) {
      if (errno == EINTR) continue;
      return -1;
    }
    if (watched[0].revents != 0) sent += QuillkitDispatchEvents();
    if (watched[1].revents != 0) return sent;
  }
}

}  // namespace

int main() {
  using namespace quillkit;
  SimulatorSetWakeupPeriod(2'000);
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
  int ends[2];
  if (box == nullptr || pipe(ends) != 0) return EXIT_FAILURE;

  // The worker makes no call of the library: calls must not overlap.
  std::thread worker([out = ends[1]] {
    std::this_thread::sleep_for(std::chrono::seconds(3));
    close(out);
  });
  const int sent = WaitFor(ends[0]);
  worker.join();
  close(ends[0]);

  const std::int32_t status = LoadTopLevelAbook(GetTopLevelAbook(box), 0);
  std::cout << "keep-alives sent: " << (sent >= 2 ? "yes" : "no")
            << "\nstatus of the next call: " << status << '\n';
  Logout();
  Exit();
  return sent >= 2 && status == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
