// Reads a text file line by line with a fixed amount of memory.
//
// A line has at most 4094 characters, including its newline if that is reached, as if read into a
// buffer of 4095 bytes. A longer line is delivered in parts, each of them a line. A carriage return
// before a newline is removed on every system, before characters are counted; any other stays. A
// NUL ends the text of its line: the rest of the line is skipped. No other character is special.
// No NUL is added.
//
// The memory is wiped at the end: a file of accounts contains their passwords.

#ifndef QUILLKIT_IMPORT_LINE_READER_H_
#define QUILLKIT_IMPORT_LINE_READER_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <memory>
#include <span>
#include <string_view>

#include "platform/open_file.h"

namespace quillkit {

// Text that may be changed.
using TextSpan = std::span<char>;

inline std::string_view View(TextSpan text) {
  return {text.data(), text.size()};
}

class LineReader {
 public:
  // The largest number of characters of a line.
  static constexpr std::size_t kMaxLine = 4094;

  LineReader();
  LineReader(const LineReader&) = delete;
  LineReader& operator=(const LineReader&) = delete;
  ~LineReader();

  // Opens the file and reads its first block. Returns false on failure: also for a folder or a null
  // path. Called once.
  bool Open(const char* path);

  // Stores the next line, with its newline if it has one; it may be empty. The text may be changed
  // and is valid until the next call. Returns false at the end of the file or after a failed read.
  // REQUIRES: the file is open.
  bool Next(TextSpan* line) {
    if (static_cast<std::size_t>(readEnd - next) < kLookAhead && !isAtEnd) Refill();
    if (next == readEnd) return false;

    char* const begin = next;
    lineNumber = newlinesDelivered + 1;
    char* const end = FindLineEnd();
    *line = {begin, hasNul ? std::find(begin, end, '\0') : end};
    return true;
  }

  // Returns the number of the latest line in the file, from 1. All parts of a line have the same
  // number.
  std::uint64_t LineNumber() const { return lineNumber; }

  // Returns whether a read failed, so that lines are missing.
  bool HasFailed() const { return file.HasFailed(); }

 private:
  // The number of characters needed to find the end of a line: its characters and a carriage return
  // that is removed.
  static constexpr std::size_t kLookAhead = kMaxLine + 1;

  // Moves `next` to the following line, removes the carriage return, returns the end of the line.
  char* FindLineEnd() {
    char* const begin = next;
    if (newline != readEnd) {
      const bool isFolded = newline != begin && newline[-1] == '\r';
      char* const end = newline + (isFolded ? 0 : 1);
      if (static_cast<std::size_t>(end - begin) <= kMaxLine) {
        next = newline + 1;
        newline = NextNewline();
        ++newlinesDelivered;
        if (isFolded) end[-1] = '\n';
        return end;
      }
    }
    next = begin + std::min(static_cast<std::size_t>(readEnd - begin), kMaxLine);
    return next;
  }

  // Returns the first newline among the characters not delivered yet, or readEnd.
  char* NextNewline() const {
    void* found = std::memchr(next, '\n', static_cast<std::size_t>(readEnd - next));
    return found != nullptr ? static_cast<char*>(found) : readEnd;
  }

  void Refill();

  std::unique_ptr<char[]> storage;
  OpenFile file;
  char* next = nullptr;     // the first character not delivered yet
  char* newline = nullptr;  // the first newline from there on, or readEnd
  char* readEnd = nullptr;  // the end of the characters read
  std::uint64_t lineNumber = 0;
  std::uint64_t newlinesDelivered = 0;
  bool hasNul = false;   // whether the characters not delivered contain a NUL
  bool isAtEnd = false;  // the file has been read completely
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_LINE_READER_H_
