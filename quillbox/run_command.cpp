#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <optional>
#include <random>
#include <system_error>

#include "console/system/program_file.h"
#include "quillbox/commands.h"
#include "quillbox/failure.h"
#include "quillbox/system/child_process.h"
#include "simulator/fault_script.h"
#include "simulator/scenario.h"
#include "simulator/warning.h"

namespace quillbox {
namespace {

namespace fs = std::filesystem;

std::string Variable(const char* name) {
  const char* const value = std::getenv(name);
  return value != nullptr ? value : "";
}

// A new folder for the files of a run. The destructor deletes it unless it is kept.
class RunFolder {
 public:
  explicit RunFolder(bool keepFolder) : keep(keepFolder) {
    std::random_device random;
    std::error_code failure;
    path = fs::temp_directory_path(failure) / ("quillbox-" + std::to_string(random()));
    if (failure || !fs::create_directory(path, failure)) {
      throw console::Failure("cannot create a folder for temporary files", kExitNotStarted);
    }
    fs::permissions(path, fs::perms::owner_all, failure);
  }
  RunFolder(const RunFolder&) = delete;
  RunFolder& operator=(const RunFolder&) = delete;
  ~RunFolder() {
    std::error_code failure;
    if (!keep) fs::remove_all(path, failure);
    if (keep) std::cerr << "quillbox: the files of the run are in " << path.string() << '\n';
  }

  std::string PathOf(const char* name) const { return (path / name).string(); }

 private:
  fs::path path;
  bool keep;
};

// The folder of the simulator: that of this program, or that of the installation.
std::string SimulatorFolder() {
  const fs::path own = fs::path(console::ProgramFile()).parent_path();
  std::error_code failure;
  for (const fs::path& each : {own, own / QUILLBOX_INSTALLED_SIMULATOR}) {
    if (fs::exists(each / kSimulatorFile, failure)) return fs::canonical(each, failure).string();
  }
  throw console::Failure(std::string("cannot find ") + kSimulatorFile, kExitNotStarted);
}

// An empty path removes an inherited value.
void SetPath(const char* name, const std::string& path) {
  std::error_code failure;
  SetVariable(name, path.empty() ? "" : fs::absolute(path, failure).string());
}

// Sets the environment of the application. The files are those of the options and the scenario:
// inherited variables have no effect on them.
void SetEnvironment(const RunOptions& options, const Scenario& scenario, const RunFolder& folder) {
  const std::string libraries = Variable(kLibraryPathVariable);
  SetVariable(kLibraryPathVariable, libraries.empty()
                                        ? SimulatorFolder()
                                        : SimulatorFolder() + kLibraryPathSeparator + libraries);
  SetPath(kScenarioVariable, options.scenario);
  SetPath(kReportVariable, folder.PathOf("report"));
  SetPath(kJournalVariable, options.journal);
  SetVariable(kJournalFormVariable, options.form);
  SetPath(kStateVariable,
          options.state.empty() && scenario.state.empty() ? folder.PathOf("state") : options.state);
}

// The faults of the scenario and of the environment.
std::vector<std::string> AllFaults(const Scenario& scenario) {
  Faults faults;
  for (const Fault& each : scenario.faults) faults.Add(each);
  Require(kFaultsVariable, ScriptFaults(Variable(kFaultsVariable), faults), kExitNotStarted);
  return faults.Unfired();
}

// Reports what the run lacks. Returns the status of a run whose application has this one.
int Judge(int application, const std::string& report, const std::vector<std::string>& faults,
          bool mayBeUnfired) {
  const RunResult result = ReadRunReport(report);
  if (result.hasMistake) return kExitNotStarted;  // the simulator has reported it
  if (!result.isUsed) {
    std::cerr << "quillbox: the application made no call to the simulated appliance\n";
    return application != 0 ? application : kExitUnused;
  }
  if (result.openSessions != 0) {
    std::cerr << "quillbox: sessions that were not closed: " << result.openSessions << '\n';
  }
  int status = application;
  for (const std::string& each : faults) {
    if (result.fired.contains(each) || mayBeUnfired) continue;
    std::cerr << "quillbox: unfired fault: " << each << '\n';
    if (status == 0) status = kExitUnfired;
  }
  return status;
}

}  // namespace

int Run(const RunOptions& options) {
  if (options.command.empty()) {
    throw console::UsageError("run: the application is missing; write it after --");
  }
  Scenario scenario;
  Require(options.scenario, ReadScenario(options.scenario, scenario), kExitNotStarted);
  if (!options.form.empty() && options.journal.empty() && scenario.journal.empty()) {
    throw console::UsageError("run: --form needs a journal");
  }
  Contents contents;
  Require(options.scenario, ReadBeginning(scenario.begin, contents), kExitNotStarted);
  const std::vector<std::string> faults = AllFaults(scenario);
  DeferTermination();
  const RunFolder folder(options.keep);
  SetEnvironment(options, scenario, folder);
  const std::optional<int> status = RunProgram(options.command);
  if (!status) throw console::Failure("cannot run " + options.command[0], kExitNotStarted);
  return Judge(*status, folder.PathOf("report"), faults, scenario.mayHaveUnfiredFaults);
}

}  // namespace quillbox
