// A NUL-terminated 8-bit text in a field of N bytes. The records of the server protocol consist of
// such fields.
//
// Invariants:
//   1. sizeof(FixedText<N>) == N, with no alignment of its own, and it is trivially copyable.
//   2. A text set here has its NUL inside the field. Text from a server may lack it: View() and
//      Length() stop at the end of the field, and Terminate() adds the NUL.
//   3. Bytes after the NUL have no meaning. Setters leave them unchanged.
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
  // The length of the longest text that fits, in bytes without its NUL.
  static constexpr std::size_t kMaxLength = N - 1;

  FixedText() = default;

  // Copies `text`, truncated to the field.
  explicit FixedText(std::string_view text) { Assign(text); }

  // Stores `text` and its NUL. Returns 1, or 0 and no change for a text longer than kMaxLength.
  int Set(std::string_view text) {
    if (text.size() > kMaxLength) return 0;
    Assign(text);
    return 1;
  }

  // Stores `text` and its NUL, truncated to the field. `text` may be part of this field.
  void Assign(std::string_view text) {
    const std::size_t length = text.size() < kMaxLength ? text.size() : kMaxLength;
    if (length != 0) std::memmove(bytes, text.data(), length);
    bytes[length] = '\0';
  }

  // Stores `text` and its NUL. A text that is too long fills the field without a NUL, so that
  // IsTerminated() returns false. `text` may be part of this field.
  void AssignOrFill(std::string_view text) {
    const std::size_t length = text.size() < N ? text.size() : N;
    if (length != 0) std::memmove(bytes, text.data(), length);
    if (length < N) bytes[length] = '\0';
  }

  // Overwrites the whole field with zeroes. Use it for secrets.
  void Wipe() { WipeBytes(bytes, N); }

  // Writes a NUL at the end of the field. Call it for data from a server, before c_str(). A store
  // does not wait for the bytes: to read them first takes longer, right after they were copied.
  void Terminate() { bytes[kMaxLength] = '\0'; }

  // Valid as long as the record is not moved or destroyed. REQUIRES: the text has its NUL.
  const char* c_str() const { return bytes; }

  // Returns the text up to its NUL or the end of the field. Valid like c_str().
  std::string_view View() const { return {bytes, Length()}; }

  // Returns the length of the text, or N if it has no NUL.
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
