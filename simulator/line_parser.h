// Takes a line to pieces from its front: words, numbers, and texts in double quotes, with blanks
// between them.

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
  explicit LineParser(std::string_view line) : rest_(line) { SkipBlanks(); }

  bool IsAtEnd() const { return rest_.empty(); }

  // The characters up to the next blank; empty at the end.
  std::string_view Word() {
    const std::string_view word = rest_.substr(0, rest_.find_first_of(kBlanks));
    Remove(word.size());
    return word;
  }

  // A text in double quotes, which a blank or the end has to follow.
  std::optional<std::string_view> Quoted() {
    if (!rest_.starts_with('"')) return std::nullopt;
    const std::size_t end = rest_.find('"', 1);
    if (end == std::string_view::npos) return std::nullopt;
    const std::string_view text = rest_.substr(1, end - 1);
    const std::string_view behind = rest_.substr(end + 1);
    if (!behind.empty() && kBlanks.find(behind.front()) == std::string_view::npos) {
      return std::nullopt;
    }
    Remove(end + 1);
    return text;
  }

  // A decimal number.
  std::optional<std::uint32_t> Number() { return WholeNumber<std::uint32_t>(Word()); }

 private:
  static constexpr std::string_view kBlanks = " \t";

  void Remove(std::size_t count) {
    rest_.remove_prefix(count);
    SkipBlanks();
  }

  void SkipBlanks() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
  }

  std::string_view rest_;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_LINE_PARSER_H_
