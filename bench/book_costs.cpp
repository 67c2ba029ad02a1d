// The cost of loading whole books compared with the server calls alone. Each benchmark has a
// baseline.
//
//   LoadLists / LoadListsByHand    512 public lists of 512 members; by hand: the same 1025 server
//                                  calls into one block per list
//   ReadListsIntoOneBuffer         the same calls into one buffer that is reused
//   LoadUsers / LoadUsersByHand    4096 accounts; by hand: the same read

#include <benchmark/benchmark.h>

#include <array>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "books/user_ab.h"
#include "bridge/imsp_api.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kMembers = MaxListMembers;

void Require(bool condition, const char* what) {
  if (condition) return;
  std::fprintf(stderr, "%s failed: status %d\n", what, TheAgent.LastError());
  std::exit(1);
}

std::string Numbered(const char* word, std::uint32_t number) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%s %04u", word, number);
  return text.data();
}

void FillLists() {
  CEmailEntry member;
  member.SetAddress("somebody@example.org");
  for (std::uint32_t list = 0; list < MaxPublicLists; ++list) {
    for (std::uint32_t i = 0; i < kMembers; ++i) {
      member.SetName(Numbered("Member", i));
      SimulatorPutEntry(BookKind::kPublicList, Numbered("List", list).c_str(), nullptr, &member);
    }
  }
}

void FillUsers() {
  CUserEntry user;
  for (std::int32_t i = SimulatorBookSize(BookKind::kUsers, "", nullptr); i < MaxUsers; ++i) {
    user.SetName(Numbered("User", static_cast<std::uint32_t>(i)));
    SimulatorPutEntry(BookKind::kUsers, "", nullptr, &user);
  }
}

// A session on an appliance whose books are full.
CScanner* FullAppliance() {
  static CScanner* const box = [] {
    SimulatorReset();
    Require(TheAgent.LoadServerLibrary() == kNoError, "LoadServerLibrary");
    CScanner* logged = LogToQuillbox("127.0.0.1", "ADMINISTRATOR", "quill", "", 0);
    Require(logged != nullptr, "LogToQuillbox");
    FillLists();
    FillUsers();
    return logged;
  }();
  return box;
}

// Reads every list, each into the room that `roomFor` gives for its number of members.
template <class RoomFor>
void ReadLists(std::vector<ABIdent>& names, RoomFor roomFor) {
  ABIdent every(BookKind::kPublicList, {});
  KeyRange range({}, "*");
  std::uint32_t count = MaxPublicLists;
  Require(IMSPListAB(&every, &range, names.data(), &count, 1) == 0, "IMSPListAB");
  for (std::size_t i = 0; i < count; ++i) {
    std::uint32_t size = 0;
    Require(IMSPSizeofAB(&names[i], nullptr, &size) == 0, "IMSPSizeofAB");
    Require(IMSPReadAB(&names[i], nullptr, roomFor(i, size), &size, 1) == 0, "IMSPReadAB");
  }
}

void ReadListsIntoOneBuffer(benchmark::State& state) {
  FullAppliance();
  std::vector<ABIdent> names(MaxPublicLists);
  std::vector<CEmailEntry> members(kMembers);
  while (state.KeepRunning()) {
    ReadLists(names, [&](std::size_t, std::uint32_t) { return members.data(); });
  }
}
BENCHMARK(ReadListsIntoOneBuffer)->Unit(benchmark::kMillisecond);

struct Freed {
  void operator()(void* block) const { std::free(block); }
};

void LoadListsByHand(benchmark::State& state) {
  FullAppliance();
  std::vector<ABIdent> names(MaxPublicLists);
  std::vector<std::unique_ptr<void, Freed>> lists(MaxPublicLists);
  while (state.KeepRunning()) {
    for (auto& each : lists) each.reset();
    ReadLists(names, [&](std::size_t list, std::uint32_t size) {
      lists[list].reset(std::malloc(size * sizeof(CEmailEntry)));
      return lists[list].get();
    });
  }
}
BENCHMARK(LoadListsByHand)->Unit(benchmark::kMillisecond);

void LoadLists(benchmark::State& state) {
  CEmailAB book;
  Require(book.Attach(FullAppliance(), 0) == 1, "Attach");
  while (state.KeepRunning()) Require(book.LoadLists(1) == kNoError, "LoadLists");
  Require(book.ListAt(MaxPublicLists - 1)->Count() == MaxListMembers, "the load");
}
BENCHMARK(LoadLists)->Unit(benchmark::kMillisecond);

void LoadUsersByHand(benchmark::State& state) {
  FullAppliance();
  std::vector<CUserEntry> users(MaxUsers);
  while (state.KeepRunning()) {
    ABIdent book(BookKind::kUsers, kUsersBook);
    KeyRange range({}, {});
    std::uint32_t count = MaxUsers;
    Require(IMSPReadAB(&book, &range, users.data(), &count, 1) == 0, "IMSPReadAB");
    benchmark::DoNotOptimize(users.data());
  }
}
BENCHMARK(LoadUsersByHand)->Unit(benchmark::kMicrosecond);

void LoadUsers(benchmark::State& state) {
  CUserAB book;
  book.Attach(FullAppliance(), 0, 0);
  while (state.KeepRunning()) Require(book.Load() == 1, "Load");
  Require(book.Count() == MaxUsers, "the load");
}
BENCHMARK(LoadUsers)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace quillkit

BENCHMARK_MAIN();
