// Runs the programs that test the library for C, each in its own process with its own appliance.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/support/program_run.h"

namespace quillkit {
namespace {

using testing::EndsWith;

TEST(LibraryForC, PassesItsTestInC) {
  EXPECT_THAT(OutputOf(ProgramFolder(), "quillkit_c_tests"), EndsWith("exit 0"));
}

TEST(LibraryForC, RunsTheCallsOfEightThreadsOneByOne) {
  EXPECT_THAT(OutputOf(ProgramFolder(), "quillkit_c_threads"), EndsWith("exit 0"));
}

}  // namespace
}  // namespace quillkit
