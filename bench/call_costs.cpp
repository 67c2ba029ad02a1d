// The cost of an exported getter compared with reading the field, in the shared library as an
// application calls it.

#include <benchmark/benchmark.h>

#include <memory>

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
  // Starts the timer, which every exported function checks.
  CScanner* scanner = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
  if (scanner == nullptr) state.SkipWithError("LogToQuillbox failed");
  while (state.KeepRunning()) benchmark::DoNotOptimize(Settings(item.get()));
}
BENCHMARK(GetSettings);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
