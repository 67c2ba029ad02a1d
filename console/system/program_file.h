// The file of the running program.

#ifndef CONSOLE_SYSTEM_PROGRAM_FILE_H_
#define CONSOLE_SYSTEM_PROGRAM_FILE_H_

#include <string>

namespace console {

// Returns the path of the running program's file, on POSIX with links resolved. Empty if the system
// does not provide it.
std::string ProgramFile();

}  // namespace console

#endif  // CONSOLE_SYSTEM_PROGRAM_FILE_H_
