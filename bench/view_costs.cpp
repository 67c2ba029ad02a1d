// The cost of reading the e-mail book through a sliding view of 16 entries a page.
//
//   WalkBook         every entry in order, reading its flags
//   WalkBookByHand   the same reads into one buffer, each after the look-up of the entry point by
//                    name that the library makes
//   WalkBookLinked   the same without look-ups
//   StepInSpan       one step within the span

#include <benchmark/benchmark.h>

#include <array>
#include <cstdint>

#include "appliance/scanner.h"
#include "bench/ready_server.h"
#include "bench/session.h"
#include "books/email_ab.h"
#include "bridge/imsp_api.h"
#include "platform/module.h"

namespace quillkit {
namespace {

constexpr std::int32_t kPageSize = 16;
constexpr std::int32_t kSpan = 3 * kPageSize;
constexpr auto kEntries = static_cast<std::int32_t>(kReadyEntries);

CEmailAB* Book() {
  static CEmailAB book;
  static const bool isOpen = book.Attach(Session(), 0) == 1;
  Require(isOpen, "Attach");
  return &book;
}

std::int32_t Walk(CEmailAB* book) {
  std::int32_t entries = 0;
  std::int32_t flags = 0;
  for (const CEmailEntry* entry = book->First(); entry != nullptr; entry = book->Next()) {
    flags |= entry->flags;
    ++entries;
  }
  benchmark::DoNotOptimize(flags);
  return entries;
}

// `findRead` returns IMSPReadAB.
template <class FindRead>
std::int32_t WalkByHand(FindRead findRead) {
  std::array<CEmailEntry, kPageSize> page;
  ABIdent book(BookKind::kEmail, kEmailBook);
  KeyRange range;
  std::int32_t entries = 0;
  std::int32_t flags = 0;
  for (;;) {
    std::uint32_t count = kPageSize;
    findRead()(&book, &range, page.data(), &count, 1);
    if (count == 0) break;
    for (std::uint32_t i = 0; i < count; ++i) flags |= page[i].flags;
    entries += static_cast<std::int32_t>(count);
    range.first = page[count - 1].name;
  }
  benchmark::DoNotOptimize(flags);
  return entries;
}

void WalkBookByHand(benchmark::State& state) {
  Book();
  ModuleHandle server = LoadModule("IMSPAPI");
  const auto find = [server] {
    return reinterpret_cast<decltype(IMSPReadAB)*>(FindEntryPoint(server, "IMSPReadAB"));
  };
  while (state.KeepRunning()) Require(WalkByHand(find) == kEntries, "the walk by hand");
  UnloadModule(server);
}
BENCHMARK(WalkBookByHand)->Unit(benchmark::kMillisecond);

void WalkBookLinked(benchmark::State& state) {
  Book();
  const auto find = [] { return &IMSPReadAB; };
  while (state.KeepRunning()) Require(WalkByHand(find) == kEntries, "the linked walk");
}
BENCHMARK(WalkBookLinked)->Unit(benchmark::kMillisecond);

void WalkBook(benchmark::State& state) {
  CEmailAB* book = Book();
  const std::uint64_t calls = ReadyServerCalls();
  const std::uint64_t reads = ReadyServerReads();
  Walk(book);
  Require(ReadyServerCalls() - calls == ReadyServerReads() - reads, "a walk that only reads");
  state.counters["reads"] = static_cast<double>(ReadyServerReads() - reads);
  while (state.KeepRunning()) Require(Walk(book) == kEntries, "the walk");
}
BENCHMARK(WalkBook)->Unit(benchmark::kMillisecond);

void StepInSpan(benchmark::State& state) {
  CEmailAB* book = Book();
  Require(book->First() != nullptr, "First");
  const std::uint64_t calls = ReadyServerCalls();
  while (state.KeepRunningBatch(2 * kSpan - 2)) {
    for (std::int32_t i = 1; i < kSpan; ++i) benchmark::DoNotOptimize(book->Next());
    for (std::int32_t i = 1; i < kSpan; ++i) benchmark::DoNotOptimize(book->Prev());
  }
  Require(ReadyServerCalls() == calls, "steps without a call");
}
BENCHMARK(StepInSpan);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
