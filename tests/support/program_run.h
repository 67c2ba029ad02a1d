// Runs other programs of the tests.

#ifndef QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_
#define QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_

#include <string>

namespace quillkit {

// Runs a program in `folder`, which is relative to the folder of this test program. `folder` is the
// current folder of the program. Returns an empty text if the program succeeds, otherwise its
// status and its standard output.
std::string OutputOnFailure(const std::string& folder, const std::string& program);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_
