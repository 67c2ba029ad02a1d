// A NUL-terminated 8-bit text inside a field of N bytes, the building block of every record that
// crosses the server boundary.
//
// Invariants:
//   1. sizeof(FixedText<N>) == N, with no alignment of its own, and it is trivially copyable.
//   2. A value made here is terminated inside the field. One that was filled from outside need not
//      be: View() and Length() stop at the field's end, and Terminate() restores the invariant.
//   3. Bytes behind the NUL carry no meaning; setters leave them as they were.
//
// Text has no character set. Comparison is by unsigned bytes, case-sensitive.

#ifndef QUILLKIT_BASE_FIXED_TEXT_H_
#define QUILLKIT_BASE_FIXED_TEXT_H_

#include <cstddef>
#include <cstring>
#include <string_view>
#include <type_traits>

#include "base/secret.h"

namespace quillkit {

template <std::size_t N>
class FixedText {
 public:
  // The longest text that fits, in bytes without its NUL.
  static constexpr std::size_t kMaxLength = N - 1;

  FixedText() = default;

  // Copies `text`, cut at the field.
  explicit FixedText(std::string_view text) { Assign(text); }

  // Stores `text` and its NUL and returns 1. A text longer than kMaxLength is refused: 0, no
  // change.
  int Set(std::string_view text) {
    if (text.size() > kMaxLength) return 0;
    Assign(text);
    return 1;
  }

  // Stores `text` and its NUL, cut at the field. `text` may lie inside this field.
  void Assign(std::string_view text) {
    const std::size_t length = text.size() < kMaxLength ? text.size() : kMaxLength;
    if (length != 0) std::memmove(bytes, text.data(), length);
    bytes[length] = '\0';
  }

  // Stores `text`. One that is too long fills the field and leaves it without a NUL, so that
  // IsTerminated() tells. `text` may lie inside this field.
  void AssignOrFill(std::string_view text) {
    const std::size_t length = text.size() < N ? text.size() : N;
    if (length != 0) std::memmove(bytes, text.data(), length);
    if (length < N) bytes[length] = '\0';
  }

  // Overwrites the whole field with zeroes: for a text that was a secret.
  void Wipe() { WipeBytes(bytes, N); }

  // Ends the text inside the field. Call it on what a server filled in, before c_str().
  void Terminate() { bytes[kMaxLength] = '\0'; }

  // REQUIRES: the text is terminated. Valid as long as the record stands where it is.
  const char* c_str() const { return bytes; }

  // The text up to its NUL or the field's end. Valid as c_str().
  std::string_view View() const { return {bytes, Length()}; }

  // At most N: a field without a NUL gives N, one more than any valid text.
  std::size_t Length() const {
    const void* end = std::memchr(bytes, '\0', N);
    return end != nullptr ? static_cast<std::size_t>(static_cast<const char*>(end) - bytes) : N;
  }

  bool IsEmpty() const { return bytes[0] == '\0'; }
  bool IsTerminated() const { return Length() <= kMaxLength; }

  friend bool operator==(const FixedText& a, const FixedText& b) { return a.View() == b.View(); }
  friend bool operator==(const FixedText& a, std::string_view b) { return a.View() == b; }

 private:
  char bytes[N] = {};
};

static_assert(sizeof(FixedText<11>) == 11 && alignof(FixedText<11>) == 1);
static_assert(std::is_trivially_copyable_v<FixedText<32>>);

}  // namespace quillkit

#endif  // QUILLKIT_BASE_FIXED_TEXT_H_
