// The library for C is tried from C, in a process of its own: its server library is not this one's.

#include <gtest/gtest.h>

#include "tests/support/program_run.h"

namespace quillkit {
namespace {

TEST(LibraryForC, DoesWhatItsProgramInCExpects) {
  EXPECT_EQ(OutputOnFailure(".", "quillkit_c_tests"), "");
}

}  // namespace
}  // namespace quillkit
