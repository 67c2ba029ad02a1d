// Splits a line into words, numbers and texts in double quotes, separated by spaces or tabs.

#ifndef QUILLKIT_SIMULATOR_LINE_PARSER_H_
#define QUILLKIT_SIMULATOR_LINE_PARSER_H_

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>

#include "simulator/whole_number.h"

namespace quillbox {

class LineParser {
 public:
  explicit LineParser(std::string_view line) : rest(line) { SkipSeparators(); }

  bool IsAtEnd() const { return rest.empty(); }

  // What was not parsed yet.
  std::string_view Rest() const { return rest; }

  // The characters up to the next space or tab. Empty at the end.
  std::string_view Word() {
    const std::string_view word = rest.substr(0, rest.find_first_of(kSeparators));
    Remove(word.size());
    return word;
  }

  // A text in double quotes, followed by a space, a tab or the end.
  std::optional<std::string_view> Quoted() {
    if (!rest.starts_with('"')) return std::nullopt;
    const std::size_t end = rest.find('"', 1);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view text = rest.substr(1, end - 1);
    const std::string_view after = rest.substr(end + 1);
    if (!after.empty() && kSeparators.find(after.front()) == std::string_view::npos) {
      return std::nullopt;
    }
    Remove(end + 1);
    return text;
  }

  // A decimal number.
  std::optional<std::uint32_t> Number() { return WholeNumber<std::uint32_t>(Word()); }

 private:
  static constexpr std::string_view kSeparators = " \t";

  void Remove(std::size_t count) {
    rest.remove_prefix(count);
    SkipSeparators();
  }

  void SkipSeparators() {
    rest.remove_prefix(std::min(rest.find_first_not_of(kSeparators), rest.size()));
  }

  std::string_view rest;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_LINE_PARSER_H_
