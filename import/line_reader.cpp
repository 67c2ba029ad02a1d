#include "import/line_reader.h"

#include <algorithm>
#include <cstring>

namespace quillkit {
namespace {

constexpr std::size_t kBlockSize = std::size_t{128} * 1024;

// A line can be told from what follows it when this much is at hand: its characters and the
// carriage return that folding takes away.
constexpr std::size_t kLookAhead = LineReader::kMaxLine + 1;

// What was not given yet moves in front of the block, so that every block is read whole and to the
// same place.
constexpr std::size_t kHeadRoom = 4096;
static_assert(kHeadRoom >= kLookAhead);

char* FindIn(char* begin, char* end, char wanted) {
  void* found = std::memchr(begin, wanted, static_cast<std::size_t>(end - begin));
  return found != nullptr ? static_cast<char*>(found) : end;
}

}  // namespace

LineReader::LineReader() : storage_(new char[kHeadRoom + kBlockSize]) {}

LineReader::~LineReader() {
  if (file_ != nullptr) std::fclose(file_);
}

bool LineReader::Open(const char* path) {
  if (path == nullptr) return false;
  file_ = std::fopen(path, "rb");
  if (file_ == nullptr) return false;
  next_ = end_ = storage_.get() + kHeadRoom;
  Refill();
  return !failed_;
}

bool LineReader::Next(TextSpan* line) {
  if (static_cast<std::size_t>(end_ - next_) < kLookAhead && !atEnd_) Refill();
  if (next_ == end_) return false;

  char* const begin = next_;
  const std::size_t reach = std::min(static_cast<std::size_t>(end_ - begin), kLookAhead);
  char* const newline = FindIn(begin, begin + reach, '\n');
  if (newline != begin + reach) {
    char* last = newline;
    if (last != begin && last[-1] == '\r') *--last = '\n';
    if (static_cast<std::size_t>(last - begin) < kMaxLine) {
      next_ = newline + 1;
      *line = CutAtNul(begin, last + 1);
      return true;
    }
  }
  next_ = begin + std::min(reach, kMaxLine);
  *line = CutAtNul(begin, next_);
  return true;
}

// REQUIRES: next_ has moved behind the line that runs from `begin` to `end`.
TextSpan LineReader::CutAtNul(char* begin, char* end) {
  if (nul_ >= end) return {begin, end};
  end = nul_;
  nul_ = FindIn(next_, end_, '\0');
  return {begin, end};
}

void LineReader::Refill() {
  char* const block = storage_.get() + kHeadRoom;
  const auto kept = static_cast<std::size_t>(end_ - next_);
  std::memmove(block - kept, next_, kept);
  const std::size_t read = std::fread(block, 1, kBlockSize, file_);
  next_ = block - kept;
  end_ = block + read;
  nul_ = FindIn(next_, end_, '\0');
  atEnd_ = read < kBlockSize;
  failed_ = std::ferror(file_) != 0;
}

}  // namespace quillkit
