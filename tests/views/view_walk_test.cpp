// Random walks: every view does what the plain model of it does, call by call; and it gives null or
// an entry that is whole, whatever a server that lies may deliver. The sanitizers watch what is
// read.

#include <algorithm>
#include <random>
#include <string>
#include <tuple>
#include <type_traits>
#include <vector>

#include "books/email_ab.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/views/generated_book.h"
#include "tests/views/model_full.h"
#include "tests/views/model_letter.h"
#include "tests/views/model_sliding.h"
#include "tests/views/random_step.h"
#include "tests/views/view_probes.h"

namespace quillkit {
namespace {

constexpr std::size_t kSizes[] = {0, 1, 2, 15, 16, 17, 20, 40, 48, 49, 512, 513};
constexpr int kSteps = 200;
constexpr int kLyingSteps = 60;
constexpr std::uint32_t kAllLies = 63;
constexpr Status kFailures[] = {4, 11, 19, 21};

enum class Kind { kSliding16, kSliding5, kSliding1, kLetter, kFull };

std::int32_t PageSize(Kind kind) {
  return kind == Kind::kSliding16 ? 16 : kind == Kind::kSliding5 ? 5 : 1;
}

using Transcript = std::vector<std::string>;

class ViewWalkTest : public ApplianceTest,
                     public testing::WithParamInterface<std::tuple<Kind, BookStyle>> {
 protected:
  ViewWalkTest() { book.Attach(LogIn(), 0); }

  // Walks through a book of these entries: what each step gave, its calls, and where that led.
  template <class View>
  Transcript Walk(View&& view, const Entries& entries, std::uint32_t seed, int steps);

  // The same with what stands for each kind of view.
  template <class Sliding, class Letter, class Full>
  Transcript WalkAs(Kind kind, const Entries& entries, std::uint32_t seed, int steps) {
    if (kind == Kind::kLetter) return Walk(Letter(), entries, seed, steps);
    if (kind == Kind::kFull) return Walk(Full(), entries, seed, steps);
    return Walk(Sliding(PageSize(kind)), entries, seed, steps);
  }

  CEmailAB book;
};

// Arms a fault now and then.
void MaybeFail(std::mt19937& random) {
  if (random() % 25 != 0) return;
  const auto occurrence = static_cast<std::int32_t>(1 + random() % 4);
  SimulatorFail(nullptr, occurrence, kFailures[random() % std::size(kFailures)]);
}

template <class View>
Transcript ViewWalkTest::Walk(View&& view, const Entries& entries, std::uint32_t seed, int steps) {
  std::mt19937 random(seed);
  PutBook(entries);
  Entries known = entries;  // and names that steps may have brought
  Transcript transcript = {"attached: " + std::to_string(view.AttachBook(&book))};
  for (int i = 0; i < steps; ++i) {
    MaybeFail(random);
    Step step = DrawStep(random, known);
    if (!step.entry.name.IsEmpty()) known.push_back(step.entry);
    // Views take names and entries that lie in themselves as well.
    CEmailEntry* const held = random() % 4 == 0 ? view.Held() : nullptr;
    if (held != nullptr) step.entry = *held;
    if (held != nullptr) step.key = held->name.View();
    CEmailEntry copy = step.entry;
    const bool lends = held != nullptr && !std::is_base_of_v<ModelView, std::decay_t<View>>;
    std::string told = std::to_string(i) + ": " + Text(step) + " gives ";
    told += RunStep(view, step, lends ? held->name.View() : step.key, lends ? held : &copy);
    const std::vector<std::string> calls = TakeCalls();
    for (const std::string& call : calls) told += "\n" + call;
    transcript.push_back(told + "\n" + view.State());
    EXPECT_TRUE(view.Held() == nullptr || view.Held()->IsValid()) << told;
    // No step but the letter view's walk through a name asks more often than it has rows.
    EXPECT_LE(calls.size(), 130U) << told;
  }
  return transcript;
}

TEST_P(ViewWalkTest, DoesWhatTheModelDoes) {
  const auto [kind, style] = GetParam();
  std::uint32_t seed = 1000 * static_cast<std::uint32_t>(kind) + static_cast<std::uint32_t>(style);
  for (const std::size_t size : kSizes) {
    seed += 10;
    const Entries entries = GeneratedBook(style, size);
    const Transcript expected =
        WalkAs<ModelSliding, ModelLetter, ModelFull>(kind, entries, seed, kSteps);
    const Transcript given =
        WalkAs<SlidingProbe, LetterProbe, FullProbe>(kind, entries, seed, kSteps);
    const auto parting = std::ranges::mismatch(given, expected);
    if (parting.in1 != given.end()) {
      FAIL() << "book of " << size << ", seed " << seed << ", step " << *parting.in1
             << "\nand not\n"
             << *parting.in2;
    }
  }
}

TEST_P(ViewWalkTest, DoesNotBelieveALyingServer) {
  const auto [kind, style] = GetParam();
  for (std::uint32_t lies = 1; lies <= kAllLies && !HasFailure(); ++lies) {
    SCOPED_TRACE("lies " + std::to_string(lies));
    SimulatorSetLies(lies);
    WalkAs<SlidingProbe, LetterProbe, FullProbe>(kind, GeneratedBook(style, 150), lies,
                                                 kLyingSteps);
  }
}

std::string WalkName(const testing::TestParamInfo<std::tuple<Kind, BookStyle>>& info) {
  constexpr const char* kKinds[] = {"Sliding16", "Sliding5", "Sliding1", "Letter", "Full"};
  return std::string(kKinds[static_cast<int>(std::get<0>(info.param))]) +
         StyleName(std::get<1>(info.param));
}

INSTANTIATE_TEST_SUITE_P(AllBooks, ViewWalkTest,
                         testing::Combine(testing::Values(Kind::kSliding16, Kind::kSliding5,
                                                          Kind::kSliding1, Kind::kLetter,
                                                          Kind::kFull),
                                          testing::ValuesIn(kBookStyles)),
                         WalkName);

}  // namespace
}  // namespace quillkit
