#include "simulator/system/file_lock.h"

#include <fcntl.h>
#include <io.h>
#include <windows.h>

namespace quillbox {

// Locks a byte that the file does not have: others can read and extend the file.
FileLock::FileLock(const std::string& path) {
  const HANDLE opened =
      CreateFileA(path.c_str(), GENERIC_READ | GENERIC_WRITE, FILE_SHARE_READ | FILE_SHARE_WRITE,
                  nullptr, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, nullptr);
  if (opened == INVALID_HANDLE_VALUE) return;
  file = quillkit::OpenFile(_open_osfhandle(reinterpret_cast<std::intptr_t>(opened), _O_BINARY));
  OVERLAPPED place{};
  place.OffsetHigh = 1;
  if (LockFileEx(opened, LOCKFILE_EXCLUSIVE_LOCK, 0, 1, 0, &place) == 0) {
    file = quillkit::OpenFile();
  }
}

}  // namespace quillbox
