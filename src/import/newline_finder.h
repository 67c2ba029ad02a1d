// Finds the newlines of a run of bytes, one after another.
//
// Looks at 64 bytes at a time, in loops without a way out, which compilers turn into vector
// instructions: for the short lines of a text file this takes a fraction of what a search from line
// to line does.

#ifndef QUILLKIT_IMPORT_NEWLINE_FINDER_H_
#define QUILLKIT_IMPORT_NEWLINE_FINDER_H_

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

#include "base/language.h"

namespace quillkit {

class NewlineFinder {
 public:
  // How many bytes behind the end of a run are read, whatever they hold.
  static constexpr std::size_t kOverrun = 63;

  // Takes up the run from `begin` to `end`.
  void Start(char* begin, char* end) {
    current = begin;
    runEnd = end;
    pending = begin < end ? NewlinesIn(begin) : 0;
  }

  // The next newline of the run, or its end when there is no other.
  char* Next() {
    while (pending == 0) {
      if (runEnd - current <= kWindow) return runEnd;
      current += kWindow;
      pending = NewlinesIn(current);
    }
    char* const newline = current + std::countr_zero(pending);
    pending &= pending - 1;
    return newline < runEnd ? newline : runEnd;
  }

 private:
  static constexpr std::ptrdiff_t kWindow = kOverrun + 1;
  static_assert(std::endian::native == std::endian::little);

  // One bit for each byte of a window, the lowest for the first: whether it is a newline.
  static std::uint64_t NewlinesIn(const char* window) {
    unsigned char isNewline[kWindow];  // 0 or 1
    for (std::ptrdiff_t i = 0; i < kWindow; ++i) isNewline[i] = window[i] == '\n';
    std::uint64_t bits = 0;
    for (std::ptrdiff_t byte = 0; byte < 8; ++byte) {
      std::uint64_t eight = 0;
      std::memcpy(&eight, isNewline + 8 * byte, 8);
      bits |= (eight * 0x0102040810204080) >> 56 << 8 * byte;  // gathers their lowest bits
    }
    return bits;
  }

  char* current = nullptr;
  char* runEnd = nullptr;
  std::uint64_t pending = 0;  // those of the window that were not given yet
};

}  // namespace quillkit

#endif  // QUILLKIT_IMPORT_NEWLINE_FINDER_H_
