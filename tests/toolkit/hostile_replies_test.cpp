// A server that lies about what it delivers: nothing is read or written outside an object, and what
// an application is given stays inside its limits.

#include <gtest/gtest.h>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/tour.h"

namespace quillkit {
namespace {

class HostileReplies : public ApplianceTest, public testing::WithParamInterface<std::uint32_t> {};

// Every combination of every lie.
INSTANTIATE_TEST_SUITE_P(Lies, HostileReplies, testing::Range(0U, 2U * kLieSize));

TEST_P(HostileReplies, ATourOfAllFunctionsStaysInBounds) {
  SimulatorSeed();
  SimulatorSetLies(GetParam());
  Tour(Exports());
}

// The lies about what a call delivers, while one entry point always fails.
class HostileFailures : public HostileReplies {};

TEST_P(HostileFailures, ATourOfAllFunctionsStaysInBounds) {
  for (const char* entry : {"IMSPReadEntryProperties", "IMSPListABEntries", "IMSPReadAB",
                            "IMSPSizeofAB", "IMSPCreateEntry"}) {
    SCOPED_TRACE(entry);
    SimulatorSeed();
    SimulatorSetLies(GetParam());
    SimulatorFail(entry, 0, 6);
    Tour(Exports());
    TheAgent.LoadServerLibrary();
  }
}

INSTANTIATE_TEST_SUITE_P(Lies, HostileFailures, testing::Range(0U, 2U * kLieFailedCount));

}  // namespace
}  // namespace quillkit
