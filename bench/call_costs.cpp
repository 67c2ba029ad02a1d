// The cost of an exported getter compared with reading the field, in the shared library as an
// application calls it.

#include <benchmark/benchmark.h>

#include <memory>

#include "bench/session.h"
#include "bridge/records.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

void ReadSettings(benchmark::State& state) {
  auto item = std::make_unique<CMenuItem>();
  CMenuItem* record = item.get();
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(record);
    benchmark::DoNotOptimize(record->settings);
  }
}
BENCHMARK(ReadSettings);

void GetSettings(benchmark::State& state) {
  auto item = std::make_unique<CMenuItem>();
  Session();  // starts the timer, which every exported function checks
  while (state.KeepRunning()) benchmark::DoNotOptimize(Settings(item.get()));
}
BENCHMARK(GetSettings);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
