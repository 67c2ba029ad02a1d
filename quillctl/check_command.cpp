#include "quillctl/check_command.h"

#include <iostream>
#include <memory>

#include "quillctl/commands.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"
#include "quillctl/key_set.h"

namespace quillctl {
namespace {

enum Result { kOk, kFailed, kSkipped, kResults };
constexpr const char* kResultWords[kResults] = {"ok", "failed", "skipped"};

struct Outcome {
  Result result;
  std::string text;  // fit for the terminal
};

Outcome Run(const Step& step, Checkup& checkup) {
  try {
    return {kOk, step.run(checkup)};
  } catch (const Skip& why) {
    return {kSkipped, why.what()};
  } catch (const std::exception& error) {
    return {kFailed, error.what()};
  }
}

void PrintLine(const Step& step, const Outcome& outcome) {
  std::cout << step.title << ": " << kResultWords[outcome.result];
  if (!outcome.text.empty()) std::cout << (outcome.result == kOk ? ", " : ": ") << outcome.text;
  std::cout << std::endl;  // steps may take their time
}

std::vector<Step> Steps(bool write) {
  std::vector<Step> steps = ReadingSteps();
  for (const auto& more : {write ? ChangingSteps() : std::vector<Step>(), ClosingSteps()}) {
    steps.insert(steps.end(), more.begin(), more.end());
  }
  return steps;
}

// Makes the steps, the changing ones only if `write` is set, and shows each as a line, and then a
// judgement; or all of it as JSON. Throws a Refusal with the judgement unless all steps were good.
void CheckAppliance(const Credentials& credentials, bool write, bool json) {
  Checkup checkup(credentials);
  const std::vector<Step> steps = Steps(write);
  std::size_t counts[kResults] = {};
  Json list = Json::array();
  for (const Step& step : steps) {
    const Outcome outcome = Run(step, checkup);
    ++counts[outcome.result];
    if (json) {
      list.push_back(
          {{"step", step.title}, {"result", kResultWords[outcome.result]}, {"text", outcome.text}});
    } else {
      PrintLine(step, outcome);
    }
  }
  const bool isGood = counts[kOk] == steps.size();
  if (json) PrintJson({{"steps", std::move(list)}, {"good", isGood}});
  const std::string all = std::to_string(steps.size());
  if (!checkup.WasLoggedIn()) {
    throw LoginRefusal("nobody could be logged in, so that nothing is known of this server");
  }
  if (!isGood) {
    throw Refusal("of " + all + " steps " + std::to_string(counts[kFailed]) + " failed and " +
                  std::to_string(counts[kSkipped]) + " were skipped: " +
                  (counts[kFailed] != 0 ? "the toolkit cannot rely on this server"
                                        : "what they would have told is open"));
  }
  if (!json)
    std::cout << "All " << all << " steps are ok: the toolkit can work with this server.\n";
}

}  // namespace

Session& Checkup::OpenSession() {
  if (!session || !session->IsOpen()) throw Skip("nobody is logged in");
  return *session;
}

const std::vector<std::string>& Checkup::Listed() const {
  if (!listed) throw Skip("the keys were not listed");
  return *listed;
}

const KeySet& Checkup::Keys() const {
  if (!keys) throw Skip("the keys and their items were not read");
  return *keys;
}

void Checkup::RequireTime() const {
  if (termination && termination->IsRequested()) throw Skip("the check was interrupted");
}

void Checkup::RequireSame(const KeySet& now) const {
  const KeySet& before = Keys();
  if (now == before) return;
  const std::vector<KeySetChange> changes = Difference(before, now);
  throw Refusal(changes.empty() ? "the order is not the one of before"
                                : "this differs from before: " + Described(changes.front()));
}

void RequireUnknown(quillkit::CTopLevelAB* book, const std::string& name) {
  const OwnedKey key = MakeKey(name, book);
  std::uint32_t items = 0;
  RequireCode(quillkit::GetDBItemCount(key.get(), &items), quillkit::kNoSuchBook);
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
  struct Arguments {
    bool write = false;
    bool json = false;
  };
  const auto a = std::make_shared<Arguments>();
  CLI::App* check =
      commands.AddOffline("check", "Check that an appliance answers as the toolkit needs it",
                          [a](const Credentials& c) { CheckAppliance(c, a->write, a->json); });
  check->add_flag("--write", a->write,
                  "Also add a soft key of an unused name, change it and delete it again");
  AddJson(check, a->json);
}

}  // namespace quillctl
