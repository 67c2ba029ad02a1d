#include "tests/support/failure_sweep.h"

#include <algorithm>
#include <cstddef>
#include <map>
#include <optional>
#include <sstream>
#include <string_view>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"

namespace quillkit {
namespace {

using Call = Prediction::Call;

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

// Parses calls such as "SizeofAB (ends), ReadAB".
std::vector<Call> ParseCalls(std::string_view text) {
  std::vector<Call> calls;
  while (!text.empty()) {
    Call& call = calls.emplace_back();
    const std::size_t end = std::min(text.find_first_of("(,"), text.size());
    const bool hasEffects = text.substr(end).starts_with('(');
    call.text = text.substr(0, hasEffects ? end - 1 : end);
    text.remove_prefix(end);
    if (hasEffects) {
      call.effects = text.substr(1, text.find(')') - 1);
      text.remove_prefix(call.effects.size() + 2);
    }
    text.remove_prefix(std::min(std::string_view(", ").size(), text.size()));
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

}  // namespace

Trial RunOn(Stage& stage, const Operation& operation, const Failures& failures,
            const std::function<std::int64_t(Stage&)>& run) {
  if (operation.prepare != nullptr) operation.prepare(stage);
  Trial trial;
  trial.before = stage.Memory();
  SimulatorRecordCalls(1);
  SimulatorClearJournal();
  TheAgent.SetError(ApplianceTest::kEarlier);
  for (const auto& [failing, code] : failures) {
    SimulatorFail(nullptr, static_cast<std::int32_t>(failing), code);
  }
  trial.result = run(stage);
  trial.lastError = TheAgent.LastError();
  for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
    trial.calls.emplace_back(SimulatorCallText(i) + 4);  // without "IMSP"
  }
  SimulatorClearFaults();
  trial.after = stage.Memory();
  return trial;
}

void CutAsPredicted(Lines& calls, const Lines& predicted) {
  for (std::size_t i = 0; i < std::min(calls.size(), predicted.size()); ++i) {
    if (calls[i].starts_with(predicted[i] + " ")) calls[i].resize(predicted[i].size());
  }
}

Prediction::Prediction(const Operation& row, const Trial& newUndisturbed)
    : operation(row), undisturbed(newUndisturbed), undisturbedCalls(ParseCalls(row.calls)) {}

// Applies the effects of the failures one after the other.
Trial Prediction::With(const Failures& failures) const {
  std::vector<Call> calls = undisturbedCalls;
  std::vector<Effect> effects;
  Failures earlier;
  Trial expected = {};
  expected.before = undisturbed.before;
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

Lines Prediction::After(const Lines& reopened) const {
  if (EndsAsReopened(operation)) return reopened;
  if (operation.notes.starts_with("unchecked")) return undisturbed.after;
  return Changed(ParseEffect(operation.notes), undisturbed.before);
}

}  // namespace quillkit
