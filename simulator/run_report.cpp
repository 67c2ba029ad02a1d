#include "simulator/run_report.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <map>
#include <random>
#include <system_error>

#include "simulator/system/file_lock.h"

namespace quillbox {
namespace {

constexpr std::string_view kMistake = "mistake";
constexpr std::string_view kUsed = "used";
constexpr std::string_view kFault = "fault ";
constexpr std::string_view kSession = "session ";

}  // namespace

std::string RunReport::Open(const std::string& newPath) {
  std::error_code failure;
  path = std::filesystem::absolute(newPath, failure).string();
  std::random_device random;
  process = std::to_string(random()) + '-' + std::to_string(random());
  return Add("") ? "" : "cannot write the file";
}

void RunReport::AddMistake() const {
  Add(std::string(kMistake) + '\n');
}

void RunReport::SetUsed() {
  if (!isUsed) Add(std::string(kUsed) + '\n');
  isUsed = true;
}

void RunReport::AddFault(const std::string& text) const {
  Add(std::string(kFault) + text + '\n');
}

void RunReport::SetSession(bool isOpen) {
  if (isOpen == hasSession) return;
  hasSession = isOpen;
  Add(std::string(kSession) + process + (isOpen ? " 1\n" : " 0\n"));
}

// Opens the file for each line: the lines of all processes follow each other. Without the lock, two
// processes that append at the same time overwrite each other's lines on Windows.
bool RunReport::Add(const std::string& line) const {
  if (!IsOpen()) return true;
  const FileLock lock(path);
  std::ofstream file(path, std::ios::binary | std::ios::app);
  file << line;
  return !file.flush().fail();
}

RunResult ReadRunReport(const std::string& path) {
  RunResult result;
  std::map<std::string, bool> sessions;
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(kFault)) {
      result.fired.insert(line.substr(kFault.size()));
    } else if (line.starts_with(kSession)) {
      sessions[line.substr(0, line.rfind(' '))] = line.ends_with('1');
    } else if (line == kMistake) {
      result.hasMistake = true;
    } else if (line == kUsed) {
      result.isUsed = true;
    }
  }
  result.openSessions = static_cast<std::size_t>(
      std::ranges::count_if(sessions, [](const auto& each) { return each.second; }));
  return result;
}

}  // namespace quillbox
