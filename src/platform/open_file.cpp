#include "platform/open_file.h"

namespace quillkit {

std::size_t OpenFile::Read(char* bytes, std::size_t size) {
  std::size_t held = 0;
  while (held < size) {
    const std::ptrdiff_t part = ReadPart(bytes + held, size - held);
    if (part < 0) hasFailed = true;
    if (part <= 0) break;
    held += static_cast<std::size_t>(part);
  }
  return held;
}

bool OpenFile::Write(std::string_view bytes) {
  while (!bytes.empty()) {
    const std::ptrdiff_t part = WritePart(bytes);
    if (part <= 0) {
      hasFailed = true;
      return false;
    }
    bytes.remove_prefix(static_cast<std::size_t>(part));
  }
  return true;
}

}  // namespace quillkit
