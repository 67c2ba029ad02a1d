#include "tests/support/program_run.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/toolkit/scratch_file.h"

namespace quillkit {

std::string OutputOnFailure(const std::string& folder, const std::string& program) {
  namespace fs = std::filesystem;
  const ScratchFile report("");
  const fs::path before = fs::current_path();
  fs::current_path(fs::absolute(testing::internal::GetArgvs().front()).parent_path() / folder);
  const std::string path = (fs::path(".") / program).make_preferred().string();
  const int status = std::system((path + " > \"" + report.path() + "\"").c_str());
  fs::current_path(before);
  if (status == 0) return {};
  std::ostringstream output;
  output << "status " << status << '\n' << std::ifstream(report.path()).rdbuf();
  return output.str();
}

}  // namespace quillkit
