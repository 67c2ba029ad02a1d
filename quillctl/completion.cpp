// Shell completion. The script of each shell passes the words before the cursor to `quillctl
// complete`, which prints the words that may replace the last one.

#include <algorithm>
#include <iostream>
#include <map>
#include <span>
#include <string>
#include <vector>

#include "console/options.h"
#include "console/password.h"
#include "quillctl/commands.h"
#include "quillctl/live_names.h"
#include "quillctl/system/private_cache.h"

namespace quillctl {
namespace {

using Words = std::vector<std::string>;

constexpr int kMaxMilliseconds = 300;  // for the names on the appliance

// Returns the permitted values of an argument, whose type is shown as "TEXT:{csv,mail}". Empty if
// any value is permitted.
Words Choices(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t from = type.find('{');
  if (from == type.npos) return {};
  return CLI::detail::split(type.substr(from + 1, type.find('}') - from - 1), ',');
}

// A positional argument that is the name of something on the appliance.
struct NamedArgument {
  const char* noun;
  const char* verbs;
  std::size_t index;  // kMembers: also any later one
  NameQuery::Kind kind;
  const char* scope;  // null: the first argument
};
constexpr std::size_t kMembers = 2;
constexpr NamedArgument kNamedArguments[] = {
    {"key", "rename delete", 0, NameQuery::kKey, ""},
    {"item", "list add show edit rename move delete", 0, NameQuery::kKey, ""},
    {"item", "show edit rename move delete", 1, NameQuery::kItem, nullptr},
    {"entry", "find show edit delete", 1, NameQuery::kEntry, nullptr},
    {"list", "show rename copy delete add remove", 1, NameQuery::kList, nullptr},
    {"list", "create add remove", kMembers, NameQuery::kEntry, nullptr},
    {"user", "show edit rename on off delete", 0, NameQuery::kEntry, "users"},
    {"log", "show count clear", 0, NameQuery::kEntry, "users"},
    {"printer", "default", 0, NameQuery::kEntry, "printers"},
};

// The place of a word on the command line.
class Place {
 public:
  explicit Place(const CLI::App& program) : root(program), command(&program) {}

  // Moves to the place after a complete word.
  void Pass(const std::string& word) {
    if (option != nullptr) {
      values[option->get_lnames().front()] = word;
      option = nullptr;
    } else if (word.starts_with('-')) {
      const std::size_t equals = word.find('=');
      option = OptionWithValue(word.substr(0, equals));
      if (equals != word.npos && option != nullptr) Pass(word.substr(equals + 1));
    } else if (const CLI::App* const next = Subcommand(word)) {
      command = next;
    } else {
      positionals.push_back(word);
    }
  }

  // Returns the words that may stand here.
  Words Candidates(bool isOption) const {
    if (option != nullptr) return Choices(*option);
    if (isOption) return console::OptionNames(*command, root);
    Words words = console::CommandNames(*command);
    const auto arguments =
        command->get_options([](const CLI::Option* each) { return each->get_positional(); });
    if (words.empty() && positionals.size() < arguments.size()) {
      return Choices(*arguments[positionals.size()]);
    }
    return words;
  }

  // Returns the query for the names that may stand here, and begin with `prefix`.
  NameQuery Names(const std::string& prefix) const {
    if (command == &root) return {};
    if (option != nullptr) {
      const std::string& name = option->get_lnames().front();
      if (name == "to") return {NameQuery::kKey, "", prefix};  // of item move
      if (name != "from" || positionals.empty()) return {};    // of entry list
      return {NameQuery::kEntry, positionals.front(), prefix};
    }
    for (const NamedArgument& each : kNamedArguments) {
      const Words verbs = CLI::detail::split(each.verbs, ' ');
      if (command->get_parent()->get_name() == each.noun &&
          std::ranges::count(verbs, command->get_name()) != 0 &&
          std::min(positionals.size(), kMembers) == each.index) {
        return {each.kind, each.scope != nullptr ? each.scope : positionals.front(), prefix};
      }
    }
    return {};
  }

  // Returns the credentials that the words before, or the environment, give.
  Credentials Login() const {
    Credentials login;
    if (values.contains("host")) login.host = values.at("host");
    if (values.contains("user")) login.user = values.at("user");
    if (values.contains("password")) {
      login.password = values.at("password");
    } else if (values.contains("password-file")) {
      login.password = console::PasswordFromFile(values.at("password-file"), "--password-file");
    } else {
      login.password = console::PasswordFromEnvironment();
    }
    return login;
  }

 private:
  const CLI::App* Subcommand(const std::string& name) const {
    for (const CLI::App* each : command->get_subcommands(nullptr)) {
      if (each->get_name() == name) return each;
    }
    return nullptr;
  }

  const CLI::Option* OptionWithValue(const std::string& word) const {
    for (const CLI::App* app : {command, &root}) {
      for (const CLI::Option* each : app->get_options()) {
        const bool takesValue = each->get_items_expected_max() > 0;
        if (each->nonpositional() && takesValue && each->check_name(word)) return each;
      }
    }
    return nullptr;
  }

  const CLI::App& root;
  const CLI::App* command;
  const CLI::Option* option = nullptr;        // whose value the next word is
  Words positionals;                          // of the command, so far
  std::map<std::string, std::string> values;  // of the options, by their names
};

struct Shell {
  const char* name;
  const char* script;
};
constexpr Shell kShells[] = {
    {"bash",
     R"script(# Completes the command line of quillctl. In bash: eval "$(quillctl completion bash)"
_quillctl() {
  local line
  COMPREPLY=()
  while IFS= read -r line; do
    COMPREPLY+=("$(printf %q "$line")")
  done < <("$1" complete "${COMP_WORDS[@]:1:$COMP_CWORD}" 2>/dev/null)
}
complete -o default -F _quillctl quillctl
)script"},
    {"zsh",
     R"script((( $+functions[compdef] )) || { autoload -U +X compinit && compinit; }
_quillctl() {
  local -a found
  found=(${(f)"$($words[1] complete "${(@)words[2,CURRENT]}" 2>/dev/null)"})
  if (( $#found )); then compadd -a found; else _files; fi
}
compdef _quillctl quillctl
)script"},
    {"fish",
     R"script(complete -c quillctl \
    -a '(quillctl complete (commandline -opc)[2..-1] (commandline -ct) 2>/dev/null)'
)script"}};

struct Arguments {
  std::string shell;
};

void PrintScript(const Credentials&, const Arguments& a) {
  std::cout << std::ranges::find(kShells, a.shell, &Shell::name)->script;
}

}  // namespace

void PrintCompletions(const CLI::App& program, std::span<const std::string> words) {
  if (words.empty()) return;
  Place place(program);
  for (const std::string& each : words.first(words.size() - 1)) place.Pass(each);
  const std::string& last = words.back();
  Words candidates = place.Candidates(last.starts_with('-'));
  const NameQuery query = place.Names(last);
  if (query.kind != NameQuery::kNone) {
    LimitTime(kMaxMilliseconds);
    candidates = LiveNames(place.Login(), query);
  }
  for (const std::string& each : candidates) {
    if (each.starts_with(last)) std::cout << each << '\n';
  }
}

void AddCompletionCommand(Commands& commands) {
  Words names;
  for (const Shell& each : kShells) names.emplace_back(each.name);
  const auto [completion, a] = commands.Add(
      "completion", "Print a script that completes commands and options in a shell", PrintScript);
  completion->add_option("shell", a.shell, "The shell")->required()->check(CLI::IsMember(names));
}

}  // namespace quillctl
