#include "tests/support/failure_sweep.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <regex>
#include <sstream>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/combination_count.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr Status kCodes[] = {kDataNotFound, 6, kMoreData, kBookFull};

// The codes of two failures: one of each class, and other ones for the second failure if possible.
constexpr Status kFirstCodes[] = {kDataNotFound, kMoreData, 6};
constexpr Status kSecondCodes[] = {kDataNotFound, kMoreData, kBookFull};

constexpr std::size_t kMostCalls = 32;  // more than an operation makes

CombinationCount combinations("failure sweep, combinations of operation, call and code");
CombinationCount pairs("failure sweep, pairs of failing calls and their codes");
CombinationCount endless("failure sweep, calls from which on all fail, and the code");

struct Call {
  std::string text;
  std::string effects;
};

// The server calls that fail in a run: their numbers, from 1, and the codes that they return.
using Failures = std::map<std::size_t, Status>;

struct Effect {
  bool fails = true;
  bool goesOn = false;
  bool changesMemory = false;
  std::ptrdiff_t skipped = 0;
  std::int64_t less = 0;
  std::optional<std::int64_t> returns;
  std::optional<Status> lastError;
  std::optional<Lines> then;
  std::map<std::string, std::string> lines;  // what lines of a prefix become; "": they are lost
};

std::vector<Call> ParseCalls(const std::string& text) {
  static const std::regex call(R"(([^,(]+)(?: \(([^)]*)\))?(?:, |$))");
  std::vector<Call> calls;
  for (std::sregex_iterator each(text.begin(), text.end(), call), end; each != end; ++each) {
    calls.push_back({(*each)[1], (*each)[2]});
  }
  return calls;
}

Effect ParseEffect(const std::string& text) {
  Effect effect;
  std::istringstream parts(text);
  for (std::string part; std::getline(parts >> std::ws, part, ',');) {
    std::istringstream words(part);
    std::string word;
    std::string prefix;
    words >> word;
    if (word == "ends" || word == "ignored" || word == "skips") effect.fails = false;
    if (word == "late" || word == "ignored" || word == "skips") {
      effect.goesOn = effect.changesMemory = true;
    }
    if (word == "skips") words >> effect.skipped;
    if (word == "changed" || word == "kept") effect.changesMemory = word == "changed";
    if (word == "error") words >> effect.lastError.emplace();
    if (word == "less") words >> effect.less;
    if (word == "returns") words >> effect.returns.emplace();
    if (word == "then") {
      for (effect.then.emplace(); words >> word;) effect.then->push_back(word);
    }
    if (word == "loses" && words >> prefix) effect.lines[prefix] = "";
    if (word == "blanks" && words >> prefix) effect.lines[prefix] = prefix + "=";
    if (word == "becomes" && words >> prefix) words >> effect.lines[prefix];
  }
  return effect;
}

// Returns the effect of a failure with this code after earlier ones, from a text such as "ignored;
// 4: ends; after 2: late".
Effect EffectOf(const std::string& effects, Status code, const Failures& earlier) {
  std::map<std::string, std::string> cases;  // by the text before the colon
  std::istringstream parts(effects);
  for (std::string part; std::getline(parts >> std::ws, part, ';');) {
    const std::size_t colon = part.find(": ");
    if (colon == std::string::npos) {
      cases[""] = part;
    } else {
      cases[part.substr(0, colon)] = part.substr(colon + 2);
    }
  }
  for (const auto& each : earlier) {
    const auto both = cases.find("after " + std::to_string(each.first));
    if (both != cases.end()) return ParseEffect(both->second);
  }
  const auto ofCode = cases.find(std::to_string(code));
  return ParseEffect(ofCode != cases.end() ? ofCode->second : cases[""]);
}

bool EndsAsReopened(const Operation& operation) {
  return operation.notes.empty() || operation.notes == "needs no book";
}

// The result of a run.
struct Trial {
  std::int64_t result;
  Status lastError;
  Lines calls;
  Lines before;  // in memory
  Lines after;
  Lines reopened;  // in memory, once the books are opened again after an undisturbed run
};

// Runs the operation with these failures.
Trial Try(const Operation& operation, CScanner* box, const Failures& failures) {
  Stage stage(box, operation.throughOwner);
  if (operation.prepare != nullptr) operation.prepare(stage);
  Trial trial;
  trial.before = stage.Memory();
  SimulatorRecordCalls(1);
  SimulatorClearJournal();
  TheAgent.SetError(ApplianceTest::kEarlier);
  for (const auto& [failing, code] : failures) {
    SimulatorFail(nullptr, static_cast<std::int32_t>(failing), code);
  }
  trial.result = operation.run(stage);
  trial.lastError = TheAgent.LastError();
  for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
    trial.calls.emplace_back(SimulatorCallText(i) + 4);  // without "IMSP"
  }
  SimulatorClearFaults();
  trial.after = stage.Memory();
  if (failures.empty() && EndsAsReopened(operation)) {
    trial.reopened = Stage(stage.box, operation.throughOwner, Stage::kAsFound).Memory();
  }
  return trial;
}

// Returns the contents of memory after a failure with this effect.
Lines Changed(const Effect& effect, Lines memory) {
  for (const auto& [prefix, instead] : effect.lines) {
    for (std::string& each : memory) {
      if (each.starts_with(prefix)) each = instead;
    }
  }
  std::erase(memory, "");
  std::sort(memory.begin(), memory.end());
  return memory;
}

// Joins the lines into one text: for texts, a failed comparison shows the lines that differ.
std::string Joined(const Lines& memory) {
  std::string text = "memory:\n";
  for (const std::string& each : memory) text += each + "\n";
  return text;
}

