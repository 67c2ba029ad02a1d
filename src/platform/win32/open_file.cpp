#include "platform/open_file.h"

#include <fcntl.h>
#include <io.h>
#include <share.h>
#include <sys/stat.h>

#include <algorithm>

namespace quillkit {
namespace {

constexpr std::size_t kLargestPart = std::size_t{1} << 20;

OpenFile Open(const char* path, int flags, int sharing) {
  if (path == nullptr) return {};
  return OpenFile(_sopen(path, flags | _O_BINARY | _O_NOINHERIT, sharing, _S_IREAD | _S_IWRITE));
}

unsigned PartOf(std::size_t size) {
  return static_cast<unsigned>(std::min(size, kLargestPart));
}

}  // namespace

OpenFile OpenFile::ToRead(const char* path) {
  return Open(path, _O_RDONLY, _SH_DENYNO);
}

OpenFile OpenFile::ToWrite(const char* path) {
  return Open(path, _O_WRONLY | _O_CREAT | _O_TRUNC, _SH_DENYWR);
}

void OpenFile::WriteAsText() {
  _setmode(descriptor, _O_TEXT);
}

std::ptrdiff_t OpenFile::ReadPart(char* bytes, std::size_t size) const {
  return _read(descriptor, bytes, PartOf(size));
}

std::ptrdiff_t OpenFile::WritePart(std::string_view bytes) const {
  return _write(descriptor, bytes.data(), PartOf(bytes.size()));
}

bool OpenFile::Sync() {
  if (_commit(descriptor) != 0) hasFailed = true;
  return !hasFailed;
}

bool OpenFile::Close() {
  if (!IsOpen()) return false;
  if (_close(std::exchange(descriptor, -1)) != 0) hasFailed = true;
  return !hasFailed;
}

}  // namespace quillkit
