// Keeping the session alive in an application's own epoll loop. The appliance ends a session after
// two seconds without a call; the application waits three seconds for a timer of its own.

#include <sys/epoll.h>
#include <sys/timerfd.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <iostream>

#include "platform/posix/event_loop.h"
#include "simulator/simulator.h"
#include "toolkit/quillkit.h"

namespace {

bool Watch(int loop, int descriptor) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.fd = descriptor;
  return epoll_ctl(loop, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

// Runs the loop until the timer is due. Returns the number of keep-alives sent, or -1 on failure.
int WaitFor(int timer, int loop) {
  // The library's descriptor is readable when a keep-alive is due. It stays registered: it is the
  // same for the thread's whole life.
  const int library = QuillkitEventDescriptor();
  if (!Watch(loop, library) || !Watch(loop, timer)) return -1;
  for (int sent = 0;;) {
    epoll_event events[2];
    const int ready = epoll_wait(loop, events, 2, -1);
    if (ready < 0 && errno != EINTR) return -1;
    for (int i = 0; i < ready; ++i) {
      if (events[i].data.fd == library) sent += QuillkitDispatchEvents();
      if (events[i].data.fd == timer) return sent;
    }
  }
}

}  // namespace

int main() {
  using namespace quillkit;
  SimulatorSetWakeupPeriod(2'000);
  CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
  if (box == nullptr) return EXIT_FAILURE;

  const int loop = epoll_create1(EPOLL_CLOEXEC);
  const int timer = timerfd_create(CLOCK_MONOTONIC, TFD_CLOEXEC);
  itimerspec due{};
  due.it_value.tv_sec = 3;
  const int sent = timerfd_settime(timer, 0, &due, nullptr) == 0 ? WaitFor(timer, loop) : -1;
  close(timer);
  close(loop);

  const std::int32_t status = LoadTopLevelAbook(GetTopLevelAbook(box), 0);
  std::cout << "keep-alives sent: " << (sent >= 2 ? "yes" : "no")
            << "\nstatus of the next call: " << status << '\n';
  Logout();
  Exit();
  return sent >= 2 && status == 0 ? EXIT_SUCCESS : EXIT_FAILURE;
}
