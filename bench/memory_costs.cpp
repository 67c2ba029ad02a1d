// What the library holds and allocates, one count a line:
//
//   step allocations     of 94 steps within the span of a view
//   view bytes           of a sliding view of 16 entries a page, after a walk, jumps and a search
//   keys bytes           of 11 keys of 512 items
//   keys reload bytes    allocated by a second load, also if freed again
//   keys growth bytes    of the process in 10,000 further loads
//
// "lists" and "accounts" have the same rows as "keys": 512 lists of 512 members, and 4096 accounts.

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <string>

#include "appliance/scanner.h"
#include "bench/counted_memory.h"
#include "bench/ready_server.h"
#include "bench/session.h"
#include "books/email_ab.h"
#include "books/user_ab.h"
#include "softkeys/top_level_ab.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPageSize = 16;
constexpr int kLoads = 10'000;

void Print(const char* what, const char* unit, long long count) {
  std::printf("%s %s %lld\n", what, unit, count);
}

// The memory of the process in RAM, in bytes.
long long Resident() {
  std::ifstream status("/proc/self/status");
  for (std::string word; status >> word;) {
    long long kibibytes = 0;
    if (word == "VmRSS:" && status >> kibibytes) return kibibytes * 1024;
  }
  return 0;
}

void CountView() {
  CEmailAB book;
  Require(book.Attach(Session(), 0) == 1, "Attach");
  Require(book.First() != nullptr, "First");
  const std::size_t before = CountHeap().allocations;
  for (std::int32_t i = 1; i < 3 * kPageSize; ++i) Require(book.Next() != nullptr, "Next");
  for (std::int32_t i = 1; i < 3 * kPageSize; ++i) Require(book.Prev() != nullptr, "Prev");
  Print("step", "allocations", static_cast<long long>(CountHeap().allocations - before));

  const std::size_t held = CountHeap().bytes;
  CSlidingEntryView view(kPageSize);
  view.AttachBook(&book);
  view.First();
  for (std::int32_t i = 0; i < 10 * kPageSize; ++i) view.Next();
  view.GetAt(kReadyEntries / 2);
  view.FindPrefix("qq");
  const std::size_t total = CountHeap().bytes - held + sizeof view;
  Print("view", "bytes", static_cast<long long>(total));
}

template <class Load>
void CountLoads(const std::string& what, Load load) {
  const std::size_t before = CountHeap().bytes;
  load();
  Print(what.c_str(), "bytes", static_cast<long long>(CountHeap().bytes - before));

  const std::size_t allocated = CountHeap().allocated;
  load();
  Print((what + " reload").c_str(), "bytes",
        static_cast<long long>(CountHeap().allocated - allocated));

  const long long resident = Resident();
  for (int i = 0; i < kLoads; ++i) load();
  Print((what + " growth").c_str(), "bytes", Resident() - resident);
}

void LoadKeys(CTopLevelAB& book) {
  book.Attach(Session(), 0);
  Require(book.Load(1) == kNoError, "Load");
}

void LoadLists(CEmailAB& book) {
  Require(book.Attach(Session(), 0) == 1 && book.LoadLists(1) == kNoError, "LoadLists");
}

void LoadUsers(CUserAB& book) {
  book.Attach(Session(), 0, 0);
  Require(book.Load() == 1, "Load");
}

template <class Book>
void CountLoads(const char* what, void (*load)(Book&)) {
  Book other;
  load(other);  // fills the tables of the ready server
  Book book;
  CountLoads(what, [&] { load(book); });
}

void CountAll() {
  CountView();
  CountLoads("keys", LoadKeys);
  CountLoads("lists", LoadLists);
  CountLoads("accounts", LoadUsers);
}

}  // namespace
}  // namespace quillkit

int main() {
  quillkit::CountAll();
  return 0;
}
