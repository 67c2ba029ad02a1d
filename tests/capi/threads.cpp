// quillkit_c from eight threads at once, on the simulated appliance.
//
// usage: quillkit_c_threads [SECONDS]      one second if none are given
//
// One thread logs in repeatedly and keeps the session alive; each of the seven others changes its
// own soft key. Each call returns what it would return alone, except that a login or a reload of
// another thread may have ended a handle. The process forks meanwhile.

#include <atomic>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <thread>
#include <vector>

#include "capi/quillkit_c.h"
#include "simulator/simulator.h"
#include "tests/platform/process.h"

namespace quillkit {
namespace {

using Clock = std::chrono::steady_clock;

constexpr int kWorkers = 7;
constexpr int kItems = 3;
constexpr int kForks = 20;

std::atomic<quill_handle> book;
std::atomic<bool> isOver;
std::atomic<int> rounds;
std::atomic<int> failures;

void Expect(const char* what, std::int64_t expected, std::int64_t found) {
  if (expected == found) return;
  ++failures;
  std::printf("%s: %" PRId64 ", expected %" PRId64 "\n", what, found, expected);
}

void LogIn() {
  quill_handle box = 0;
  quill_handle keys = 0;
  Expect("login", 1,
         quill_log_to_quillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1, &box, nullptr));
  Expect("book", 1, quill_get_top_level_abook(box, &keys));
  book = keys;
}

// Repeats a call whose handle another thread has ended.
template <class Call>
std::int32_t OnLiveBook(Call call) {
  std::int32_t result = QUILL_E_STALE;
  while (result == QUILL_E_STALE) result = call(book.load());
  return result;
}

template <class Call>
std::int32_t OnLiveKey(const std::string& name, Call call) {
  return OnLiveBook([&](quill_handle keys) {
    quill_handle key = 0;
    const std::int32_t found = quill_load_items(keys, name.c_str(), &key, nullptr);
    return found == 1 ? call(key) : found;
  });
}

// Adds a soft key with items and deletes it again.
void ChangeKey(const std::string& name) {
  quill_handle item = 0;
  std::uint32_t count = 0;
  Expect("create item", 1, quill_create_menu_item(&item));
  Expect("add key", 0,
         OnLiveBook([&](quill_handle keys) { return quill_add_key(keys, name.c_str(), 1); }));
  for (int i = 0; i < kItems; ++i) {
    const std::string text = name + " " + std::to_string(i);
    char stored[32] = {};
    std::uint32_t size = sizeof stored;
    Expect("set name", 1, quill_set_name(item, text.c_str()));
    Expect("get name", 1, quill_get_item_name(item, stored, &size));
    Expect("name", 0, text.compare(stored));
    Expect("add item", 0, OnLiveKey(name, [&](quill_handle key) {
             return quill_add_menu_item(key, item, i % 2);
           }));
  }
  Expect("count items", 0,
         OnLiveKey(name, [&](quill_handle key) { return quill_get_db_item_count(key, &count); }));
  Expect("items", kItems, count);
  Expect("delete key", 0,
         OnLiveBook([&](quill_handle keys) { return quill_delete_key(keys, name.c_str(), 1); }));
  Expect("destroy item", 1, quill_destroy_menu_item(item));
}

// Returns 0 if each call is refused in a forked child. There, the lock stays locked forever if a
// thread of the parent was inside a call.
int CallInForkedChild() {
  quill_handle handle = 1;
  if (quill_get_count(book.load()) != QUILL_E_FORKED) return 1;
  if (quill_create_menu_item(&handle) != QUILL_E_FORKED || handle != 0) return 2;
  if (quill_logout() != QUILL_E_FORKED || quill_exit() != QUILL_E_FORKED) return 3;
  return DispatchTimers() == 0 && *quill_error_text(QUILL_E_FORKED) != '\0' ? 0 : 4;
}

void RunThreads(std::chrono::milliseconds time) {
  std::vector<std::thread> workers;
  workers.reserve(kWorkers);
  for (int i = 0; i < kWorkers; ++i) {
    workers.emplace_back([name = "Thread " + std::to_string(i)] {
      for (; !isOver; ++rounds) ChangeKey(name);
    });
  }
  const Clock::time_point end = Clock::now() + time;
  for (int turn = 0, forks = 0; Clock::now() < end; ++turn) {
    if (turn % 20 == 0) LogIn();
    DispatchTimers();
    if (Clock::now() > end - time / 2 && forks++ < kForks) {
      Expect("calls in a forked child", 0, StatusInForkedChild(CallInForkedChild));
    }
    std::this_thread::sleep_for(std::chrono::milliseconds(1));
  }
  isOver = true;
  for (std::thread& each : workers) each.join();
  Expect("keys", 3, quill_get_count(book.load()));
}

// The keep-alive becomes due repeatedly during a call of another thread. Its own thread does not
// wait, and the keep-alive is sent after that call.
void DeferKeepAlive() {
  SimulatorRecordCalls(1);
  SimulatorSetLatency(1000);
  std::atomic<bool> isInside = true;
  std::thread caller([&] {
    Expect("slow call", 0, quill_load_top_level_abook(book.load(), 0));
    isInside = false;
  });
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  int due = 0;
  while (isInside && due < 2) due += DispatchTimers();
  Expect("the thread continues during the call", 1, isInside ? 1 : 0);
  caller.join();
  SimulatorSetLatency(0);
  const std::string last = SimulatorCallText(SimulatorCallCount() - 1);
  Expect("the last call is the keep-alive", 0, last.compare("IMSPWakeup"));
}

std::atomic<std::int32_t> nested;

void EnterNested(int /*signal*/) {
  nested = quill_get_count(book.load());
}

void RefuseNestedCall() {
  SimulatorSetLatency(1000);
  if (!InterruptSoon(EnterNested)) return;
  Expect("interrupted call", 0, quill_load_top_level_abook(book.load(), 0));
  Expect("call inside a call", QUILL_E_NESTED, nested);
}

// Opens a session whose keep-alive is due every ten milliseconds, and which the appliance keeps for
// a minute without one, in case the machine is under load. A slow machine may lose the first
// session within its login.
void StartSession() {
  SimulatorSeed();
  SimulatorSetWakeupPeriod(20);
  LogIn();
  SimulatorSetWakeupPeriod(60'000);
  LogIn();
}

int Run(double seconds) {
  StartSession();
  RunThreads(std::chrono::milliseconds(static_cast<std::int64_t>(seconds * 1000)));
  DeferKeepAlive();
  RefuseNestedCall();
  std::printf("quillkit_c in 8 threads: %d rounds, %d failures\n", rounds.load(), failures.load());
  return failures == 0 && rounds >= kWorkers ? 0 : 1;
}

}  // namespace
}  // namespace quillkit

int main(int count, char** arguments) {
  return quillkit::Run(count > 1 ? std::atof(arguments[1]) : 1);
}
