// A GoogleTest fixture for the tests of an application, which run on the simulated appliance in the
// same process. Link Quillkit::Simulator.
//
//   class PanelTest : public quillkit::QuillboxTest {};
//
//   TEST_F(PanelTest, ReportsAFullPanel) {
//     UseScenario("begin empty\n"
//                 "fault IMSPCreateEntry nth 3 status 24\n");
//     ...
//   }
//
// Each test begins with a new appliance and the initial office. It fails if a fault made no call
// fail, unless the scenario allows that, and if its session is still open at the end.

#ifndef QUILLKIT_QUILLBOX_TESTING_QUILLBOX_TEST_H_
#define QUILLKIT_QUILLBOX_TESTING_QUILLBOX_TEST_H_

#include <gtest/gtest.h>

#include <cstdint>
#include <cstdio>
#include <fstream>
#include <random>
#include <string>
#include <vector>

#include "simulator/simulator.h"

namespace quillkit {

class QuillboxTest : public testing::Test {
 protected:
  QuillboxTest() { SimulatorSeed(); }

  // Replaces the appliance by that of a scenario, given as its lines without the first one. The
  // paths in it are relative to the folder for temporary files. The test fails if it is invalid.
  static void UseScenario(const std::string& lines) {
    const std::string path =
        testing::TempDir() + "quillbox_test." + std::to_string(std::random_device()());
    std::ofstream(path, std::ios::binary) << "quillbox scenario 1\n" << lines;
    UseScenarioFile(path);
    std::remove(path.c_str());
  }

  static void UseScenarioFile(const std::string& path) {
    const char* const fault = SimulatorLoadScenario(path.c_str());
    if (fault != nullptr) ADD_FAILURE() << path << ": " << fault;
    SimulatorRecordCalls(1);
  }

  // The calls since UseScenario, as "IMSPAbort = 0".
  static std::vector<std::string> Calls() {
    std::vector<std::string> calls;
    calls.reserve(static_cast<std::size_t>(SimulatorCallCount()));
    for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
      calls.push_back(std::string(SimulatorCallText(i)) + " = " +
                      std::to_string(SimulatorCallStatus(i)));
    }
    return calls;
  }

  void TearDown() override {
    for (std::int32_t i = 0; SimulatorUnfiredFault(i) != nullptr; ++i) {
      ADD_FAILURE() << "this fault made no call fail: " << SimulatorUnfiredFault(i);
    }
    EXPECT_STREQ(SimulatorSessionUser(), "") << "the session is still open";
    SimulatorReset();
  }
};

}  // namespace quillkit

#endif  // QUILLKIT_QUILLBOX_TESTING_QUILLBOX_TEST_H_
