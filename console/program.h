// The beginning and the end of a program.

#ifndef CONSOLE_PROGRAM_H_
#define CONSOLE_PROGRAM_H_

#include <functional>

namespace console {

// Runs the work and returns the exit status of the program: that of the work, or of the Failure
// that it throws, or kExitRefused for another exception and if the output could not be written.
// Prints the text of an exception after the program's name, which must be a literal. If the work
// succeeded although termination was requested, ends the process as the request would have done.
int RunProgram(const char* name, const std::function<int()>& work);

// Returns the name that RunProgram was given. A signal handler may call it.
const char* ProgramName();

}  // namespace console

#endif  // CONSOLE_PROGRAM_H_
