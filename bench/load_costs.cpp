// The cost of loading keys, lists and accounts compared with the server calls alone.
//
//   Load...           a second or later load
//   Load...ByHand     the same server calls into existing buffers
//   First...          a load into new objects, in memory that is new to the process
//   First...ByHand    the same server calls into newly allocated buffers, in such memory

#include <benchmark/benchmark.h>
#include <malloc.h>

#include <cstdlib>
#include <memory>
#include <vector>

#include "appliance/scanner.h"
#include "bench/ready_server.h"
#include "bench/session.h"
#include "books/email_ab.h"
#include "books/user_ab.h"
#include "bridge/imsp_api.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

struct Freed {
  void operator()(void* block) const { std::free(block); }
};

// Buffers of `size` records each, in one block, as a program without this library has them.
template <class Record>
class Buffers {
 public:
  Buffers(std::size_t count, std::size_t newSize)
      : size(newSize), records(static_cast<Record*>(std::malloc(count * size * sizeof(Record)))) {}

  Record* operator[](std::size_t index) { return records.get() + index * size; }

 private:
  std::size_t size;
  std::unique_ptr<Record, Freed> records;
};

// Measures a load into memory that is new to the process: returns the freed memory to the system
// after each load.
template <class Load>
void MeasureFirst(benchmark::State& state, Load load) {
  while (state.KeepRunning()) {
    load();
    state.PauseTiming();
    malloc_trim(0);
    state.ResumeTiming();
  }
}

// --- 11 keys of 512 items ---

void ReadKeys(Buffers<CMenuItem>& buffers) {
  static std::vector<EntryKey> names(kReadyKeys);
  ABIdent panel(BookKind::kTop, kTopBook);
  KeyRange range({}, "*");
  std::uint32_t count = kReadyKeys;
  Require(IMSPListABEntries(&panel, &range, names.data(), &count, 1) == 0, "IMSPListABEntries");
  for (std::size_t i = 0; i < count; ++i) {
    ABIdent key(BookKind::kKeyItems, names[i].name.View());
    std::uint32_t delivered = kReadyItems;
    CMenuItem* const items = buffers[i];
    Require(IMSPReadAB(&key, &range, items, &delivered, 1) == 0, "IMSPReadAB");
    benchmark::DoNotOptimize(items);
  }
}

void LoadKeysByHand(benchmark::State& state) {
  Buffers<CMenuItem> buffers(kReadyKeys, kReadyItems);
  ReadKeys(buffers);
  while (state.KeepRunning()) ReadKeys(buffers);
}

void FirstKeysByHand(benchmark::State& state) {
  MeasureFirst(state, [] {
    Buffers<CMenuItem> buffers(kReadyKeys, kReadyItems);
    ReadKeys(buffers);
  });
}

// Keys that are partly filled.
constexpr std::uint32_t kFewItems = 100;

void LoadSmallKeysByHand(benchmark::State& state) {
  ReadyServerSetItems(kFewItems);
  LoadKeysByHand(state);
  ReadyServerSetItems(kReadyItems);
}

void FillKeys(CTopLevelAB& book) {
  Require(book.Load(1) == kNoError && book.Count() == kReadyKeys, "Load");
}

void LoadKeys(benchmark::State& state) {
  CTopLevelAB book;
  book.Attach(Session(), 0);
  FillKeys(book);
  while (state.KeepRunning()) FillKeys(book);
}

void LoadSmallKeys(benchmark::State& state) {
  ReadyServerSetItems(kFewItems);
  LoadKeys(state);
  ReadyServerSetItems(kReadyItems);
}

void FirstKeys(benchmark::State& state) {
  Session();
  MeasureFirst(state, [] {
    CTopLevelAB book;
    book.Attach(Session(), 0);
    FillKeys(book);
  });
}

// --- 512 lists of 512 members ---

void ReadLists(Buffers<CEmailEntry>& buffers) {
  static std::vector<ABIdent> names(kReadyLists);
  ABIdent every(BookKind::kPublicList, {});
  KeyRange range({}, "*");
  std::uint32_t count = kReadyLists;
  Require(IMSPListAB(&every, &range, names.data(), &count, 1) == 0, "IMSPListAB");
  for (std::size_t i = 0; i < count; ++i) {
    std::uint32_t size = 0;
    Require(IMSPSizeofAB(&names[i], nullptr, &size) == 0, "IMSPSizeofAB");
    CEmailEntry* const members = buffers[i];
    Require(IMSPReadAB(&names[i], nullptr, members, &size, 1) == 0, "IMSPReadAB");
    benchmark::DoNotOptimize(members);
  }
}

void LoadListsByHand(benchmark::State& state) {
  Buffers<CEmailEntry> buffers(kReadyLists, kReadyMembers);
  ReadLists(buffers);
  while (state.KeepRunning()) ReadLists(buffers);
}

void FirstListsByHand(benchmark::State& state) {
  MeasureFirst(state, [] {
    Buffers<CEmailEntry> buffers(kReadyLists, kReadyMembers);
    ReadLists(buffers);
  });
}

void FillLists(CEmailAB& book) {
  Require(book.LoadLists(1) == kNoError, "LoadLists");
  Require(book.ListAt(kReadyLists - 1)->Count() == kReadyMembers, "the load");
}

void LoadLists(benchmark::State& state) {
  CEmailAB book;
  Require(book.Attach(Session(), 0) == 1, "Attach");
  FillLists(book);
  while (state.KeepRunning()) FillLists(book);
}

void FirstLists(benchmark::State& state) {
  Session();
  MeasureFirst(state, [] {
    CEmailAB book;
    Require(book.Attach(Session(), 0) == 1, "Attach");
    FillLists(book);
  });
}

// --- 4096 accounts ---

void ReadUsers(CUserEntry* users) {
  ABIdent book(BookKind::kUsers, kUsersBook);
  KeyRange range({}, {});
  std::uint32_t count = kReadyUsers;
  Require(IMSPReadAB(&book, &range, users, &count, 1) == 0, "IMSPReadAB");
  benchmark::DoNotOptimize(users);
}

void LoadUsersByHand(benchmark::State& state) {
  Buffers<CUserEntry> users(1, kReadyUsers);
  ReadUsers(users[0]);
  while (state.KeepRunning()) ReadUsers(users[0]);
}

void FirstUsersByHand(benchmark::State& state) {
  MeasureFirst(state, [] {
    Buffers<CUserEntry> users(1, kReadyUsers);
    ReadUsers(users[0]);
  });
}

void FillUsers(CUserAB& book) {
  Require(book.Load() == 1 && book.Count() == kReadyUsers, "Load");
}

void LoadUsers(benchmark::State& state) {
  CUserAB book;
  book.Attach(Session(), 0, 0);
  FillUsers(book);
  while (state.KeepRunning()) FillUsers(book);
}

void FirstUsers(benchmark::State& state) {
  Session();
  MeasureFirst(state, [] {
    CUserAB book;
    book.Attach(Session(), 0, 0);
    FillUsers(book);
  });
}

BENCHMARK(LoadKeys)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadKeysByHand)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadSmallKeys)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadSmallKeysByHand)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstKeys)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstKeysByHand)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadLists)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadListsByHand)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstLists)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstListsByHand)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadUsers)->Unit(benchmark::kMicrosecond);
BENCHMARK(LoadUsersByHand)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstUsers)->Unit(benchmark::kMicrosecond);
BENCHMARK(FirstUsersByHand)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
