// What happens in the processes of a run, for `quillbox run`: a file to which each process appends
// lines.
//
//   mistake               the process cannot use its environment
//   used                  the process has made a call for the appliance
//   fault TEXT            this fault has fired
//   session PROCESS 1     the process has opened its session
//   session PROCESS 0     the process, or the appliance, has closed it

#ifndef QUILLKIT_SIMULATOR_RUN_REPORT_H_
#define QUILLKIT_SIMULATOR_RUN_REPORT_H_

#include <cstddef>
#include <set>
#include <string>

namespace quillbox {

class RunReport {
 public:
  // Returns an empty text, or the description of a failure.
  std::string Open(const std::string& newPath);

  bool IsOpen() const { return !path.empty(); }

  // Without a file, these do nothing.
  void AddMistake() const;
  void SetUsed();
  void AddFault(const std::string& text) const;
  void SetSession(bool isOpen);

 private:
  bool Add(const std::string& line) const;

  std::string path;
  std::string process;  // distinguishes the processes of a run
  bool isUsed = false;
  bool hasSession = false;
};

// The lines of a report.
struct RunResult {
  std::set<std::string> fired;   // the texts of the faults
  std::size_t openSessions = 0;  // that no process closed
  bool hasMistake = false;       // in the environment of a process
  bool isUsed = false;           // whether a process made a call for the appliance
};

RunResult ReadRunReport(const std::string& path);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_RUN_REPORT_H_
