// A lock that processes share through a file.

#ifndef QUILLKIT_SIMULATOR_SYSTEM_FILE_LOCK_H_
#define QUILLKIT_SIMULATOR_SYSTEM_FILE_LOCK_H_

#include <string>

#include "platform/open_file.h"

namespace quillbox {

class FileLock {
 public:
  // No lock.
  FileLock() = default;

  // Waits for the lock of the file, which is created if it does not exist, on POSIX readable only
  // by its owner. The destructor releases the lock; the system does if the process ends.
  explicit FileLock(const std::string& path);

  // Whether the lock is held: false if the file cannot be created or locked.
  bool IsHeld() const { return file.IsOpen(); }

 private:
  quillkit::OpenFile file;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SYSTEM_FILE_LOCK_H_
