// Running another program, and where the system finds libraries.

#ifndef QUILLBOX_SYSTEM_CHILD_PROCESS_H_
#define QUILLBOX_SYSTEM_CHILD_PROCESS_H_

#include <string>
#include <vector>

namespace quillbox {

// The file of the simulator, and the environment variable for the folders of libraries.
extern const char* const kSimulatorFile;
extern const char* const kLibraryPathVariable;
extern const char kLibraryPathSeparator;

// Sets a variable of this process, which its children inherit.
void SetVariable(const char* name, const std::string& value);

// Runs a program, which is searched as a shell does, and waits for its end. Meanwhile, an interrupt
// from the terminal ends only the program. Returns its exit status, or 128 and the number of the
// signal that ended it; -1 if it cannot be started.
int RunProgram(const std::vector<std::string>& command);

}  // namespace quillbox

#endif  // QUILLBOX_SYSTEM_CHILD_PROCESS_H_
