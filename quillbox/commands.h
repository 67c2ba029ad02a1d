// The commands of quillbox. Each throws a console::Failure on failure.

#ifndef QUILLBOX_COMMANDS_H_
#define QUILLBOX_COMMANDS_H_

#include <string>
#include <vector>

namespace quillbox {

struct RunOptions {
  std::string scenario;
  std::vector<std::string> command;  // the application and its arguments
  std::string state;                 // the paths of files, or ""
  std::string journal;
  std::string form;  // of the journal, or ""
  bool keep = false;
};

// Runs an application on the simulated appliance of a scenario, in a new folder. Returns its exit
// status, or kExitNotStarted if the simulated appliance cannot use the files of the run. If that
// status is 0, returns kExitUnused if the application made no call, and kExitUnfired if a
// fault did not fire although the scenario requires it. Reports both, and sessions that were not
// closed, on standard error.
int Run(const RunOptions& options);

// Writes a scenario with comments to a new file, or to standard output: an empty path or "-".
void WriteTemplate(const std::string& path);

// Tests a scenario, and prints a summary of it.
void Check(const std::string& path);

struct DumpOptions {
  std::string source;  // a state file, or "" for an appliance
  std::string output;  // a file, or "" or "-" for standard output
  bool passwords = false;
  std::string host = "127.0.0.1";
  std::string user = "ADMINISTRATOR";
  std::string passwordFile;  // "": QUILLCTL_PASSWORD, or what the user types
};

// Writes the books of a state file, or of an appliance, as text.
void Dump(const DumpOptions& options);

// Fills the appliance of a state file with the books of a scenario's beginning.
void Load(const std::string& source, const std::string& state);

// Prints a journal and, with `follow`, what is added to it, until the process is terminated.
void ShowJournal(const std::string& path, bool follow);

}  // namespace quillbox

#endif  // QUILLBOX_COMMANDS_H_
