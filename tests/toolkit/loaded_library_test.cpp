// The shared library, loaded as an application loads it, does what its objects do in this program.
// It finds the same simulated appliance.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "platform/module.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/tour.h"

namespace quillkit {
namespace {

using LoadedLibrary = ApplianceTest;

TEST_F(LoadedLibrary, DoesWhatItsObjectsDoInThisProgram) {
  SimulatorSeed();
  SimulatorRecordCalls(1);
  const auto linkedNotes = Tour(Exports());
  const auto linkedCalls = TakeCalls();

  SimulatorSeed();
  SimulatorRecordCalls(1);
  const ModuleHandle module = LoadModule("Quillkit");
  ASSERT_NE(module, nullptr);
  const Exports loaded(module);
  ASSERT_EQ(loaded.missing(), std::vector<std::string>());
  const auto loadedNotes = Tour(loaded);
  UnloadModule(module);
  EXPECT_EQ(loadedNotes, linkedNotes);
  auto loadedCalls = TakeCalls();
  ASSERT_FALSE(loadedCalls.empty());
  EXPECT_EQ(loadedCalls.front(), "IMSPInit");
  loadedCalls.erase(loadedCalls.begin());
  EXPECT_EQ(loadedCalls, linkedCalls);
}

}  // namespace
}  // namespace quillkit
