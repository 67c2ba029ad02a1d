// Shared by the fuzz targets: the input, read from its beginning, and the check of a property.

#ifndef QUILLKIT_FUZZ_INPUT_H_
#define QUILLKIT_FUZZ_INPUT_H_

#include <cstddef>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace quillkit {

// Aborts the process unless the property holds. The fuzzer reports that as a finding.
inline void Require(bool holds, const char* property) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", property);
  std::abort();
}

// The input of a target. Its first characters choose the case; digits are enough for each of them,
// so that an input can be written by hand. The rest is the data.
class Input {
 public:
  Input(const std::uint8_t* data, std::size_t size)
      : rest(reinterpret_cast<const char*>(data), size) {}

  // Returns the next character, or '0' after the end.
  char TakeChar() {
    if (rest.empty()) return '0';
    const char c = rest.front();
    rest.remove_prefix(1);
    return c;
  }

  // Returns a number below `limit` that the next character chooses: a digit chooses its value.
  std::size_t TakeBelow(std::size_t limit) {
    return static_cast<unsigned char>(TakeChar() - '0') % limit;
  }

  // Returns a column map, from five characters and a digit for the length of the map. A digit
  // chooses its value, the characters before '0' choose negative columns.
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
