// The operations that run under the long time-out: which call each ends at when one fails, and
// where that leaves the time-out.

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

constexpr Status kFault = 6;
constexpr std::uint32_t kOld = 1999;       // milliseconds
constexpr std::uint32_t kRestored = 1000;  // whole seconds are kept
constexpr std::uint32_t kLong = 3'600'000;

// What comes of the failure of a call.
struct Failure {
  std::size_t calls;  // of those of an undisturbed run, the failing one included
  Status status;
  std::uint32_t timeout;
};

using Failures = std::vector<Failure>;

// A failure ends the run where it is.
const Failures kStops = {{1, kFault, kOld},
                         {2, kFault, kOld},
                         {3, kFault, kLong},
                         {4, kFault, kLong},
                         {5, kFault, kLong}};

// The work is done and the time-out put back whatever happens; the work's status is the result.
// Where the old time-out could not be read, the long one is put back.
const Failures kRestores = {
    {4, 0, kLong}, {5, 0, kRestored}, {5, kFault, kRestored}, {4, 0, kLong}, {5, 0, kLong}};

struct Operation {
  const char* work;  // the call in the middle
  const Failures& failures;
  std::function<Status(CScanner&)> run;
};

std::ostream& operator<<(std::ostream& out, const Operation& each) {
  return out << each.work;
}

std::vector<Operation> Operations() {
  using S = CScanner;
  return {
      {"IMSPBatchConfiguration a/script", kStops, [](S& box) { return box.RunBatch("a/script"); }},
      {"IMSPIOCtl 7 0 DBBACKUP......one,two", kStops,
       [](S& box) { return box.BackupDatabase("one", "two"); }},
      {"IMSPIOCtl 7 0 DBRESTORE.....one,", kStops,
       [](S& box) { return box.RestoreDatabase("one", nullptr); }},
      {"IMSPClearAB 1024:LOGAB Ann", kStops, [](S& box) { return box.ClearLog("Ann"); }},
      {"IMSPClearAB 1024:LOGAB _!ADMINISTRATOR_!GUEST", kStops,
       [](S& box) { return box.ClearLogExceptSystem(); }},
      {"IMSPIOCtl 7 0 DBCHECK.......", kRestores,
       [](S& box) { return box.Agent()->CheckDatabase(); }},
      {"IMSPClearAB 1:EMAILAB -", kRestores, [](S& box) { return box.ClearEmailBook(); }},
      {"IMSPClearAB 2:FAXAB -", kRestores, [](S& box) { return box.ClearFaxBook(); }},
      {"IMSPClearAB 4:USERSAB -", kRestores, [](S& box) { return box.ClearUsersBook(); }},
      {"IMSPClearAB 8:PRINTERSAB -", kRestores, [](S& box) { return box.ClearPrintersBook(); }},
      {"IMSPClearAB 256:TOPAB -", kRestores, [](S& box) { return box.ClearTopBook(); }},
  };
}

class LongOperation : public ApplianceTest, public testing::WithParamInterface<Operation> {
 protected:
  LongOperation() {
    TheAgent.BackupDatabase("one", nullptr);
    SimulatorSetTimeout(kOld);
    SimulatorClearJournal();
  }

  // Runs the operation. The batch, whose file need not be there, succeeds unless it is told not to.
  Status Run() {
    SimulatorFail("IMSPBatchConfiguration", 1, kNoError);
    return GetParam().run(*box_);
  }

  CScanner* box_ = LogIn();
};

TEST_P(LongOperation, RaisesTheTimeoutAndPutsItBack) {
  EXPECT_EQ(Run(), kNoError);
  EXPECT_EQ(TheAgent.LastError(), kNoError);
  EXPECT_THAT(TakeCalls(),
              testing::ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", GetParam().work,
                                   "IMSPIOCtl 2 0", "IMSPIOCtl 1 1000"));
  EXPECT_EQ(SimulatorTimeout(), kRestored);
}

TEST_P(LongOperation, EndsAsItsTableSaysWhereACallFails) {
  for (int failing = 0; failing < 5; ++failing) {
    SCOPED_TRACE(testing::Message() << "call " << failing << " fails");
    const Failure& expected = GetParam().failures[static_cast<std::size_t>(failing)];
    SimulatorSetTimeout(kOld);
    SimulatorClearFaults();
    SimulatorFail(nullptr, failing + 1, kFault);
    EXPECT_EQ(Run(), expected.status);
    EXPECT_EQ(SimulatorTimeout(), expected.timeout);
    EXPECT_EQ(TakeCalls().size(), expected.calls);
  }
}

INSTANTIATE_TEST_SUITE_P(Operations, LongOperation, testing::ValuesIn(Operations()));

}  // namespace
}  // namespace quillkit
