// Reads a text file line by line through a fixed amount of memory.
//
// A line is what reading text into a buffer of 4095 bytes gives: at most 4094 characters, the
// newline included where it is reached. A longer line arrives in pieces, each of them a line. A
// carriage return right before a newline is folded away, on every system, before characters are
// counted; any other stays. A NUL ends the text of its line: what follows it up to the line's end
// is read and dropped. No other character is special.
//
// A file of accounts has their passwords: the memory is wiped at the end.

#ifndef QUILLKIT_IMPORT_LINE_READER_H_
#define QUILLKIT_IMPORT_LINE_READER_H_

#include <algorithm>
#include <cstddef>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

#include "import/newline_finder.h"
#include "platform/open_file.h"

namespace quillkit {

// A run of characters that may be changed, with a NUL behind its last one.
using TextSpan = std::span<char>;

inline std::string_view View(TextSpan text) {
  return {text.data(), text.size()};
}

class LineReader {
 public:
  // The most characters of one line.
  static constexpr std::size_t kMaxLine = 4094;

  LineReader();
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  // Opens the file and reads its first block. False when either fails, as it does for a folder, or
  // when `path` is null. Called once.
  bool Open(const char* path);

  // Stores the next line, with its newline if it has one; the text may be empty. It may be changed
  // in place and is valid until the next call. False at the end of the file or after a failed read.
  // REQUIRES: the file is open.
  bool Next(TextSpan* line) {
    *lineEnd = savedByte;
    if (static_cast<std::size_t>(readEnd - next) < kLookAhead && !isAtEnd) Refill();
    if (next == readEnd) return false;

    char* const begin = next;
    lineEnd = FindLineEnd();
    savedByte = *lineEnd;
    *lineEnd = '\0';
    *line = {begin, hasNul ? std::strlen(begin) : static_cast<std::size_t>(lineEnd - begin)};
    return true;
  }

  // Whether a read failed, so that the lines given are not all lines of the file.
  bool HasFailed() const { return file.HasFailed(); }

 private:
  // Where a line ends can be told when this much is at hand: its characters and the carriage
  // return that folding takes away.
  static constexpr std::size_t kLookAhead = kMaxLine + 1;

  // Moves next behind the line that it is at, folds the line's carriage return, and gives its end.
  char* FindLineEnd() {
    char* const begin = next;
    if (newline != readEnd) {
      const bool isFolded = newline != begin && newline[-1] == '\r';
      char* const end = newline + (isFolded ? 0 : 1);
      if (static_cast<std::size_t>(end - begin) <= kMaxLine) {
        next = newline + 1;
        newline = newlines.Next();
        end[-1] = '\n';
        return end;
      }
    }
    next = begin + std::min(static_cast<std::size_t>(readEnd - begin), kMaxLine);
    return next;
  }

  void Refill();

  std::unique_ptr<char[]> storage;
  OpenFile file;
  NewlineFinder newlines;   // behind newline
  char* next = nullptr;     // the first character that was not given yet
  char* newline = nullptr;  // the first newline behind it, or readEnd
  char* readEnd = nullptr;  // behind the last character that was read
  char* lineEnd = nullptr;  // the NUL behind the line that was given
  char savedByte = '\0';    // the character of the file in its place
  bool hasNul = false;      // whether there is a NUL in what was read but not given
  bool isAtEnd = false;     // nothing is left to read
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_LINE_READER_H_
