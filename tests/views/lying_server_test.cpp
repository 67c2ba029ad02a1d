// A server that lies: every view gives null or an entry that is whole, whatever comes. The
// sanitizers watch what is read.

#include <random>
#include <string>

#include "books/email_ab.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/views/generated_book.h"
#include "tests/views/random_step.h"
#include "tests/views/view_probes.h"

namespace quillkit {
namespace {

constexpr std::uint32_t kAllLies = 63;
constexpr int kSteps = 60;

class LyingServerTest : public ApplianceTest, public testing::WithParamInterface<BookStyle> {
 protected:
  LyingServerTest() { book.Attach(LogIn(), 0); }

  // Walks through a book of the style, with the lies from the beginning and a fault at the call
  // `fault`, none for 0.
  template <class View>
  void Walk(View&& view, std::uint32_t lies, int fault) {
    SimulatorSetLies(0);
    PutBook(content);
    SimulatorSetLies(lies);
    if (fault != 0) SimulatorFail(nullptr, fault, 11);
    view.AttachBook(&book);
    std::mt19937 random(lies + 100 * static_cast<std::uint32_t>(fault));
    for (int i = 0; i < kSteps; ++i) {
      Step step = DrawStep(random, content);
      RunStep(view, step, step.key, &step.entry);
      const std::string where = "lies " + std::to_string(lies) + " fault " + std::to_string(fault) +
                                " step " + std::to_string(i) + ": " + Text(step);
      const CEmailEntry* held = view.Held();
      ASSERT_TRUE(held == nullptr || held->IsValid()) << where;
      // No step but the letter view's walk through a name asks more often than it has rows.
      ASSERT_LE(TakeCalls().size(), 130U) << where;
    }
    EXPECT_FALSE(view.State().empty());
  }

  void WalkAll(std::uint32_t lies, int fault) {
    Walk(SlidingProbe(16), lies, fault);
    Walk(LetterProbe(), lies, fault);
    Walk(FullProbe(), lies, fault);
  }

  CEmailAB book;
  Entries content = GeneratedBook(GetParam(), 150);
};

TEST_P(LyingServerTest, IsNotBelieved) {
  for (std::uint32_t lies = 1; lies <= kAllLies; ++lies) WalkAll(lies, 0);
}

TEST_P(LyingServerTest, MayFailAtAnyCall) {
  for (int fault = 1; fault <= 30; ++fault) {
    WalkAll(0, fault);
    WalkAll(kLieFailedCount, fault);
    WalkAll(kAllLies, fault);
  }
}

INSTANTIATE_TEST_SUITE_P(AllStyles, LyingServerTest, testing::ValuesIn(kBookStyles),
                         [](const auto& style) { return StyleName(style.param); });

}  // namespace
}  // namespace quillkit
