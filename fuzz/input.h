// What every fuzz target has: its input, taken from the front, and what has to hold of it.

#ifndef QUILLKIT_FUZZ_INPUT_H_
#define QUILLKIT_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace quillkit {

// Ends the process, which the fuzzer takes for a finding, where something does not hold.
inline void Require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

// A target's input. Its first characters choose what is done, and are digits where somebody writes
// an input by hand; the rest is what it is done to.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest(reinterpret_cast<const char*>(data), size) {}

  // The next character, and a zero behind the end.
  char TakeChar() {
    if (rest.empty()) return '0';
    const char c = rest.front();
    rest.remove_prefix(1);
    return c;
  }

  // A number below `limit`, by one character: a digit stands for itself.
  std::size_t TakeBelow(std::size_t limit) {
    return static_cast<unsigned char>(TakeChar() - '0') % limit;
  }

  // The columns of a map: five characters, and a digit for the number of those that count. A digit
  // stands for its column, the characters before the zero for -1 and less.
  std::vector<std::int32_t> TakeColumns() {
    std::vector<std::int32_t> columns(5);
    for (std::int32_t& column : columns) column = static_cast<std::int32_t>(TakeChar()) - '0';
    columns.resize(TakeBelow(columns.size() + 1));
    return columns;
  }

  std::string_view Rest() const { return rest; }

 private:
  std::string_view rest;
};

}  // namespace quillkit

#endif  // QUILLKIT_FUZZ_INPUT_H_
