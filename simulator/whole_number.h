// Parses a text that consists of one number.

#ifndef QUILLKIT_SIMULATOR_WHOLE_NUMBER_H_
#define QUILLKIT_SIMULATOR_WHOLE_NUMBER_H_

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace quillbox {

// Returns the number, or nothing for any other text or a number out of the range of the type.
template <class Number>
std::optional<Number> WholeNumber(std::string_view text, int base = 10) {
  Number number = 0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, number, base);
  if (error != std::errc() || stop != end) return std::nullopt;
  return number;
}

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_WHOLE_NUMBER_H_
