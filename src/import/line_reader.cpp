#include "import/line_reader.h"

#include <cstring>

#include "base/secret.h"

namespace quillkit {
namespace {

constexpr std::size_t kBlockSize = std::size_t{128} * 1024;

// Characters not delivered yet are moved before the block, so that every block is read completely
// and to the same place.
constexpr std::size_t kHeadRoom = 4096;

constexpr std::size_t kStorageSize = kHeadRoom + kBlockSize;

}  // namespace

LineReader::LineReader() : storage(std::make_unique<char[]>(kStorageSize)) {}

LineReader::~LineReader() {
  WipeBytes(storage.get(), kStorageSize);
}

bool LineReader::Open(const char* path) {
  file = OpenFile::ToRead(path);
  if (!file.IsOpen()) return false;
  next = readEnd = storage.get() + kHeadRoom;
  Refill();
  return !HasFailed();
}

void LineReader::Refill() {
  static_assert(kHeadRoom >= kLookAhead);
  char* const block = storage.get() + kHeadRoom;
  const auto kept = static_cast<std::size_t>(readEnd - next);
  std::memmove(block - kept, next, kept);
  const std::size_t read = file.Read(block, kBlockSize);
  next = block - kept;
  readEnd = block + read;
  isAtEnd = read < kBlockSize;
  newline = NextNewline();
  hasNul = std::memchr(next, '\0', static_cast<std::size_t>(readEnd - next)) != nullptr;
}

}  // namespace quillkit
