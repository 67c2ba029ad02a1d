// What a test asks of the system that neither the standard library nor platform/ offers. Each
// system has a file of it.

#ifndef QUILLKIT_TESTS_PLATFORM_SYSTEM_H_
#define QUILLKIT_TESTS_PLATFORM_SYSTEM_H_

#include <string>

namespace quillkit {

// The file names of the library, the simulated server library, and a program.
extern const char* const kLibraryFile;
extern const char* const kServerLibraryFile;
std::string ProgramFile(const std::string& name);

// The folder of the running program.
std::string ProgramFolder();

// What the start probe prints of a library that has found no server library.
extern const char* const kStartWithoutServerLibrary;

// Whether a library with this file name is in the process.
bool IsLoaded(const char* file);

// Prints the text of every message box of the thread on standard output, one a line, and closes the
// box.
void ReportMessageBoxes();

// What a program that ran in its own folder came to: its exit status, -1 when it could not be run
// or was killed, and what it printed.
struct Outcome {
  int status;
  std::string output;
};
Outcome RunProgram(const std::string& folder, const std::string& name, const std::string& argument);

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_PLATFORM_SYSTEM_H_
