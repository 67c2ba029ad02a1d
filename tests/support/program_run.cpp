#include "tests/support/program_run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <fstream>
#include <iterator>

#include "tests/support/scratch_folder.h"

namespace quillkit {

namespace fs = std::filesystem;

fs::path ProgramFolder() {
  return fs::absolute(testing::internal::GetArgvs().front()).parent_path();
}

std::string OutputOf(const fs::path& folder, const std::string& command) {
  const ScratchFolder scratch;
  const std::string report = scratch.PathOf("report");
  const fs::path before = fs::current_path();
  fs::current_path(folder);
  const std::string program = (fs::path(".") / command).make_preferred().string();
  const int status = std::system((program + " > \"" + report + "\"").c_str());
  fs::current_path(before);
  std::ifstream text(report);  // as text, whose lines end alike everywhere
  return std::string(std::istreambuf_iterator<char>(text), {}) + "exit " + std::to_string(status);
}

}  // namespace quillkit
