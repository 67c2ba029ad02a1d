#include "console/parse_error.h"

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <numeric>
#include <string_view>
#include <utility>

#include "console/displayed_text.h"
#include "console/options.h"

namespace console {
namespace {

// Returns the number of insertions, deletions, replacements and exchanges of neighbours that turn
// one text into the other.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);  // the distances of a prefix of `a` to those of `b`
  std::iota(row.begin(), row.end(), std::size_t{0});
  std::vector<std::size_t> before;  // the row before
  for (std::size_t i = 0; i < a.size(); ++i) {
    const std::vector<std::size_t> two = std::exchange(before, row);
    row[0] = i + 1;
    for (std::size_t j = 0; j < b.size(); ++j) {
      row[j + 1] = std::min({before[j] + (a[i] == b[j] ? 0 : 1), before[j + 1] + 1, row[j] + 1});
      const bool areExchanged = i > 0 && j > 0 && a[i] == b[j - 1] && a[i - 1] == b[j];
      if (areExchanged) row[j + 1] = std::min(row[j + 1], two[j - 1] + 1);
    }
  }
  return row.back();
}

// Returns the candidate that begins with the word; or the one with the least Distance to it.
// Returns an empty text if each has more than one for each three characters of the word.
std::string Nearest(std::string_view word, const std::vector<std::string>& candidates);

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

// Returns the command line that prints the help of the program or a command.
std::string HelpOf(const CLI::App& command) {
  std::string words;
  for (const CLI::App* each = &command; each != nullptr; each = each->get_parent()) {
    words.insert(0, each->get_name() + ' ');
  }
  return words + "--help";
}

// Returns the program, or the last command that was parsed: a command of the program, or one of its
// group.
const CLI::App& LastParsed(const CLI::App& program) {
  const CLI::App* last = &program;
  while (!last->get_subcommands().empty()) last = last->get_subcommands().front();
  return *last;
}

std::string UnknownOption(const CLI::App& program, const std::string& word) {
  if (word.starts_with("--password")) return "unknown option that begins with --password";
  if (!word.starts_with("--")) return "unknown option " + Quoted(word.substr(0, 2));
  const auto isOfName = [](unsigned char c) { return std::isalnum(c) != 0 || c == '-'; };
  const std::string name(word.begin(), std::ranges::find_if_not(word, isOfName));
  const std::string nearest = Nearest(name, OptionNames(LastParsed(program), program));
  if (nearest == name) return "the option " + name + " belongs after the name of its command";
  return "unknown option " + Quoted(name) +
         (nearest.empty() ? "" : "; did you mean " + nearest + '?');
}

// Returns the commands of this name in the groups of the program, such as "entry find or item
// find".
std::string InGroups(const CLI::App& program, const std::string& name) {
  std::string commands;
  for (const CLI::App* each : program.get_subcommands(nullptr)) {
    if (std::ranges::count(CommandNames(*each), name) == 0) continue;
    commands += (commands.empty() ? "" : " or ") + each->get_name() + ' ' + name;
  }
  return commands;
}

std::string UnknownCommand(const CLI::App& program, const std::vector<std::string>& arguments,
                           const std::string& word) {
  // Of "entyr list", CLI11 parses `list` as the command of the program. The unknown word before it
  // is then a misspelt noun.
  const CLI::App& last = LastParsed(program);
  const auto found = std::ranges::find(arguments, word);
  const bool isNoun = std::find(found, arguments.end(), last.get_name()) != arguments.end();
  const CLI::App& group = isNoun ? program : last;
  std::string nearest = Nearest(word, CommandNames(group));
  if (nearest.empty()) nearest = InGroups(group, word);
  // After an option, the word may be the password of a misspelt one.
  const bool mayBeSecret = found != arguments.begin() && (found - 1)->starts_with('-');
  return "unknown command" + (mayBeSecret ? "" : ' ' + Quoted(word)) + "; " +
         (nearest.empty() ? "" : "did you mean " + nearest + "? ") + "see " + HelpOf(group);
}

}  // namespace

// Messages of CLI11 quote unexpected arguments. One of them may be a password after a misspelt
// option.
std::string ParseErrorText(const CLI::App& program, const CLI::ParseError& error,
                           const std::vector<std::string>& arguments) {
  const std::vector<std::string> unexpected = program.remaining(true);
  const CLI::App& last = LastParsed(program);
  const bool isGroup = !last.get_subcommands(nullptr).empty();
  if (unexpected.empty()) {
    if (error.get_name() != "RequiredError") return error.what();
    return (isGroup ? "missing command" : error.what()) + ("; see " + HelpOf(last));
  }
  const std::string& first = unexpected.front();
  if (first.starts_with('-')) return UnknownOption(program, first);
  return isGroup
             ? UnknownCommand(program, arguments, first)
             : "unexpected argument; quote arguments that contain spaces, and see " + HelpOf(last);
}

}  // namespace console
