#include "console/system/program_file.h"

#include <filesystem>
#include <system_error>

namespace console {

std::string ProgramFile() {
  std::error_code failure;
  return std::filesystem::read_symlink("/proc/self/exe", failure).string();
}

}  // namespace console
