// Random walks: every view does what the plain model of it does, call by call.

#include <random>
#include <string>
#include <tuple>

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
constexpr Status kFailures[] = {4, 11, 19, 21};

enum class Kind { kSliding16, kSliding5, kSliding1, kLetter, kFull };

class ViewWalkTest : public ApplianceTest,
                     public testing::WithParamInterface<std::tuple<Kind, BookStyle>> {
 protected:
  ViewWalkTest() { book.Attach(LogIn(), 0); }

  template <class View>
  void Walk(View& view, ModelView& model, ModelBook& content, std::uint32_t seed);

  void WalkOver(Kind kind, const Entries& entries, std::uint32_t seed);

  CEmailAB book;
};

// Arms the same fault on both sides now and then, one at a time.
void MaybeFail(std::mt19937& random, ModelBook& content) {
  if (content.HasFault() || random() % 25 != 0) return;
  const auto after = static_cast<int>(random() % 4);
  const Status status = kFailures[random() % std::size(kFailures)];
  content.FailAfter(after, status);
  SimulatorFail(nullptr, after + 1, status);
}

template <class View>
void ViewWalkTest::Walk(View& view, ModelView& model, ModelBook& content, std::uint32_t seed) {
  std::mt19937 random(seed);
  ASSERT_EQ(view.AttachBook(&book), model.Open());
  CEmailEntry* held = nullptr;
  for (int i = 0; i < kSteps; ++i) {
    MaybeFail(random, content);
    Step step = DrawStep(random, content.entries);
    // Names and entries that lie in the view itself are taken as well.
    const bool isHeld = held != nullptr && random() % 4 == 0;
    if (isHeld) step.entry = *held;
    if (isHeld) step.key = held->name.View();
    const std::string_view key = isHeld ? held->name.View() : std::string_view(step.key);
    CEmailEntry copy = step.entry;
    const std::string given = RunStep(view, step, key, isHeld ? *held : copy);
    const std::string expected = RunStep(model, step, step.key, step.entry);
    const std::string where =
        "seed " + std::to_string(seed) + " step " + std::to_string(i) + ": " + Text(step);
    ASSERT_EQ(given, expected) << where;
    ASSERT_EQ(TakeCalls(), content.TakeCalls()) << where;
    ASSERT_EQ(view.State(), model.State()) << where;
    held = view.Held();
  }
}

void ViewWalkTest::WalkOver(Kind kind, const Entries& entries, std::uint32_t seed) {
  PutBook(entries);
  ModelBook content(entries);
  if (kind == Kind::kLetter) {
    LetterProbe view;
    ModelLetter model(&content);
    Walk(view, model, content, seed);
  } else if (kind == Kind::kFull) {
    FullProbe view;
    ModelFull model(&content);
    Walk(view, model, content, seed);
  } else {
    const std::int32_t pageSize = kind == Kind::kSliding16 ? 16 : kind == Kind::kSliding5 ? 5 : 1;
    SlidingProbe view(pageSize);
    ModelSliding model(&content, pageSize);
    Walk(view, model, content, seed);
  }
}

TEST_P(ViewWalkTest, DoesWhatTheModelDoes) {
  const auto [kind, style] = GetParam();
  std::uint32_t seed = 1000 * static_cast<std::uint32_t>(kind) + static_cast<std::uint32_t>(style);
  for (const std::size_t size : kSizes) {
    SCOPED_TRACE("book of " + std::to_string(size));
    WalkOver(kind, GeneratedBook(style, size), seed += 10);
    if (HasFatalFailure()) return;
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
