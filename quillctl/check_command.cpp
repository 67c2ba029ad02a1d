#include "quillctl/check_command.h"

#include <iostream>
#include <memory>

#include "console/confirmation.h"
#include "console/json_output.h"
#include "console/options.h"
#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

enum Result { kOk, kFailed, kSkipped, kResults };
constexpr const char* kResultWords[kResults] = {"ok", "failed", "skipped"};

struct Outcome {
  Result result;
  std::string text;  // as DisplayedText returns it
};

Outcome Run(const Step& step, CheckRun& check) {
  try {
    return {kOk, step.run(check)};
  } catch (const Skip& why) {
    return {kSkipped, why.what()};
  } catch (const std::exception& error) {
    return {kFailed, error.what()};
  }
}

void PrintLine(const Step& step, const Outcome& outcome) {
  std::cout << step.title << ": " << kResultWords[outcome.result];
  if (!outcome.text.empty()) std::cout << (outcome.result == kOk ? ", " : ": ") << outcome.text;
  std::cout << std::endl;  // a step may take long: show each one at once
}

struct Arguments {
  bool write = false;
  bool keepAlive = false;
  bool json = false;
  bool yes = false;
  std::string save;
  std::string compare;
};

std::vector<Step> Steps(const Arguments& arguments) {
  std::vector<Step> steps = ReadingSteps();
  for (const auto& more : {BookSteps(), arguments.write ? ChangingSteps() : std::vector<Step>(),
                           ServiceSteps(arguments.write, arguments.keepAlive),
                           AnswerSteps(arguments.save, arguments.compare), ClosingSteps()}) {
    steps.insert(steps.end(), more.begin(), more.end());
  }
  return steps;
}

std::string Summary(std::size_t steps, std::size_t failed, std::size_t skipped) {
  return std::to_string(failed) + " of " + std::to_string(steps) + " steps failed, " +
         std::to_string(skipped) + " skipped: " +
         (failed != 0 ? "this server is not compatible with Quillkit"
                      : "compatibility with Quillkit was not fully tested");
}

// Runs the steps, the changing ones only if requested. Prints a line for each and the verdict,
// or all of it as JSON. Unless all steps passed, throws a Refusal with the verdict, or
// a PartialFailure after an interruption.
void CheckAppliance(const Credentials& credentials, const Arguments& arguments) {
  const bool json = arguments.json;
  const std::vector<Step> steps = Steps(arguments);
  console::ConfirmOverwrite(arguments.yes, arguments.save);
  CheckRun check(credentials);
  std::size_t counts[kResults] = {};
  console::Json list = console::Json::array();
  for (const Step& step : steps) {
    const Outcome outcome = Run(step, check);
    ++counts[outcome.result];
    if (json) {
      list.push_back(
          {{"step", step.title}, {"result", kResultWords[outcome.result]}, {"text", outcome.text}});
    } else {
      PrintLine(step, outcome);
    }
  }
  const bool allPassed = counts[kOk] == steps.size();
  if (json) console::PrintJson({{"steps", std::move(list)}, {"good", allPassed}});
  if (!check.WasLoggedIn()) throw LoginRefusal("cannot log in; the server was not tested");
  if (!allPassed) {
    const std::string summary = Summary(steps.size(), counts[kFailed], counts[kSkipped]);
    if (check.IsInterrupted()) throw PartialFailure("interrupted; " + summary);
    throw Refusal(summary);
  }
  if (json) return;
  std::cout << "All " << steps.size()
            << " steps passed: this server is compatible with Quillkit.\n";
}

}  // namespace

Session& CheckRun::OpenSession() {
  if (!session || !session->IsOpen()) throw Skip("not logged in");
  return *session;
}

const std::vector<std::string>& CheckRun::ListedNames() const {
  if (!listed) throw Skip("the keys were not listed");
  return *listed;
}

const KeySet& CheckRun::Keys() const {
  if (!keys) throw Skip("the keys and their items were not read");
  return *keys;
}

void CheckRun::RequireNotInterrupted() const {
  if (IsInterrupted()) throw Skip("the check was interrupted");
}

void CheckRun::RequireUnchanged(const KeySet& now) const {
  const KeySet& before = Keys();
  if (now == before) return;
  const std::vector<KeySetChange> changes = Difference(before, now);
  throw Refusal(changes.empty() ? "the order of keys or items changed"
                                : "this changed: " + Described(changes.front()));
}

void RequireUnknown(quillkit::CTopLevelAB* book, const std::string& name) {
  const OwnedKey key = MakeKey(name, book);
  std::uint32_t items = 0;
  RequireStatus(quillkit::GetDBItemCount(key.get(), &items), quillkit::kNoSuchBook);
}

std::string FreeName(quillkit::CTopLevelAB* book, const std::string& taken) {
  const std::string first = "quillctl check";
  std::string name = first;
  for (int i = 2; name == taken || quillkit::FindSoftKeyIndex(book, name) >= 0; ++i) {
    name = first + ' ' + std::to_string(i);
  }
  return name;
}

void AddCheckCommand(Commands& commands) {
  const auto a = std::make_shared<Arguments>();
  CLI::App* check =
      commands.AddWithoutLogin("check", "Test whether an appliance is compatible with Quillkit",
                               [a](const Credentials& c) { CheckAppliance(c, *a); });
  check->add_flag("--write", a->write,
                  "Also add a soft key and an entry with unused names, change and delete them");
  check->add_flag("--keep-alive", a->keepAlive,
                  "Also wait for two periods of the keep-alive, usually two minutes");
  check->add_option("--save-answers", a->save, "Save what the appliance answers in this file")
      ->type_name("FILE");
  console::AddYes(check, a->yes);
  check
      ->add_option("--compare-answers", a->compare,
                   "List the answers that differ from those in this file")
      ->type_name("FILE");
  console::AddJson(check, a->json);
}

}  // namespace quillctl
