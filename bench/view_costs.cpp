// The cost of reading a book of 200,000 entries through the sliding view.
//
//   WalkBook / ReadBookByHand   every entry in order; by hand: the same reads into one existing
//                               buffer; counts the reads of one walk
//   StepInSpan                  one step within the span; counts its calls and allocations
//   JumpToIndex                 GetAt with random indexes; counts the most reads of one jump
//   HoldView                    counts the bytes of a view after a walk and jumps

#include <benchmark/benchmark.h>

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <random>
#include <string_view>

#include "appliance/scanner.h"
#include "bench/counted_memory.h"
#include "books/email_ab.h"
#include "bridge/imsp_api.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "toolkit/quillkit.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPageSize = 16;

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "%s failed: status %d\n", what, TheAgent.LastError());
  std::exit(1);
}

// An appliance whose e-mail book is full, with names on every letter.
CScanner* FullAppliance() {
  static CScanner* const box = [] {
    SimulatorReset();
    for (std::int32_t i = 0; i < MaxEmailEntries; ++i) {
      std::array<char, 32> text{};
      std::snprintf(text.data(), text.size(), "%c%c%06d", 'a' + i % 26, 'a' + i / 26 % 26, i);
      CEmailEntry entry;
      entry.SetName(text.data());
      entry.SetAddress("somebody@quillbox.example");
      SimulatorPutEntry(BookKind::kEmail, nullptr, nullptr, &entry);
    }
    TheAgent.LoadServerLibrary();
    CScanner* scanner = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
    Require(scanner != nullptr, "LogToQuillbox");
    return scanner;
  }();
  return box;
}

// A book as a scanner opens it: with a sliding view of 16 a page.
CEmailAB* FullBook() {
  static CEmailAB book;
  Require(book.Scanner() != nullptr || book.Attach(FullAppliance(), 0) == 1, "Attach");
  return &book;
}

// The recorded calls of `work` whose text begins with `entry`.
template <class Work>
std::int32_t CountCalls(std::string_view entry, Work work) {
  SimulatorClearJournal();
  SimulatorRecordCalls(1);
  work();
  SimulatorRecordCalls(0);
  std::int32_t count = 0;
  for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
    count += std::string_view(SimulatorCallText(i)).starts_with(entry) ? 1 : 0;
  }
  SimulatorClearJournal();
  return count;
}

std::int32_t Walk(CEmailAB* book) {
  std::int32_t entries = 0;
  for (const CEmailEntry* entry = book->First(); entry != nullptr; entry = book->Next()) {
    benchmark::DoNotOptimize(entry->flags);
    ++entries;
  }
  return entries;
}

std::int32_t WalkByHand() {
  std::array<CEmailEntry, kPageSize> page;
  ABIdent book(BookKind::kEmail, kEmailBook);
  KeyRange range;
  std::int32_t entries = 0;
  for (;;) {
    std::uint32_t count = kPageSize;
    IMSPReadAB(&book, &range, page.data(), &count, 1);
    if (count == 0) return entries;
    for (std::uint32_t i = 0; i < count; ++i) benchmark::DoNotOptimize(page[i].flags);
    entries += static_cast<std::int32_t>(count);
    range.first = page[count - 1].name;
  }
}

void ReadBookByHand(benchmark::State& state) {
  FullBook();
  while (state.KeepRunning()) Require(WalkByHand() == MaxEmailEntries, "the walk by hand");
}
BENCHMARK(ReadBookByHand)->Unit(benchmark::kMillisecond);

void WalkBook(benchmark::State& state) {
  CEmailAB* book = FullBook();
  const std::int32_t calls = CountCalls("", [&] { Walk(book); });
  const std::int32_t reads = CountCalls("IMSPReadAB 1:EMAILAB ", [&] { Walk(book); });
  Require(calls == reads, "a walk that makes reads alone");
  while (state.KeepRunning()) Require(Walk(book) == MaxEmailEntries, "the walk");
  state.counters["reads"] = reads;
}
BENCHMARK(WalkBook)->Unit(benchmark::kMillisecond);

void StepInSpan(benchmark::State& state) {
  CEmailAB* book = FullBook();
  Require(book->First() != nullptr, "First");
  const auto thereAndBack = [&] {
    for (std::int32_t i = 1; i < 3 * kPageSize; ++i) benchmark::DoNotOptimize(book->Next());
    for (std::int32_t i = 1; i < 3 * kPageSize; ++i) benchmark::DoNotOptimize(book->Prev());
  };
  state.counters["calls"] = CountCalls("", thereAndBack);
  const std::size_t before = CountHeap().allocations;
  thereAndBack();
  state.counters["allocations"] = static_cast<double>(CountHeap().allocations - before);
  while (state.KeepRunningBatch(6 * kPageSize - 2)) thereAndBack();
}
BENCHMARK(StepInSpan);

void JumpToIndex(benchmark::State& state) {
  CEmailAB* book = FullBook();
  std::mt19937 random(1);
  const auto jump = [&] {
    const auto index = static_cast<std::int32_t>(random() % MaxEmailEntries);
    Require(book->GetAt(index) != nullptr, "GetAt");
  };
  std::int32_t most = 0;
  for (int i = 0; i < 1000; ++i) most = std::max(most, CountCalls("IMSPReadAB ", jump));
  for (const std::int32_t edge : {0, MaxEmailEntries - 1}) {
    most = std::max(most, CountCalls("IMSPReadAB ", [&] { book->GetAt(edge); }));
  }
  while (state.KeepRunning()) jump();
  state.counters["reads"] = most;
}
BENCHMARK(JumpToIndex)->Unit(benchmark::kMicrosecond);

void HoldView(benchmark::State& state) {
  CEmailAB* book = FullBook();
  while (state.KeepRunning()) {
    const std::size_t before = CountHeap().bytes;
    CSlidingEntryView view(kPageSize);
    view.AttachBook(book);
    view.First();
    for (std::int32_t i = 0; i < 10 * kPageSize; ++i) view.Next();
    view.GetAt(MaxEmailEntries / 2);
    view.FindPrefix("qq");
    state.counters["bytes"] =
        static_cast<double>(CountHeap().bytes - before + sizeof(CSlidingEntryView));
  }
}
BENCHMARK(HoldView)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
