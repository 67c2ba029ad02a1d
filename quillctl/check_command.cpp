#include "quillctl/check_command.h"

#include <iostream>

#include "quillctl/checkup.h"
#include "quillctl/failures.h"
#include "quillctl/json_output.h"

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

}  // namespace

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

}  // namespace quillctl