// Replaces the calls after number `failing` by those of this effect. What happens if one of these
// fails is the same as in the table.
void ApplyToCalls(const Effect& effect, std::size_t failing, std::vector<Call>& calls) {
  const auto next = calls.begin() + static_cast<std::ptrdiff_t>(failing);
  calls.erase(next, next + std::min(effect.skipped, calls.end() - next));
  const std::vector<Call> further(next, calls.end());
  if (!effect.goesOn || effect.then) calls.erase(next, calls.end());
  for (const std::string& each : effect.then.value_or(Lines())) {
    const auto same = std::ranges::find_if(
        further, [&](const Call& call) { return call.text.starts_with(each); });
    calls.push_back({each, same != further.end() ? same->effects : ""});
  }
}

// Returns the expected result of a run with these failures: the effects of the single failures, one
// after the other. A failure of a call that is not made any more has no effect.
Trial Expected(const Operation& operation, const Trial& undisturbed, const Failures& failures) {
  std::vector<Call> calls = ParseCalls(operation.calls);
  std::vector<Effect> effects;
  Failures earlier;
  Trial expected = {};
  expected.result = operation.result.success;
  expected.lastError = undisturbed.lastError;
  bool changesMemory = true;
  for (const auto& [failing, code] : failures) {
    if (failing > calls.size()) break;
    const Effect& effect =
        effects.emplace_back(EffectOf(calls[failing - 1].effects, code, earlier));
    earlier[failing] = code;
    ApplyToCalls(effect, failing, calls);
    if (effect.fails) expected.result = operation.result.Failure(code);
    expected.result = effect.returns.value_or(expected.result - effect.less);
    std::size_t recorded = calls.size();
    while (recorded != 0 && calls[recorded - 1].text == "Logout") --recorded;
    if (recorded == failing) expected.lastError = code;
    expected.lastError = effect.lastError.value_or(expected.lastError);
    changesMemory = changesMemory && effect.changesMemory;
  }
  for (const Call& each : calls) expected.calls.push_back(each.text);
  expected.after = changesMemory ? undisturbed.after : undisturbed.before;
  for (const Effect& each : effects) expected.after = Changed(each, expected.after);
  return expected;
}

// Removes from each call the arguments that the prediction omits.
void CutAsPredicted(Lines& calls, const Lines& predicted) {
  for (std::size_t i = 0; i < std::min(calls.size(), predicted.size()); ++i) {
    if (calls[i].starts_with(predicted[i] + " ")) calls[i].resize(predicted[i].size());
  }
}

// Sets up an appliance and runs the operation with these failures.
Trial RunAnew(const Operation& operation, const Failures& failures) {
  SimulatorReset();
  const Trial trial =
      Try(operation, LogToQuillbox(kHost, kAdministrator, kPassword, "", 0), failures);
  Logout();
  return trial;
}

// Compares a run with its prediction.
void Check(const Operation& operation, const Trial& undisturbed, const Failures& failures) {
  SCOPED_TRACE(testing::PrintToString(failures) + ": the failing calls and their codes");
  Trial trial = RunAnew(operation, failures);
  const Trial expected = Expected(operation, undisturbed, failures);
  CutAsPredicted(trial.calls, expected.calls);
  EXPECT_EQ(trial.result, expected.result);
  EXPECT_EQ(trial.lastError, expected.lastError);
  EXPECT_EQ(trial.calls, expected.calls);
  EXPECT_EQ(Joined(trial.after), Joined(expected.after));
}

}  // namespace

TEST_P(FailureSweep, EachFailedCallHasThePredictedEffect) {
  const Operation& operation = GetParam();
  Trial undisturbed = RunAnew(operation, {});
  Lines calls;
  for (const Call& each : ParseCalls(operation.calls)) calls.push_back(each.text);
  CutAsPredicted(undisturbed.calls, calls);
  ASSERT_EQ(undisturbed.calls, calls);
  EXPECT_EQ(undisturbed.result, operation.result.success);
  if (EndsAsReopened(operation)) {
    EXPECT_EQ(Joined(undisturbed.after), Joined(undisturbed.reopened));
  } else if (!operation.notes.starts_with("unchecked")) {
    EXPECT_EQ(Joined(undisturbed.after),
              Joined(Changed(ParseEffect(operation.notes), undisturbed.before)));
  }
  for (std::size_t failing = 1; failing <= calls.size(); ++failing) {
    for (const Status code : kCodes) {
      Check(operation, undisturbed, {{failing, code}});
      combinations.Add();
    }
  }
}

TEST_P(FailureSweep, TwoFailedCallsHaveTheEffectsOfBoth) {
  const Operation& operation = GetParam();
  const Trial undisturbed = RunAnew(operation, {});
  for (std::size_t first = 1; first <= undisturbed.calls.size(); ++first) {
    for (const Status code : kFirstCodes) {
      const Failures one = {{first, code}};
      const std::size_t made = Expected(operation, undisturbed, one).calls.size();
      for (std::size_t second = first + 1; second <= made; ++second) {
        for (const Status secondCode : kSecondCodes) {
          Check(operation, undisturbed, {{first, code}, {second, secondCode}});
          pairs.Add();
        }
      }
    }
  }
}

TEST_P(FailureSweep, CallsThatFailFromOneOnHaveTheEffectsOfAll) {
  const Operation& operation = GetParam();
  const Trial undisturbed = RunAnew(operation, {});
  for (std::size_t first = 1; first <= undisturbed.calls.size(); ++first) {
    for (const Status code : kFirstCodes) {
      Failures all;
      for (std::size_t failing = first; failing <= kMostCalls; ++failing) all[failing] = code;
      Check(operation, undisturbed, all);
      endless.Add();
    }
  }
}

}  // namespace quillkit
