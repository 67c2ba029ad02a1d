// The cost of reading the e-mail book through a sliding view of 16 entries a page.
//
//   WalkBook         every entry in order
//   WalkBookByHand   the same reads into one buffer, each after the look-up of the entry point by
//                    name that the library makes
//   WalkBookLinked   the same without look-ups
//   StepInSpan       one step within the span
//
// The other rows measure one operation on a book of the size after the slash: its time, and its
// server calls ("calls").

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>
#include <random>
#include <string>

#include "appliance/scanner.h"
#include "bench/ready_server.h"
#include "bench/session.h"
#include "books/email_ab.h"
#include "bridge/imsp_api.h"
#include "platform/module.h"
#include "views/letter_entry_view.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPageSize = 16;
constexpr std::int32_t kSpan = 3 * kPageSize;
constexpr auto kEntries = static_cast<std::int32_t>(kReadyEntries);

// Returns the e-mail book with `size` entries, opened with a sliding view of its own.
CEmailAB* Book(std::int32_t size) {
  static CEmailAB book;
  static std::int32_t current = 0;
  if (current != size) {
    ReadyServerSetEntries(static_cast<std::uint32_t>(size));
    Require(book.Attach(Session(), 0) == 1, "Attach");  // drops the old census
  }
  current = size;
  return &book;
}

std::int32_t Walk(CEmailAB* book) {
  std::int32_t entries = 0;
  for (const CEmailEntry* entry = book->First(); entry != nullptr; entry = book->Next()) {
    benchmark::DoNotOptimize(entry->flags);
    ++entries;
  }
  return entries;
}

// `findRead` returns IMSPReadAB.
template <class FindRead>
std::int32_t WalkByHand(FindRead findRead) {
  std::array<CEmailEntry, kPageSize> page;
  ABIdent book(BookKind::kEmail, kEmailBook);
  KeyRange range;
  std::int32_t entries = 0;
  for (;;) {
    std::uint32_t count = kPageSize;
    findRead()(&book, &range, page.data(), &count, 1);
    if (count == 0) return entries;
    for (std::uint32_t i = 0; i < count; ++i) benchmark::DoNotOptimize(page[i].flags);
    entries += static_cast<std::int32_t>(count);
    range.first = page[count - 1].name;
  }
}

void WalkBookByHand(benchmark::State& state) {
  Book(kEntries);
  ModuleHandle server = LoadModule("IMSPAPI");
  const auto find = [server] {
    return reinterpret_cast<decltype(IMSPReadAB)*>(FindEntryPoint(server, "IMSPReadAB"));
  };
  while (state.KeepRunning()) Require(WalkByHand(find) == kEntries, "the walk by hand");
  UnloadModule(server);
}
BENCHMARK(WalkBookByHand)->Unit(benchmark::kMillisecond);

void WalkBookLinked(benchmark::State& state) {
  Book(kEntries);
  const auto find = [] { return &IMSPReadAB; };
  while (state.KeepRunning()) Require(WalkByHand(find) == kEntries, "the linked walk");
}
BENCHMARK(WalkBookLinked)->Unit(benchmark::kMillisecond);

void WalkBook(benchmark::State& state) {
  CEmailAB* book = Book(kEntries);
  const std::uint64_t calls = ReadyServerCalls();
  const std::uint64_t reads = ReadyServerReads();
  Walk(book);
  Require(ReadyServerCalls() - calls == ReadyServerReads() - reads, "a walk that only reads");
  state.counters["reads"] = static_cast<double>(ReadyServerReads() - reads);
  while (state.KeepRunning()) Require(Walk(book) == kEntries, "the walk");
}
BENCHMARK(WalkBook)->Unit(benchmark::kMillisecond);

void StepInSpan(benchmark::State& state) {
  CEmailAB* book = Book(kEntries);
  Require(book->First() != nullptr, "First");
  const std::uint64_t calls = ReadyServerCalls();
  while (state.KeepRunningBatch(2 * kSpan - 2)) {
    for (std::int32_t i = 1; i < kSpan; ++i) benchmark::DoNotOptimize(book->Next());
    for (std::int32_t i = 1; i < kSpan; ++i) benchmark::DoNotOptimize(book->Prev());
  }
  Require(ReadyServerCalls() == calls, "steps without a call");
}
BENCHMARK(StepInSpan);

// --- Growth with the size of the book ---

CEmailAB* BookOf(const benchmark::State& state) {
  return Book(static_cast<std::int32_t>(state.range(0)));
}

// Measures `operation`, which receives an index between 0 and the size.
template <class Operation>
void Measure(benchmark::State& state, Operation operation) {
  const auto size = static_cast<std::int32_t>(state.range(0));
  std::minstd_rand random(1);
  std::uint64_t operations = 0;
  const std::uint64_t calls = ReadyServerCalls();
  while (state.KeepRunning()) {
    operation(static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(size)));
    ++operations;
  }
  const std::uint64_t each = (ReadyServerCalls() - calls) / operations;
  state.counters["calls"] = static_cast<double>(each);
}

void OpenBook(benchmark::State& state) {
  BookOf(state);
  Measure(state, [](std::int32_t) {
    CEmailAB opened;
    Require(opened.Attach(Session(), 0) == 1, "Attach");
  });
}

void FirstEntry(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t) { Require(book->First() != nullptr, "First"); });
}

void LastEntry(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t) { Require(book->Last() != nullptr, "Last"); });
}

void NextSpan(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t) {
    for (std::int32_t i = 0; i < kSpan; ++i) {
      if (book->Next() == nullptr) Require(book->First() != nullptr, "First");
    }
  });
}

void EntryAtIndex(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t index) { Require(book->GetAt(index) != nullptr, "GetAt"); });
}

void FindName(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  std::array<std::string, 64> names;
  std::minstd_rand random(2);
  for (std::string& each : names) {
    const auto index =
        static_cast<std::int32_t>(random() % static_cast<std::uint32_t>(state.range(0)));
    const CEmailEntry* entry = book->GetAt(index);
    Require(entry != nullptr, "GetAt");
    each = entry->name.View();
  }
  Measure(state, [&](std::int32_t index) {
    const std::string& name = names[static_cast<std::size_t>(index) % names.size()];
    Require(book->Find(name, 1) != nullptr, "Find");
  });
}

void FindLetter(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state, [&](std::int32_t index) {
    Require(book->FindLetter(static_cast<char>('a' + index % 26)) != nullptr, "FindLetter");
  });
}

void ReadCensus(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  Measure(state,
          [&](std::int32_t) { Require(book->View()->LoadBoundaries(1) == 0, "LoadBoundaries"); });
}

void ReadLetter(benchmark::State& state) {
  CEmailAB* book = BookOf(state);
  CLetterEntryView view;
  view.AttachBook(book);
  Measure(state, [&](std::int32_t index) {
    Require(view.FindLetter(static_cast<char>('a' + index % 26)) != nullptr, "FindLetter");
  });
}

void Sizes(benchmark::internal::Benchmark* row) {
  row->Arg(1'000)->Arg(20'000)->Arg(kEntries);
}
BENCHMARK(OpenBook)->Apply(Sizes);
BENCHMARK(FirstEntry)->Apply(Sizes);
BENCHMARK(LastEntry)->Apply(Sizes);
BENCHMARK(NextSpan)->Apply(Sizes);
BENCHMARK(EntryAtIndex)->Apply(Sizes);
BENCHMARK(FindName)->Apply(Sizes);
BENCHMARK(FindLetter)->Apply(Sizes);
BENCHMARK(ReadCensus)->Apply(Sizes);
BENCHMARK(ReadLetter)->Apply(Sizes);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
