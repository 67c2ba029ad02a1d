// A scenario: the books of an appliance at the beginning of a test, its limits and settings, and
// the faults that it has. It is a file of lines, described in docs/scenarios.md:
//
//   quillbox scenario 1
//   begin empty
//   account "Eve" "apple"
//   limit keys 3
//   fault IMSPCreateEntry book 256 nth 3 status 8

#ifndef QUILLKIT_SIMULATOR_SCENARIO_H_
#define QUILLKIT_SIMULATOR_SCENARIO_H_

#include <chrono>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "simulator/appliance.h"

namespace quillbox {

struct Scenario {
  // The initial books: "office", "empty", or the path of a state file.
  std::string begin = "office";
  std::vector<CUserEntry> accounts;
  ApplianceSettings settings;
  std::optional<std::chrono::sys_seconds> clock;  // the date of a simulated clock
  std::uint32_t defects = 0;                      // SimulatorDefect
  std::uint32_t seed = 0;
  std::vector<Fault> faults;
  bool mayHaveUnfiredFaults = false;
  std::string state;  // the paths of the state file and the journal file, or ""
  std::string journal;
  JournalForm journalForm = JournalForm::kPlain;  // also without a journal
};

// Reads a file. A relative path in it is relative to the folder of the file. Returns an empty text,
// or the line and description of the first error.
std::string ReadScenario(const std::string& path, Scenario& scenario);

// Replaces contents by initial books: "office", "empty", or those of a state file. Returns an empty
// text, or the description of an error; then the contents stay unchanged.
std::string ReadBeginning(const std::string& begin, Contents& contents);

// Applies a scenario to an appliance in its initial state, except the two files. Returns an empty
// text, or the description of an error in the initial books.
std::string ApplyScenario(const Scenario& scenario, Appliance& appliance);

// The words of a scenario for wrong replies, such as "oversized". Returns 0 for any other word.
std::uint32_t DefectOf(std::string_view word);

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SCENARIO_H_
