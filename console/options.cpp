#include "console/options.h"

#include <algorithm>
#include <charconv>
#include <utility>

namespace console {

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

void RefuseValuesOfFlags(CLI::App& command) {
  for (CLI::Option* each : command.get_options()) {
    if (each->get_items_expected_max() == 0) each->disable_flag_override();
  }
  for (CLI::App* each : command.get_subcommands(nullptr)) RefuseValuesOfFlags(*each);
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
