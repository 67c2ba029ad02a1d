// The operations that run under the long time-out: which call each ends at when one fails, and
// where that leaves the time-out.

#include <gtest/gtest.h>

#include <functional>
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
  std::size_t calls;  // the failing one included
  Status status;
  std::uint32_t timeout;
};

// One row for the failure of each call, and the last for that of none.
using Failures = std::vector<Failure>;

// A failure ends the run where it is.
const Failures kStops = {{1, kFault, kOld},  {2, kFault, kOld},  {3, kFault, kLong},
                         {4, kFault, kLong}, {5, kFault, kLong}, {5, kNoError, kRestored}};

// The work is done and the time-out put back whatever happens; the work's status is the result.
// Where the old time-out could not be read, no long one stays.
const Failures kRestores = {{4, kNoError, kRestored}, {5, kNoError, kRestored},
                            {5, kFault, kRestored},   {4, kNoError, kLong},
                            {5, kNoError, kLong},     {5, kNoError, kRestored}};

using S = CScanner;

const struct {
  const char* work;  // the call in the middle
  const Failures& failures;
  std::function<Status(S&)> run;
} kOperations[] = {
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

using LongOperation = ApplianceTest;

TEST_F(LongOperation, EndsAsItsTableSaysWhereACallFails) {
  CScanner* const box = LogIn();
  TheAgent.BackupDatabase("one", nullptr);
  for (const auto& each : kOperations) {
    for (std::size_t failing = 0; failing < each.failures.size(); ++failing) {
      SCOPED_TRACE(testing::Message() << each.work << ", call " << failing << " fails");
      const Failure& expected = each.failures[failing];
      SimulatorSetTimeout(kOld);
      SimulatorClearFaults();
      SimulatorClearJournal();
      SimulatorFail(nullptr, static_cast<std::int32_t>(failing) + 1, kFault);
      SimulatorFail("IMSPBatchConfiguration", 1, kNoError);  // the script need not be there
      EXPECT_EQ(each.run(*box), expected.status);
      EXPECT_EQ(SimulatorTimeout(), expected.timeout);
      const std::vector<std::string> calls = TakeCalls();
      EXPECT_EQ(calls.size(), expected.calls);
      if (failing < 5) continue;
      EXPECT_EQ(TheAgent.LastError(), kNoError);
      EXPECT_THAT(calls, testing::ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", each.work,
                                              "IMSPIOCtl 2 0", "IMSPIOCtl 1 1000"));
    }
  }
}

}  // namespace
}  // namespace quillkit
