// The words of one line of a scenario. An error in them is thrown as a ScenarioError.

#ifndef QUILLKIT_SIMULATOR_SCENARIO_LINE_H_
#define QUILLKIT_SIMULATOR_SCENARIO_LINE_H_

#include <cstdint>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>

#include "simulator/line_parser.h"

namespace quillbox {

class ScenarioError : public std::runtime_error {
  using runtime_error::runtime_error;
};

class ScenarioLine {
 public:
  explicit ScenarioLine(std::string_view line) : parser(line) {}

  // Whether nothing follows but a comment.
  bool IsAtEnd() const { return parser.IsAtEnd() || parser.Rest().starts_with('#'); }

  // A word, or a text in double quotes in the format of escaped_text.h. `what` is its description.
  std::string Text(std::string_view what, std::size_t limit = 4096);

  // A number in decimal digits.
  std::uint32_t Number(std::string_view what, std::uint32_t least = 0,
                       std::uint32_t most = std::numeric_limits<std::uint32_t>::max());

  // A number above 0 and not above 1.
  double Probability();

  // Requires the end of the line.
  void End() const;

 private:
  LineParser parser;
};

}  // namespace quillbox

#endif  // QUILLKIT_SIMULATOR_SCENARIO_LINE_H_
