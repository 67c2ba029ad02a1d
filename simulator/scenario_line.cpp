#include "simulator/scenario_line.h"

#include <optional>

#include "simulator/escaped_text.h"

namespace quillbox {
namespace {

std::string Quoted(std::string_view text) {
  return '"' + Escaped(text) + '"';
}

}  // namespace

std::string ScenarioLine::Text(std::string_view what, std::size_t limit) {
  if (IsAtEnd()) throw ScenarioError(std::string(what) + " is missing");
  if (!parser.Rest().starts_with('"')) {
    const std::string_view word = parser.Word();
    if (word.find('"') != word.npos) {
      throw ScenarioError(Quoted(word) + " has a quote inside; write the whole text in quotes");
    }
    if (word.size() <= limit) return std::string(word);
    throw ScenarioError(Quoted(word) + " is too long");
  }
  const auto quoted = parser.Quoted();
  const std::optional<std::string> text = quoted ? Unescaped(*quoted, limit) : std::nullopt;
  if (text && text->find('\0') == text->npos) return *text;
  throw ScenarioError(std::string(what) + " is not a valid text in quotes of at most " +
                      std::to_string(limit) + " bytes");
}

std::uint32_t ScenarioLine::Number(std::string_view what, std::uint32_t least, std::uint32_t most) {
  const std::string word = Text(what);
  const auto number = WholeNumber<std::uint32_t>(word);
  if (number && *number >= least && *number <= most) return *number;
  throw ScenarioError(Quoted(word) + " is not " + std::string(what) + " from " +
                      std::to_string(least) + " to " + std::to_string(most));
}

// Reads "0.25" without the locale of the process.
double ScenarioLine::Probability() {
  const std::string word = Text("a probability");
  constexpr std::size_t kMostDigits = 9;
  if (word == "1") return 1;
  const auto digits = word.starts_with("0.") && word.size() <= kMostDigits
                          ? WholeNumber<std::uint32_t>(std::string_view(word).substr(2))
                          : std::nullopt;
  if (!digits || *digits == 0) {
    throw ScenarioError(Quoted(word) + " is not a probability, such as 0.25");
  }
  double scale = 1;
  for (std::size_t i = 2; i < word.size(); ++i) scale *= 10;
  return *digits / scale;
}

void ScenarioLine::End() const {
  if (!IsAtEnd()) throw ScenarioError("unexpected " + Quoted(parser.Rest()));
}

}  // namespace quillbox
