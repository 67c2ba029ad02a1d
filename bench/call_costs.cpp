// The cost that the library adds to its server calls. Each benchmark has a baseline.
//
//   LoadKeys / LoadKeysByHand      11 keys of 512 items; by hand: the same 12 server calls into
//                                  existing buffers
//   GetSettings / ReadSettings     an exported getter; by hand: reading the field

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "bridge/imsp_api.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr std::int32_t kKeys = 11;
constexpr std::int32_t kItems = 512;

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "%s failed: status %d\n", what, GetLastToolkitError());
  std::exit(1);
}

std::string Numbered(const char* word, std::int32_t number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%s %03d", word, number);
  return text.data();
}

// A session whose appliance holds 11 keys of 512 items and nothing else under its front panel.
CTopLevelAB* FullPanel() {
  static CTopLevelAB* const panel = [] {
    CScanner* box = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 1);
    Require(box != nullptr, "LogToQuillbox");
    CTopLevelAB* book = GetTopLevelAbook(box);
    while (GetCount(book) > 0) {
      Require(DeleteKey(book, GetKeyName(GetKeyAt(book, 0)), 1) == 0, "DeleteKey");
    }
    CMenuItem* item = nullptr;
    Require(CreateMenuItem(&item) == 1, "CreateMenuItem");
    for (std::int32_t key = 0; key < kKeys; ++key) {
      Require(AddKey(book, Numbered("Key", key), 1) == 0, "AddKey");
      CSoftKey* added = GetKeyAt(book, key);
      for (std::int32_t i = 0; i < kItems; ++i) {
        SetName(item, Numbered("Item", i));
        Require(FastItemAdd(added, item) == i + 1, "FastItemAdd");
      }
    }
    DestroyMenuItem(item);
    return book;
  }();
  return panel;
}

void LoadKeysByHand(benchmark::State& state) {
  FullPanel();
  std::array<EntryKey, kKeys> names;
  std::vector<std::vector<CMenuItem>> items(kKeys, std::vector<CMenuItem>(kItems));
  while (state.KeepRunning()) {
    ABIdent panel(BookKind::kTop, {});
    KeyRange range({}, "*");
    std::uint32_t count = kKeys;
    Require(IMSPListABEntries(&panel, &range, names.data(), &count, 1) == 0, "IMSPListABEntries");
    for (std::size_t i = 0; i < count; ++i) {
      ABIdent key(BookKind::kKeyItems, names[i].name.View());
      std::uint32_t delivered = kItems;
      Require(IMSPReadAB(&key, &range, items[i].data(), &delivered, 1) == 0, "IMSPReadAB");
      benchmark::DoNotOptimize(items[i].data());
    }
  }
}
BENCHMARK(LoadKeysByHand)->Unit(benchmark::kMicrosecond);

void LoadKeys(benchmark::State& state) {
  CTopLevelAB* book = FullPanel();
  while (state.KeepRunning()) {
    Require(LoadTopLevelAbook(book, 1) == 0, "LoadTopLevelAbook");
  }
  Require(GetCount(book) == kKeys && GetItemCount(GetKeyAt(book, kKeys - 1)) == kItems, "the load");
}
BENCHMARK(LoadKeys)->Unit(benchmark::kMicrosecond);

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
  FullPanel();  // a session, whose timer every exported function looks at
  while (state.KeepRunning()) {
    benchmark::DoNotOptimize(Settings(item.get()));
  }
}
BENCHMARK(GetSettings);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
