// Runs other programs of the tests.

#ifndef QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_
#define QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_

#include <string>

namespace quillkit {

// Runs a program that stands in this folder, as seen from the one of this program, which is current
// for it. Empty when it succeeds, else its status and what it wrote to standard output.
std::string OutputOnFailure(const std::string& folder, const std::string& program);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_
