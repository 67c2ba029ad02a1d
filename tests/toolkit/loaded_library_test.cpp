// The shared library itself, loaded as an application loads it. It finds the same simulated
// appliance as this program.

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "platform/module.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/program_run.h"
#include "tests/toolkit/scratch_file.h"
#include "tests/toolkit/tour.h"

namespace quillkit {
namespace {

class LoadedLibrary : public ApplianceTest {
 protected:
  // The agent of this program stands aside.
  LoadedLibrary() {
    TheAgent.Shutdown();
    SimulatorSeed();
    SimulatorRecordCalls(1);
  }

  ~LoadedLibrary() override { UnloadModule(module_); }

  void Load() {
    module_ = LoadModule("Quillkit");
    ASSERT_NE(module_, nullptr);
  }

  void Unload() {
    UnloadModule(module_);
    module_ = nullptr;
  }

  ModuleHandle module_ = nullptr;
};

TEST_F(LoadedLibrary, OffersEveryFunctionByName) {
  Load();
  const Exports toolkit(module_);
  EXPECT_EQ(toolkit.count(), 60);
  EXPECT_EQ(toolkit.missing(), std::vector<std::string>());
}

TEST_F(LoadedLibrary, DoesWhatItsObjectsDoInThisProgram) {
  const ScratchFile script("SE emailab \"Ann\" \"ann@mail.example\"\n");
  TheAgent.LoadServerLibrary();
  const auto linkedNotes = Tour(Exports(), script.path());
  const auto linkedCalls = TakeCalls();

  SimulatorSeed();
  SimulatorRecordCalls(1);
  Load();
  const auto loadedNotes = Tour(Exports(module_), script.path());
  Unload();
  EXPECT_EQ(loadedNotes, linkedNotes);
  EXPECT_EQ(TakeCalls(), linkedCalls);
}

TEST_F(LoadedLibrary, IsUsedAgainAfterExitByUnloadingAndLoading) {
  for (int round = 0; round < 3; ++round) {
    SCOPED_TRACE(round);
    Load();
    const Exports toolkit(module_);
    EXPECT_EQ(toolkit.GetLastToolkitError(), 0);
    EXPECT_NE(toolkit.LogToQuillbox(kHost, kAdministrator, kPassword, "", 1), nullptr);
    toolkit.Logout();
    toolkit.Exit();
    EXPECT_EQ(toolkit.LogToQuillbox(kHost, kAdministrator, kPassword, "", 1), nullptr);
    EXPECT_EQ(toolkit.GetLastToolkitError(), 20);
    TakeCalls();
    Unload();
    EXPECT_THAT(TakeCalls(), testing::IsEmpty());
  }
}

TEST_F(LoadedLibrary, UnloadingDoesTheWorkOfExitOnce) {
  Load();
  const Exports toolkit(module_);
  EXPECT_NE(toolkit.LogToQuillbox(kHost, kAdministrator, kPassword, "", 1), nullptr);
  TakeCalls();
  Unload();
  EXPECT_THAT(TakeCalls(), testing::ElementsAre("IMSPTerminate"));
}

// In a process of its own, from a folder without a server library: this one has it.
TEST(LibraryWithoutAServer, FailsToStart) {
  EXPECT_EQ(OutputOnFailure("alone", "quillkit_alone_tests"), "");
}

}  // namespace
}  // namespace quillkit
