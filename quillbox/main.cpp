// quillbox: runs applications on a simulated appliance, and shows and changes what it keeps.

#include <CLI/CLI.hpp>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "console/failure.h"
#include "console/parse_error.h"
#include "console/program.h"
#include "quillbox/commands.h"
#include "toolkit/version.h"

namespace quillbox {
namespace {

constexpr const char* kFooter =
    "Exit status: 0 success, 1 failure, 2 invalid command line or scenario. That of run is the\n"
    "status of the application. If the application succeeds:\n"
    "  123  a fault of the scenario did not fire\n"
    "  124  the application made no call to the simulated appliance\n"
    "In any case:\n"
    "  125  the scenario is invalid, a file of it cannot be used, or the application cannot be\n"
    "       started";

constexpr const char* kStateHelp = "A file as for QUILLBOX_STATE";

void AddRun(CLI::App& app, RunOptions& options, std::function<int()>& action) {
  CLI::App* run = app.add_subcommand("run", "Run an application on the appliance of a scenario");
  run->footer("Write the application and its arguments at the end, after --");
  run->add_option("scenario", options.scenario, "The scenario")->required()->type_name("FILE");
  run->add_option("--state", options.state, "Keep the books in this file")->type_name("FILE");
  run->add_option("--journal", options.journal, "Append the calls to this file")->type_name("FILE");
  run->add_option("--form", options.form, "The form of the journal: plain, text or json")
      ->check(CLI::IsMember({"plain", "text", "json"}))
      ->type_name("FORM");
  run->add_flag("--keep", options.keep, "Keep the folder of the run, and print its name");
  run->callback([&] { action = [&] { return Run(options); }; });
}

void AddDump(CLI::App& app, DumpOptions& options, bool& fromAppliance,
             std::function<int()>& action) {
  CLI::App* dump = app.add_subcommand("dump", "Print the books of an appliance as text");
  CLI::Option* state = dump->add_option("state", options.source, kStateHelp)->type_name("FILE");
  dump->add_flag("--passwords", options.passwords, "Include the passwords of the accounts")
      ->needs(state);
  dump->add_option("--output", options.output, "Write to this file")->type_name("FILE");
  CLI::Option* appliance = dump->add_flag("--from-appliance", fromAppliance,
                                          "Read an appliance through its server library")
                               ->excludes(state);
  dump->add_option("--host", options.host, "The appliance (default: 127.0.0.1)")
      ->needs(appliance)
      ->type_name("HOST");
  dump->add_option("--user", options.user, "The account (default: ADMINISTRATOR)")
      ->needs(appliance)
      ->type_name("ACCOUNT");
  dump->add_option("--password-file", options.passwordFile,
                   "A file with its password (default: the variable QUILLCTL_PASSWORD; if that\nis "
                   "not set, asked at the terminal)")
      ->needs(appliance)
      ->type_name("FILE");
  dump->callback([&] {
    if (options.source.empty() && !fromAppliance) {
      throw CLI::RequiredError("a state file or --from-appliance");
    }
    action = [&] {
      Dump(options);
      return 0;
    };
  });
}

// The arguments of all commands.
struct Arguments {
  RunOptions run;
  DumpOptions dump;
  bool fromAppliance = false;
  std::string file;
  std::string source;
  bool onlyPresent = false;
};

void AddCommands(CLI::App& app, Arguments& a, std::function<int()>& action) {
  const auto makes = [&action](CLI::App* command, auto work) {
    command->callback([&action, work] {
      action = [work] {
        work();
        return 0;
      };
    });
  };
  AddRun(app, a.run, action);
  CLI::App* create = app.add_subcommand("new", "Write a scenario with comments to begin with");
  create->add_option("scenario", a.file, "A new file (default: standard output)")
      ->type_name("FILE");
  makes(create, [&a] { WriteTemplate(a.file); });
  CLI::App* check = app.add_subcommand("check", "Test a scenario without running it");
  check->add_option("scenario", a.file, "The scenario")->required()->type_name("FILE");
  makes(check, [&a] { Check(a.file); });
  AddDump(app, a.dump, a.fromAppliance, action);
  CLI::App* load = app.add_subcommand("load", "Fill a state file with other books");
  load->add_option("source", a.source, "office, empty, or a file written by dump")
      ->required()
      ->type_name("BOOKS");
  load->add_option("state", a.file, kStateHelp)->required()->type_name("FILE");
  makes(load, [&a] { Load(a.source, a.file); });
  CLI::App* journal = app.add_subcommand("journal", "Print a journal, and follow it");
  journal->add_option("journal", a.file, "A file as for QUILLBOX_JOURNAL")
      ->required()
      ->type_name("FILE");
  journal->add_flag("--no-follow", a.onlyPresent, "End after the present calls");
  makes(journal, [&a] { ShowJournal(a.file, !a.onlyPresent); });
}

int RunCommandLine(int argc, char** argv) {
  Arguments arguments;
  std::function<int()> action;
  CLI::App app("Run applications on a simulated Quillbox", "quillbox");
  app.set_version_flag("--version", "quillbox " QUILLKIT_VERSION);
  app.require_subcommand(1);
  app.footer(kFooter);
  AddCommands(app, arguments, action);
  // The application's arguments, after "--", are not options of quillbox.
  std::vector<std::string> words(argv + 1, argv + argc);
  const auto separator = std::ranges::find(words, "--");
  const bool hasApplication = separator != words.end();
  if (hasApplication) {
    arguments.run.command.assign(separator + 1, words.end());
    words.erase(separator, words.end());
  }
  try {
    app.parse(
        std::vector<std::string>(words.rbegin(), words.rend()));  // CLI11 takes the last first
  } catch (const CLI::Success& help) {
    return app.exit(help);
  } catch (const CLI::ParseError& error) {
    throw console::UsageError(console::ParseErrorText(app, error, words));
  }
  if (hasApplication && !app.got_subcommand("run")) {
    throw console::UsageError("only run has an application after --");
  }
  return action();
}

}  // namespace
}  // namespace quillbox

int main(int argc, char** argv) {
  return console::RunProgram("quillbox", [&] { return quillbox::RunCommandLine(argc, argv); });
}
