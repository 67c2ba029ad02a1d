// Where the running program stands. For programs; the library does not ask.

#ifndef QUILLCTL_SYSTEM_PROGRAM_FILE_H_
#define QUILLCTL_SYSTEM_PROGRAM_FILE_H_

#include <string>

namespace quillkit {

// The path of the running program's own file, links followed where the system does. Empty when the
// system does not tell it.
std::string ProgramFile();

}  // namespace quillkit

#endif  // QUILLCTL_SYSTEM_PROGRAM_FILE_H_
