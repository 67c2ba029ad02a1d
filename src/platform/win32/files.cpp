#include "platform/files.h"

#include <windows.h>

#include <array>
#include <utility>

namespace quillkit {
namespace {

// Returns an empty text if a character has no equivalent in the code page.
std::string InCodePage(const std::wstring& text) {
  const int size = static_cast<int>(text.size());
  BOOL isLossy = FALSE;
  std::string converted(text.size() * 2, '\0');
  const int length =
      WideCharToMultiByte(CP_ACP, WC_NO_BEST_FIT_CHARS, text.data(), size, converted.data(),
                          static_cast<int>(converted.size()), nullptr, &isLossy);
  converted.resize(isLossy == FALSE ? static_cast<std::size_t>(length) : 0);
  return converted;
}

}  // namespace

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

std::string SystemPath(const std::string& utf8) {
  std::wstring wide(utf8.size(), L'\0');
  const int length =
      MultiByteToWideChar(CP_UTF8, MB_ERR_INVALID_CHARS, utf8.data(), static_cast<int>(utf8.size()),
                          wide.data(), static_cast<int>(wide.size()));
  wide.resize(static_cast<std::size_t>(length));
  std::string path = InCodePage(wide);
  if (!path.empty() || wide.empty()) return path;
  std::array<wchar_t, MAX_PATH + 1> shorter{};
  const DWORD shortLength =
      GetShortPathNameW(wide.c_str(), shorter.data(), static_cast<DWORD>(shorter.size()));
  if (shortLength == 0 || shortLength >= shorter.size()) return {};
  return InCodePage(shorter.data());
}

void DeleteFileAt(const std::string& path) {
  DeleteFileA(path.c_str());
}

}  // namespace quillkit
