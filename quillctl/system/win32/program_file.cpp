#include "quillctl/system/program_file.h"

#include <windows.h>

namespace quillkit {

std::string ProgramFile() {
  std::string path(MAX_PATH, '\0');
  const DWORD size = GetModuleFileNameA(nullptr, path.data(), MAX_PATH);
  path.resize(size < MAX_PATH ? size : 0);  // a longer one is cut and has no use
  return path;
}

}  // namespace quillkit
