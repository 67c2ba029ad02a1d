// The shell scripts that complete the commands and options of quillctl. They are generated from the
// definition of the command line.

#include <algorithm>
#include <iostream>
#include <memory>
#include <string>
#include <vector>

#include "quillctl/commands.h"

namespace quillctl {
namespace {

using Words = std::vector<std::string>;

std::string Joined(const Words& words, const char* between) {
  return CLI::detail::join(words, between);
}

bool TakesValue(const CLI::Option& option) {
  return option.get_items_expected_max() > 0;
}

// Returns the permitted values of an argument, whose type is shown as "TEXT:{csv,mail}". Empty if
// any value is permitted.
Words Choices(const CLI::Option& option) {
  const std::string type = option.get_type_name();
  const std::size_t from = type.find('{');
  if (from == type.npos) return {};
  return CLI::detail::split(type.substr(from + 1, type.find('}') - from - 1), ',');
}

// Returns all options and positional arguments, but --help only for the program.
std::vector<const CLI::Option*> Arguments(const CLI::App& app) {
  return app.get_options([&app](const CLI::Option* each) {
    return app.get_parent() == nullptr || each != app.get_help_ptr();
  });
}

std::vector<const CLI::App*> CommandsOf(const CLI::App& app) {
  return app.get_subcommands(nullptr);
}

Words CommandNames(const CLI::App& app) {
  Words names;
  for (const CLI::App* each : CommandsOf(app)) names.push_back(each->get_name());
  return names;
}

// Returns the words of a command's own, or of the program: options, and the choices of
// positional arguments.
Words CompletionWords(const CLI::App& app) {
  Words words;
  for (const CLI::Option* each : Arguments(app)) {
    if (each->nonpositional()) {
      words.push_back("--" + each->get_lnames().front());
    } else {
      for (const std::string& choice : Choices(*each)) words.push_back(choice);
    }
  }
  return words;
}

// Returns the words that may follow a command. For one that consists of further commands, these are
// also their names and the words that may follow them.
Words WordsAfter(const CLI::App& command) {
  Words words = CompletionWords(command);
  for (const CLI::App* each : CommandsOf(command)) {
    words.push_back(each->get_name());
    for (const std::string& word : CompletionWords(*each)) {
      if (!std::ranges::count(words, word)) words.push_back(word);
    }
  }
  return words;
}

// Returns the options with a value, of the program and of all commands, each name once.
std::vector<const CLI::Option*> OptionsWithValue(const CLI::App& app) {
  std::vector<const CLI::App*> apps = CommandsOf(app);
  apps.insert(apps.begin(), &app);
  for (const CLI::App* each : CommandsOf(app)) {
    for (const CLI::App* part : CommandsOf(*each)) apps.push_back(part);
  }
  std::vector<const CLI::Option*> found;
  const auto has = [&found](const CLI::Option* option) {
    return std::ranges::any_of(found, [option](const CLI::Option* each) {
      return each->get_lnames() == option->get_lnames();
    });
  };
  for (const CLI::App* each : apps) {
    for (const CLI::Option* option : Arguments(*each)) {
      if (option->nonpositional() && TakesValue(*option) && !has(option)) found.push_back(option);
    }
  }
  return found;
}

// The script finds the command among the words before the one to complete. It skips the values of
// options.
constexpr const char* kBashScript =
    R"script(# Completes quillctl's commands and options. In bash: eval "$(quillctl completion bash)"
_quillctl() {
  local command='' before='' each words
  for each in "${COMP_WORDS[@]:1:$((COMP_CWORD - 1))}"; do
    case $before in
      @VALUED@) ;;
      *) case $command$each in @COMMANDS@) command=$each ;; esac ;;
    esac
    before=$each
  done
  case "$command $before" in
@CASES@
  esac
  COMPREPLY=($(compgen -W "$words" -- "${COMP_WORDS[COMP_CWORD]}"))
}
complete -o default -F _quillctl quillctl
)script";

// Returns one case of a shell's case statement.
std::string Case(const std::string& pattern, const Words& words) {
  return "    " + pattern + ") words='" + Joined(words, " ") + "' ;;\n";
}

