// The library for C is tried by programs of its own: its server library is not this process's.

#include <gtest/gtest.h>

#include "tests/support/program_run.h"

namespace quillkit {
namespace {

TEST(LibraryForC, DoesWhatItsProgramInCExpects) {
  EXPECT_EQ(OutputOnFailure(".", "quillkit_c_tests"), "");
}

TEST(LibraryForC, TakesCallsOfEightThreadsInTurn) {
  EXPECT_EQ(OutputOnFailure(".", "quillkit_c_threads"), "");
}

}  // namespace
}  // namespace quillkit
