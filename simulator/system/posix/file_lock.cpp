#include "simulator/system/file_lock.h"

#include <fcntl.h>
#include <sys/file.h>

#include <cerrno>

namespace quillbox {

// A lock of flock() belongs to the open file: a forked child opens its own.
FileLock::FileLock(const std::string& path)
    : file(open(path.c_str(), O_RDWR | O_CREAT | O_CLOEXEC | O_NONBLOCK, 0600)) {
  if (!file.IsOpen()) return;
  int result = -1;
  do {
    result = flock(file.Descriptor(), LOCK_EX);
  } while (result != 0 && errno == EINTR);
  if (result != 0) file = quillkit::OpenFile();
}

}  // namespace quillbox
