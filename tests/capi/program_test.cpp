// Runs the programs that test the library for C, each in its own process with its own appliance.

#include <gtest/gtest.h>

#include "tests/support/program_run.h"

namespace quillkit {
namespace {

TEST(LibraryForC, PassesItsTestInC) {
  EXPECT_EQ(OutputOnFailure(".", "quillkit_c_tests"), "");
}

TEST(LibraryForC, RunsTheCallsOfEightThreadsOneByOne) {
  EXPECT_EQ(OutputOnFailure(".", "quillkit_c_threads"), "");
}

}  // namespace
}  // namespace quillkit
