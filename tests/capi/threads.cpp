// quillkit_c from eight threads at once, on the simulated appliance.
//
// usage: quillkit_c_threads [SECONDS]      one second if none are given
//
// One thread logs in again and again and keeps the session alive; the seven others each change a
// soft key of their own and read the shared ones. What a call gives is what it would give alone,
// except that a handle may have ended by a login or a reload of another thread. In the middle the
// process forks.

#include <array>
#include <atomic>
#include <chrono>
#include <cinttypes>
#include <cstdio>
#include <cstdlib>
#include <cstring>
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
  Expect("login", 1, quill_log_to_quillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1, &box));
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
    const std::int32_t found = quill_load_items(keys, name.c_str(), &key);
    return found == 1 ? call(key) : found;
  });
}

// An item of this thread's own, which carries the text that was stored.
void UseItem(const std::string& text, quill_handle item) {
  std::array<char, 128> buffer = {};
  auto size = static_cast<std::uint32_t>(buffer.size());
  Expect("set path", 1, quill_set_path(item, text.c_str()));
  Expect("path", 1, quill_path(item, buffer.data(), &size));
  Expect("text of the path", 0, std::strcmp(buffer.data(), text.c_str()));
}

void ReadSharedKeys() {
  quill_handle key = 0;
  std::array<char, 32> name = {};
  for (std::int32_t i = 0; quill_get_key_at(book.load(), i, &key) == 1; ++i) {
    auto size = static_cast<std::uint32_t>(name.size());
    const std::int32_t result = quill_get_key_name(key, name.data(), &size);
    if (result != QUILL_E_STALE) Expect("name of a shared key", 1, result);
  }
}

// A soft key from its making to its end, beside those of the others.
void ChangeKey(const std::string& name) {
  quill_handle item = 0;
  std::uint32_t count = 0;
  Expect("create item", 1, quill_create_menu_item(&item));
  Expect("add key", 0,
         OnLiveBook([&](quill_handle keys) { return quill_add_key(keys, name.c_str(), 1); }));
  for (int i = 0; i < kItems; ++i) {
    const std::string text = name + " " + std::to_string(i);
    UseItem(text, item);
    Expect("set name", 1, quill_set_name(item, text.c_str()));
    Expect("add item", 0, OnLiveKey(name, [&](quill_handle key) {
             return quill_add_menu_item(key, item, i % 2);
           }));
    ReadSharedKeys();
  }
  Expect("count items", 0,
         OnLiveKey(name, [&](quill_handle key) { return quill_get_db_item_count(key, &count); }));
  Expect("items", kItems, count);
  Expect("delete key", 0,
         OnLiveBook([&](quill_handle keys) { return quill_delete_key(keys, name.c_str(), 1); }));
  Expect("destroy item", 1, quill_destroy_menu_item(item));
  Expect("item after its end", QUILL_E_STALE, quill_destroy_menu_item(item));
}

// What a forked child sees: 0 if each call is refused. The door is locked there if a thread of the
// parent was inside.
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

// The keep-alive falls due again and again while a call of another thread is inside. Its own thread
// does not wait, and it is sent after that call.
void DeferKeepAlive() {
  std::atomic<bool> isInside = false;
  SimulatorRecordCalls(1);
  SimulatorSetLatency(1000);
  std::thread caller([&] {
    isInside = true;
    Expect("slow call", 0, quill_load_top_level_abook(book.load(), 0));
    isInside = false;
  });
  while (!isInside) std::this_thread::yield();
  std::this_thread::sleep_for(std::chrono::milliseconds(200));
  int due = 0;
  while (isInside && due < 2) {
    const int run = DispatchTimers();
    if (isInside) due += run;
  }
  caller.join();
  SimulatorSetLatency(0);
  Expect("the thread goes on while another one calls", 1, due >= 2 ? 1 : 0);
  const char* last = SimulatorCallText(SimulatorCallCount() - 1);
  Expect("the last call is the keep-alive", 0,
         last != nullptr ? std::strcmp("IMSPWakeup", last) : 1);
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

// A session whose keep-alive falls due every ten milliseconds, on an appliance that does without
// it: a machine under load is not silent for long.
void StartSession() {
  SimulatorSeed();
  SimulatorSetWakeupPeriod(20);
  LogIn();
  SimulatorSetWakeupPeriod(60'000);
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
