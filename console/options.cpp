#include "console/options.h"

#include <algorithm>
#include <charconv>
#include <numeric>
#include <utility>

namespace console {
namespace {

// Returns the Levenshtein distance.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);  // the distances of a prefix of `a` to those of `b`
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char c : a) {
    std::size_t diagonal = row[0]++;
    for (std::size_t j = 0; j < b.size(); ++j) {
      const std::size_t replaced = diagonal + (c == b[j] ? 0 : 1);
      diagonal = row[j + 1];
      row[j + 1] = std::min({replaced, diagonal + 1, row[j] + 1});
    }
  }
  return row.back();
}

}  // namespace

CLI::Validator NumberInRange(std::uint32_t min, std::uint32_t max) {
  const auto fault = [min, max](const std::string& text) {
    std::string_view digits = text;
    const bool isHexadecimal = digits.starts_with("0x");
    if (isHexadecimal) digits.remove_prefix(2);
    std::uint32_t number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number,
                                              isHexadecimal ? 16 : 10);
    const bool isOctal = !isHexadecimal && digits.size() > 1 && digits[0] == '0';  // for CLI11
    const bool isNumber = !isOctal && error == std::errc() && end == digits.data() + digits.size();
    return isNumber && number >= min && number <= max
               ? std::string()
               : "not a number from " + std::to_string(min) + " to " + std::to_string(max);
  };
  return {fault, "", "number"};
}

std::vector<std::string> OptionNames(const CLI::App& command, const CLI::App& program) {
  std::vector<std::string> names;
  for (const CLI::App* app : {&command, &program}) {
    for (const CLI::Option* each : app->get_options()) {
      if (!each->nonpositional()) continue;
      std::string name = "--" + each->get_lnames().front();
      if (std::ranges::count(names, name) == 0) names.push_back(std::move(name));
    }
  }
  return names;
}

std::vector<std::string> CommandNames(const CLI::App& group) {
  std::vector<std::string> names;
  for (const CLI::App* each : group.get_subcommands(nullptr)) names.push_back(each->get_name());
  return names;
}

std::string Nearest(std::string_view word, const std::vector<std::string>& candidates) {
  std::string nearest;
  for (const std::string& each : candidates) {
    if (word.size() > 2 && each.starts_with(word)) return each;
  }
  std::size_t least = (word.size() + 2) / 3 + 1;
  for (const std::string& each : candidates) {
    const std::size_t distance = Distance(word, each);
    if (distance >= least) continue;
    least = distance;
    nearest = each;
  }
  return nearest;
}

void AddJson(CLI::App* command, bool& into) {
  command->add_flag("--json", into, "Print the output as JSON");
}

void AddJsonLines(CLI::App* command, bool& json, bool& lines) {
  AddJson(command, json);
  command->add_flag("--json-lines", lines, "Print each element as JSON on a line of its own")
      ->excludes(command->get_option("--json"));
}

}  // namespace console
