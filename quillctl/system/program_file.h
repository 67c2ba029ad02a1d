// The file of the running program.

#ifndef QUILLCTL_SYSTEM_PROGRAM_FILE_H_
#define QUILLCTL_SYSTEM_PROGRAM_FILE_H_

#include <string>

namespace quillctl {

// Returns the path of the running program's file, on POSIX with links resolved. Empty if the system
// does not provide it.
std::string ProgramFile();

}  // namespace quillctl

#endif  // QUILLCTL_SYSTEM_PROGRAM_FILE_H_
