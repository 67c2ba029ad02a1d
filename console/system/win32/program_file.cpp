#include "console/system/program_file.h"

#include <windows.h>

namespace console {

std::string ProgramFile() {
  std::string path(MAX_PATH, '\0');
  const DWORD size = GetModuleFileNameA(nullptr, path.data(), MAX_PATH);
  path.resize(size < MAX_PATH ? size : 0);  // a longer path is cut off and useless
  return path;
}

}  // namespace console
