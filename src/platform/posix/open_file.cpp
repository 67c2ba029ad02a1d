#include "platform/open_file.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>

namespace quillkit {
namespace {

// Repeats a system call until no signal interrupts it.
template <class Call>
auto Repeated(Call call) {
  auto result = call();
  while (result == -1 && errno == EINTR) result = call();
  return result;
}

// Opening a pipe waits for its other end.
OpenFile Open(const char* path, int flags) {
  if (path == nullptr) return {};
  return OpenFile(Repeated([=] { return open(path, flags | O_CLOEXEC, 0666); }));
}

}  // namespace

OpenFile OpenFile::ToRead(const char* path) {
  return Open(path, O_RDONLY);
}

OpenFile OpenFile::ToWrite(const char* path) {
  return Open(path, O_WRONLY | O_CREAT | O_TRUNC);
}

void OpenFile::WriteAsText() {}

std::ptrdiff_t OpenFile::ReadPart(char* bytes, std::size_t size) const {
  return Repeated([=, this] { return read(descriptor, bytes, size); });
}

std::ptrdiff_t OpenFile::WritePart(std::string_view bytes) const {
  const ssize_t part =
      Repeated([=, this] { return write(descriptor, bytes.data(), bytes.size()); });
  if (part == 0) errno = EIO;
  return part;
}

bool OpenFile::Sync() {
  if (Repeated([this] { return fsync(descriptor); }) != 0) hasFailed = true;
  return !hasFailed;
}

// An interrupted close has closed the file.
bool OpenFile::Close() {
  if (!IsOpen()) return false;
  if (close(std::exchange(descriptor, -1)) != 0 && errno != EINTR) hasFailed = true;
  return !hasFailed;
}

}  // namespace quillkit
