// Running another program, and where the system finds libraries.

#ifndef QUILLBOX_SYSTEM_CHILD_PROCESS_H_
#define QUILLBOX_SYSTEM_CHILD_PROCESS_H_

#include <optional>
#include <string>
#include <vector>

namespace quillbox {

// The file of the simulator, and the environment variable for the folders of libraries.
extern const char* const kSimulatorFile;
extern const char* const kLibraryPathVariable;
extern const char kLibraryPathSeparator;

// Sets a variable of this process, which its children inherit.
void SetVariable(const char* name, const std::string& value);

// From now on, a request to end this process does not end it: on POSIX the signals SIGHUP, SIGINT,
// SIGQUIT and SIGTERM, on Windows what the console sends. Call it before RunProgram.
void DeferTermination();

// Runs a program, which is searched as a shell does, and waits for its end. Passes the requests to
// end to it, unless the terminal or the console sends them to all programs. Returns its exit
// status, or 128 and the number of the signal that ended it; nothing if it cannot be started.
std::optional<int> RunProgram(const std::vector<std::string>& command);

}  // namespace quillbox

#endif  // QUILLBOX_SYSTEM_CHILD_PROCESS_H_
