#include "platform/posix/whole_file.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <string>

#include "platform/posix/descriptor.h"

namespace quillkit {
namespace {

constexpr mode_t kPrivateFile = 0600;

// Creates a file that nobody else has, and gives its name.
int CreateDraft(int folder, std::string* name) {
  static unsigned drafts = 0;
  int file = -1;
  do {
    *name = DraftName('-' + std::to_string(++drafts));
    file = openat(folder, name->c_str(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, kPrivateFile);
  } while (file < 0 && errno == EEXIST);
  return file;
}

// Calls `step` until `size` bytes have gone. False, and errno, when it fails or the file ends.
template <class Step>
bool Transfer(std::size_t size, Step step) {
  for (std::size_t gone = 0; gone < size;) {
    const ssize_t part = step(gone, size - gone);
    if (part == 0) errno = EIO;
    if (part == 0 || (part < 0 && errno != EINTR)) return false;
    if (part > 0) gone += static_cast<std::size_t>(part);
  }
  return true;
}

bool Fill(int file, const char* bytes, std::size_t size) {
  return Transfer(size, [=](std::size_t from,
                            std::size_t left) { return write(file, bytes + from, left); }) &&
         fsync(file) == 0;
}

}  // namespace

std::string DraftName(std::string_view mark) {
  return std::string(kDraftPrefix) + std::to_string(getpid()) + std::string(mark);
}

int ReplaceFile(int folder, const char* name, const void* bytes, std::size_t size) {
  std::string draft;
  const Descriptor file(CreateDraft(folder, &draft));
  if (!file.IsOpen()) return errno;
  if (Fill(file.Number(), static_cast<const char*>(bytes), size) &&
      renameat(folder, draft.c_str(), folder, name) == 0) {
    return 0;
  }
  const int error = errno;
  unlinkat(folder, draft.c_str(), 0);
  return error;
}

int ReadFile(int folder, const char* name, void* bytes, std::uint32_t* size) {
  // Not blocking, for the sake of what is no plain file.
  const Descriptor file(openat(folder, name, O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat found {};
  if (!file.IsOpen() || fstat(file.Number(), &found) != 0) return errno;
  if (!S_ISREG(found.st_mode)) return ENOENT;
  const std::uint32_t room = *size;
  *size = static_cast<std::uint32_t>(std::min<off_t>(found.st_size, UINT32_MAX));
  if (*size > room) return EOVERFLOW;
  const bool whole = Transfer(*size, [&](std::size_t from, std::size_t left) {
    return read(file.Number(), static_cast<char*>(bytes) + from, left);
  });
  return whole ? 0 : errno;
}

}  // namespace quillkit
