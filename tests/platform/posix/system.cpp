#include "tests/platform/system.h"

#include <stdio.h>
#include <sys/wait.h>

#include <array>
#include <filesystem>
#include <fstream>

namespace quillkit {

const char* const kLibraryFile = "libQuillkit.so";
const char* const kServerLibraryFile = "libIMSPAPI.so";
const char* const kStartWithoutServerLibrary = "loaded\nstatus 20\n";

std::string ProgramFile(const std::string& name) {
  return name;
}

std::string ProgramFolder() {
  return std::filesystem::read_symlink("/proc/self/exe").parent_path().string();
}

// The file that is mapped has its version behind the name.
bool IsLoaded(const char* file) {
  std::ifstream mapped("/proc/self/maps");
  for (std::string line; std::getline(mapped, line);) {
    if (line.find(std::string("/") + file) != std::string::npos) return true;
  }
  return false;
}

// A message box is a line on standard error, which RunProgram takes in.
void ReportMessageBoxes() {}

Outcome RunProgram(const std::string& folder, const std::string& name,
                   const std::string& argument) {
  const std::string command = "cd '" + folder + "' && exec ./" + name + " " + argument + " 2>&1";
  FILE* pipe = popen(command.c_str(), "r");
  if (pipe == nullptr) return {-1, {}};
  Outcome outcome{-1, {}};
  std::array<char, 4096> block{};
  while (const std::size_t size = fread(block.data(), 1, block.size(), pipe)) {
    outcome.output.append(block.data(), size);
  }
  const int status = pclose(pipe);
  if (WIFEXITED(status)) outcome.status = WEXITSTATUS(status);
  return outcome;
}

}  // namespace quillkit
