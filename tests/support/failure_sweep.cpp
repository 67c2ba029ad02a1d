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

CombinationCount combinations("failure sweep, combinations of operation, call and code");

struct Call {
  std::string text;
  std::string effects;
};

struct Effect {
  bool fails = true;
  bool goesOn = false;
  bool changesMemory = false;
  std::ptrdiff_t skipped = 0;
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

// Returns the effect of a failure with this code, from a text such as "ignored; 4: ends".
Effect EffectOf(const std::string& effects, Status code) {
  const std::string codeText = std::to_string(code) + ": ";
  std::string any;
  std::istringstream parts(effects);
  for (std::string part; std::getline(parts >> std::ws, part, ';');) {
    if (part.starts_with(codeText)) return ParseEffect(part.substr(codeText.size()));
    if (part.find(": ") == std::string::npos) any = part;
  }
  return ParseEffect(any);
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

// Runs the operation. Its call number `failing` returns `code`; 0: none.
Trial Try(const Operation& operation, CScanner* box, std::size_t failing, Status code) {
  Stage stage(box, operation.throughOwner);
  if (operation.prepare != nullptr) operation.prepare(stage);
  Trial trial;
  trial.before = stage.Memory();
  SimulatorRecordCalls(1);
  SimulatorClearJournal();
  TheAgent.SetError(ApplianceTest::kEarlier);
  if (failing != 0) SimulatorFail(nullptr, static_cast<std::int32_t>(failing), code);
  trial.result = operation.run(stage);
  trial.lastError = TheAgent.LastError();
  for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
    trial.calls.emplace_back(SimulatorCallText(i) + 4);  // without "IMSP"
  }
  SimulatorClearFaults();
  trial.after = stage.Memory();
  if (failing == 0 && EndsAsReopened(operation)) {
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

// Returns the expected result of a run in which call number `failing` fails.
Trial Expected(const Operation& operation, const Trial& undisturbed, std::size_t failing,
               Status code) {
  const std::vector<Call> calls = ParseCalls(operation.calls);
  const Effect effect = EffectOf(calls[failing - 1].effects, code);
  Trial expected = {};
  expected.result = effect.returns.value_or(effect.fails ? operation.result.Failure(code)
                                                         : operation.result.success);
  for (const Call& each : calls) expected.calls.push_back(each.text);
  const auto next = expected.calls.begin() + static_cast<std::ptrdiff_t>(failing);
  expected.calls.erase(next, next + effect.skipped);
  if (!effect.goesOn || effect.then) expected.calls.resize(failing);
  for (const std::string& each : effect.then.value_or(Lines())) expected.calls.push_back(each);
  std::size_t recorded = expected.calls.size();
  while (recorded != 0 && expected.calls[recorded - 1] == "Logout") --recorded;
  expected.lastError =
      effect.lastError.value_or(recorded == failing ? code : undisturbed.lastError);
  expected.after = Changed(effect, effect.changesMemory ? undisturbed.after : undisturbed.before);
  return expected;
}

// Removes from each call the arguments that the prediction omits.
void CutAsPredicted(Lines& calls, const Lines& predicted) {
  for (std::size_t i = 0; i < std::min(calls.size(), predicted.size()); ++i) {
    if (calls[i].starts_with(predicted[i] + " ")) calls[i].resize(predicted[i].size());
  }
}

}  // namespace

TEST_P(FailureSweep, EachFailedCallHasThePredictedEffect) {
  const Operation& operation = GetParam();
  const auto run = [&](std::size_t failing, Status code) {
    SimulatorReset();
    const Trial trial = Try(operation, LogIn(), failing, code);
    Logout();
    return trial;
  };
  Trial undisturbed = run(0, kNoError);
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
      SCOPED_TRACE(testing::Message()
                   << "call " << failing << ", " << calls[failing - 1] << ", fails with " << code);
      Trial trial = run(failing, code);
      const Trial expected = Expected(operation, undisturbed, failing, code);
      CutAsPredicted(trial.calls, expected.calls);
      EXPECT_EQ(trial.result, expected.result);
      EXPECT_EQ(trial.lastError, expected.lastError);
      EXPECT_EQ(trial.calls, expected.calls);
      EXPECT_EQ(Joined(trial.after), Joined(expected.after));
      combinations.Add();
    }
  }
}

}  // namespace quillkit
