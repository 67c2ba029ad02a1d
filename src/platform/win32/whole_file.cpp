#include <fcntl.h>
#include <io.h>
#include <windows.h>

#include "platform/draft.h"
#include "platform/open_file.h"

namespace quillkit {
namespace {

constexpr unsigned kMaxDeletedDrafts = 16;

void RemoveAbandonedDrafts(const std::string& folder) {
  WIN32_FIND_DATAA found{};
  const HANDLE search = FindFirstFileA((folder + std::string(kDraftPrefix) + '*').c_str(), &found);
  if (search == INVALID_HANDLE_VALUE) return;
  do {
    if (!IsDraftName(found.cFileName)) continue;
    // Fails if any process has the file open. Closing deletes it.
    const HANDLE draft =
        CreateFileA((folder + found.cFileName).c_str(), DELETE, 0, nullptr, OPEN_EXISTING,
                    FILE_FLAG_DELETE_ON_CLOSE | FILE_FLAG_OPEN_REPARSE_POINT, nullptr);
    if (draft != INVALID_HANDLE_VALUE) CloseHandle(draft);
  } while (FindNextFileA(search, &found) != 0);
  FindClose(search);
}

// Creates a draft and stores its path. The draft can be moved while it is open.
OpenFile CreateDraft(const std::string& folder, std::string* path) {
  for (unsigned number = 1;; ++number) {
    *path = folder + DraftName(number);
    const HANDLE file =
        CreateFileA(path->c_str(), GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_DELETE, nullptr,
                    CREATE_NEW, FILE_ATTRIBUTE_NORMAL, nullptr);
    if (file != INVALID_HANDLE_VALUE) {
      return OpenFile(_open_osfhandle(reinterpret_cast<std::intptr_t>(file), _O_BINARY));
    }
    // A draft that another process is deleting denies access until it is deleted.
    const DWORD error = GetLastError();
    const bool isTaken =
        error == ERROR_FILE_EXISTS || (error == ERROR_ACCESS_DENIED && number < kMaxDeletedDrafts);
    if (!isTaken) return {};
  }
}

}  // namespace

// The folder determines who may read a new file.
bool ReplaceFileAt(const std::string& path, std::string_view bytes, Readers /*readers*/) {
  const std::string folder = path.substr(0, path.find_last_of("/\\:") + 1);
  RemoveAbandonedDrafts(folder);
  std::string draft;
  OpenFile file = CreateDraft(folder, &draft);
  const bool isReplaced = file.Write(bytes) && file.Sync() &&
                          MoveFileExA(draft.c_str(), path.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
  const bool isCreated = file.IsOpen();
  file.Close();
  if (isCreated && !isReplaced) DeleteFileA(draft.c_str());
  return isReplaced;
}

}  // namespace quillkit