std::string BashScript(const CLI::App& app) {
  Words withValue;
  std::string cases;
  for (const CLI::Option* each : OptionsWithValue(app)) {
    withValue.push_back("--" + each->get_lnames().front());
    const Words choices = Choices(*each);
    if (!choices.empty()) cases += Case("*" + withValue.back(), choices);
  }
  cases += Case("*" + Joined(withValue, "|*"), {});
  Words general = CompletionWords(app);
  for (const CLI::App* each : CommandsOf(app)) {
    Words words = WordsAfter(*each);
    words.insert(words.end(), general.begin(), general.end());
    cases += Case(each->get_name() + "\\ *", words);
  }
  const Words names = CommandNames(app);
  general.insert(general.begin(), names.begin(), names.end());
  cases += Case("*", general);
  std::string script = kBashScript;
  script = CLI::detail::find_and_replace(script, "@VALUED@", Joined(withValue, "|"));
  script = CLI::detail::find_and_replace(script, "@COMMANDS@", Joined(names, "|"));
  return CLI::detail::find_and_replace(script, "@CASES@\n", cases);
}

std::string ZshScript(const CLI::App& app) {
  return "(( $+functions[compdef] )) || { autoload -U +X compinit && compinit; }\n"
         "autoload -U +X bashcompinit && bashcompinit\n" +
         BashScript(app);
}

// Returns the text in single quotes of fish.
std::string FishText(const std::string& text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + '\'';
}

// Returns the lines for the program or a command; they apply while the condition is true.
std::string FishLines(const CLI::App& app, const std::string& condition) {
  std::string lines;
  for (const CLI::Option* each : Arguments(app)) {
    const std::string choices = Joined(Choices(*each), " ");
    const bool isOption = each->nonpositional();
    if (!isOption && choices.empty()) continue;
    lines += "complete -c quillctl" + condition;
    if (isOption) lines += " -l " + each->get_lnames().front();
    if (isOption && TakesValue(*each)) lines += " -r";
    if (!choices.empty()) lines += " -f -a " + FishText(choices);
    lines += " -d " + FishText(each->get_description()) + '\n';
  }
  return lines;
}

std::string FishScript(const CLI::App& app) {
  std::string script = FishLines(app, "");
  for (const CLI::App* each : CommandsOf(app)) {
    script += "complete -c quillctl -n __fish_use_subcommand -f -a " + each->get_name() + " -d " +
              FishText(each->get_description()) + '\n';
    const std::string inside = " -n '__fish_seen_subcommand_from " + each->get_name() + "'";
    script += FishLines(*each, inside);
    for (const CLI::App* part : CommandsOf(*each)) {
      script += "complete -c quillctl" + inside + " -f -a " + part->get_name() + " -d " +
                FishText(part->get_description()) + '\n' + FishLines(*part, inside);
    }
  }
  return script;
}

struct Shell {
  const char* name;
  std::string (*script)(const CLI::App& app);
};
constexpr Shell kShells[] = {{"bash", BashScript}, {"zsh", ZshScript}, {"fish", FishScript}};

Words CompletionShells() {
  Words names;
  for (const Shell& each : kShells) names.emplace_back(each.name);
  return names;
}

// Returns the script for a shell. REQUIRES: an option that occurs in several commands takes a value
// in all of them or in none, and has the same choices in all.
std::string CompletionScript(const CLI::App& app, const std::string& shell) {
  for (const Shell& each : kShells) {
    if (shell == each.name) return each.script(app);
  }
  return {};
}

}  // namespace

void AddCompletionCommand(Commands& commands) {
  const auto shell = std::make_shared<std::string>();
  const CLI::App& program = commands.Program();
  CLI::App* completion = commands.AddWithoutLogin(
      "completion", "Print a script that completes commands and options in a shell",
      [&program, shell](const Credentials&) { std::cout << CompletionScript(program, *shell); });
  completion->add_option("shell", *shell, "The shell")
      ->required()
      ->check(CLI::IsMember(CompletionShells()));
}

}  // namespace quillctl
