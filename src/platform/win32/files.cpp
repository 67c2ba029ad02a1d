#include "platform/files.h"

#include <windows.h>

#include <array>
#include <utility>

namespace quillkit {

bool MatchesAnyFile(const char* path) {
  if (path == nullptr) return false;
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA(path, &found);
  if (search == INVALID_HANDLE_VALUE) return false;
  FindClose(search);
  return true;
}

// The system closes the file that it created.
CreatedFile CreateTemporaryFile(const char* prefix) {
  constexpr DWORD kLongestFolder = MAX_PATH - 14;  // leaves room for a name of 8.3 characters
  std::array<char, MAX_PATH + 1> folder{};
  const DWORD length = GetTempPathA(static_cast<DWORD>(folder.size()), folder.data());
  if (length == 0 || length > kLongestFolder) return {};
  std::array<char, MAX_PATH + 1> path{};
  if (GetTempFileNameA(folder.data(), prefix, 0, path.data()) == 0) return {};
  OpenFile file = OpenFile::ToWrite(path.data());
  if (!file.IsOpen()) {
    DeleteFileAt(path.data());
    return {};
  }
  return {path.data(), std::move(file)};
}

void DeleteFileAt(const std::string& path) {
  DeleteFileA(path.c_str());
}

}  // namespace quillkit
