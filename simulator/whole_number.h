// Reads a number that is the whole of a text.

#ifndef QUILLKIT_SIMULATOR_WHOLE_NUMBER_H_
#define QUILLKIT_SIMULATOR_WHOLE_NUMBER_H_

#include <charconv>
#include <optional>
#include <string_view>
#include <system_error>

namespace quillbox {

// The number, or none for a text that is anything else or is out of the type's range.
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
