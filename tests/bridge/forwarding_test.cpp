// The forwarding operations that nothing else makes, what all of them do without a server library,
// and how far a delivered count is believed.

#include <gtest/gtest.h>

#include <utility>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kEarlier = 11;
constexpr Status kAnswer = 18;

using ForwardingTest = ApplianceTest;

TEST_F(ForwardingTest, MakesItsCallAndRecordsTheStatus) {
  const struct {
    const char* call;
    Status (*run)(CAgent&);
  } operations[] = {
      {"IMSPWakeup", [](CAgent& agent) { return agent.IMSPWakeup(); }},
      {"IMSPAbort", [](CAgent& agent) { return agent.IMSPAbort(); }},
      {"IMSPCheckString text 9", [](CAgent& agent) { return agent.IMSPCheckString("text", 9); }},
      {"IMSPExport 1 2", [](CAgent& agent) { return agent.IMSPExport(1, 2); }},
      {"IMSPGetExportFile 1 2 3", [](CAgent& agent) { return agent.IMSPGetExportFile(1, 2, 3); }},
      {"IMSPImport 1 2 3", [](CAgent& agent) { return agent.IMSPImport(1, 2, 3); }},
      {"IMSPImpExpState 1 2", [](CAgent& agent) { return agent.IMSPImpExpState(1, 2); }},
      {"IMSPImpExpAbort", [](CAgent& agent) { return agent.IMSPImpExpAbort(); }},
  };
  SimulatorFail(nullptr, 0, kAnswer);
  for (const auto& each : operations) {
    TheAgent.SetError(kEarlier);
    EXPECT_EQ(each.run(TheAgent), kAnswer);
    EXPECT_EQ(TheAgent.LastError(), kAnswer);
    EXPECT_THAT(TakeCalls(), ElementsAre(each.call)) << each.call;
    CAgent unloaded;
    EXPECT_EQ(each.run(unloaded), kNotInitialised);
    EXPECT_EQ(unloaded.LastError(), kNotInitialised);
    EXPECT_THAT(TakeCalls(), IsEmpty());
  }
}

TEST_F(ForwardingTest, ADeliveredCountIsBelievedUpToWhatWasAskedFor) {
  SimulatorSeed();
  LogIn();
  SimulatorSetLies(kLieDeliveredCount);
  ABIdent book(BookKind::kEmail, kEmailBook);
  ABIdent lists(BookKind::kPublicList, {});
  KeyRange range;
  CEmailEntry records[3];
  EntryKey rows[3];
  ABIdent books[3];
  PageBoundary table[3];
  std::uint32_t count = 3;
  const auto expectThree = [&](Status status) {
    EXPECT_TRUE(status == kNoError || status == kMoreData) << status;
    EXPECT_EQ(std::exchange(count, 3), 3U);
  };
  expectThree(TheAgent.IMSPReadAB(&book, &range, records, &count, 1));
  expectThree(TheAgent.IMSPListABEntries(&book, &range, rows, &count, 1));
  expectThree(TheAgent.IMSPListAB(&lists, &range, books, &count, 1));
  expectThree(TheAgent.IMSPReadPageBoundaries(&book, table, &count));
}

}  // namespace
}  // namespace quillkit
