#include "import/line_reader.h"

#include <cstring>

#include "base/secret.h"

namespace quillkit {
namespace {

constexpr std::size_t kBlockSize = std::size_t{128} * 1024;

// What was not given yet moves in front of the block, so that every block is read whole and to the
// same place.
constexpr std::size_t kHeadRoom = 4096;

// The NUL behind the last line takes one more, and lies in what the search for newlines overruns.
constexpr std::size_t kStorageSize = kHeadRoom + kBlockSize + NewlineFinder::kOverrun;

}  // namespace

LineReader::LineReader() : storage_(std::make_unique<char[]>(kStorageSize)) {}

LineReader::~LineReader() {
  WipeBytes(storage_.get(), kStorageSize);
}

bool LineReader::Open(const char* path) {
  file_ = OpenFile::ToRead(path);
  if (!file_.IsOpen()) return false;
  next_ = end_ = storage_.get() + kHeadRoom;
  Refill();
  lineEnd_ = next_;
  covered_ = *next_;
  return !HasFailed();
}

void LineReader::Refill() {
  static_assert(kHeadRoom >= kLookAhead);
  char* const block = storage_.get() + kHeadRoom;
  const auto kept = static_cast<std::size_t>(end_ - next_);
  std::memmove(block - kept, next_, kept);
  const std::size_t read = file_.Read(block, kBlockSize);
  next_ = block - kept;
  end_ = block + read;
  atEnd_ = read < kBlockSize;
  newlines_.Start(next_, end_);
  newline_ = newlines_.Next();
  hasNul_ = std::memchr(next_, '\0', static_cast<std::size_t>(end_ - next_)) != nullptr;
}

}  // namespace quillkit
