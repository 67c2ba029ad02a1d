#include "import/line_reader.h"

#include <algorithm>
#include <cstring>

namespace quillkit {
namespace {

constexpr std::size_t kBlockSize = std::size_t{128} * 1024;

// Where a line ends can be told when this much is at hand: its characters and the carriage return
// that folding takes away.
constexpr std::size_t kLookAhead = LineReader::kMaxLine + 1;

// What was not given yet moves in front of the block, so that every block is read whole and to the
// same place.
constexpr std::size_t kHeadRoom = 4096;
static_assert(kHeadRoom >= kLookAhead);

}  // namespace

// One character more, for the NUL behind the last line.
LineReader::LineReader() : storage_(std::make_unique<char[]>(kHeadRoom + kBlockSize + 1)) {}

LineReader::~LineReader() {
  if (file_ != nullptr) std::fclose(file_);
}

bool LineReader::Open(const char* path) {
  if (path == nullptr) return false;
  file_ = std::fopen(path, "rb");
  if (file_ == nullptr) return false;
  next_ = end_ = storage_.get() + kHeadRoom;
  Refill();
  lineEnd_ = next_;
  covered_ = *next_;
  return !failed_;
}

bool LineReader::Next(TextSpan* line) {
  *lineEnd_ = covered_;
  if (static_cast<std::size_t>(end_ - next_) < kLookAhead && !atEnd_) Refill();
  if (next_ == end_) return false;

  char* const begin = next_;
  lineEnd_ = FindLineEnd();
  covered_ = *lineEnd_;
  *lineEnd_ = '\0';
  *line = {begin, std::strlen(begin)};
  return true;
}

// Moves next_ behind the line that it is at, folds the line's carriage return, and gives its end.
char* LineReader::FindLineEnd() {
  char* const begin = next_;
  const std::size_t reach = std::min(static_cast<std::size_t>(end_ - begin), kLookAhead);
  auto* newline = static_cast<char*>(std::memchr(begin, '\n', reach));
  if (newline != nullptr) {
    next_ = newline + 1;
    if (newline != begin && newline[-1] == '\r') *--newline = '\n';
    if (static_cast<std::size_t>(newline - begin) < kMaxLine) return newline + 1;
  }
  next_ = begin + std::min(reach, kMaxLine);
  return next_;
}

void LineReader::Refill() {
  char* const block = storage_.get() + kHeadRoom;
  const auto kept = static_cast<std::size_t>(end_ - next_);
  std::memmove(block - kept, next_, kept);
  const std::size_t read = std::fread(block, 1, kBlockSize, file_);
  next_ = block - kept;
  end_ = block + read;
  atEnd_ = read < kBlockSize;
  failed_ = std::ferror(file_) != 0;
}

}  // namespace quillkit
