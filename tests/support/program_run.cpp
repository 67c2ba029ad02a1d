#include "tests/support/program_run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <sstream>

#include "tests/support/scratch_folder.h"

namespace quillkit {

std::string OutputOnFailure(const std::string& folder, const std::string& program) {
  namespace fs = std::filesystem;
  const ScratchFolder scratch;
  const std::string report = scratch.PathOf("report");
  const fs::path before = fs::current_path();
  fs::current_path(fs::absolute(testing::internal::GetArgvs().front()).parent_path() / folder);
  const std::string path = (fs::path(".") / program).make_preferred().string();
  const int status = std::system((path + " > \"" + report + "\"").c_str());
  fs::current_path(before);
  if (status == 0) return {};
  std::ostringstream output;
  output << "status " << status << '\n' << ReadBytes(report);
  return output.str();
}

}  // namespace quillkit
