// Runs other programs of the tests.

#ifndef QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_
#define QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_

#include <filesystem>
#include <string>

namespace quillkit {

// The folder of the running program.
std::filesystem::path ProgramFolder();

// Runs a program of `folder`, with arguments, in that folder. Returns its standard output, then
// "exit " and its status.
std::string OutputOf(const std::filesystem::path& folder, const std::string& command);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SUPPORT_PROGRAM_RUN_H_
