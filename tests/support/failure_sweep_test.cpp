#include "tests/support/failure_sweep.h"

#include <cstddef>
#include <string>

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

// Joins the lines into one text: for texts, a failed comparison shows the lines that differ.
std::string Joined(const Lines& memory) {
  std::string text = "memory:\n";
  for (const std::string& each : memory) text += each + "\n";
  return text;
}

// Sets up an appliance and runs the operation with these failures. For Prediction::After, stores in
// `*reopened` the contents of books that are opened again.
Trial RunAnew(const Operation& operation, const Failures& failures, Lines* reopened = nullptr) {
  SimulatorReset();
  Stage stage(LogToQuillbox(kHost, kAdministrator, kPassword, "", 0), operation.throughOwner,
              Stage::kFurnished, operation.UsesAccounts());
  const Trial trial = RunOn(stage, operation, failures, operation.run);
  if (reopened != nullptr && EndsAsReopened(operation)) {
    *reopened = Stage(stage.box, operation.throughOwner, Stage::kAsFound, operation.UsesAccounts())
                    .Memory();
  }
  Logout();
  return trial;
}

// Compares a run with its prediction.
void Check(const Operation& operation, const Prediction& prediction, const Failures& failures) {
  SCOPED_TRACE(testing::PrintToString(failures) + ": the failing calls and their codes");
  Trial trial = RunAnew(operation, failures);
  const Trial expected = prediction.With(failures);
  CutAsPredicted(trial.calls, expected.calls);
  EXPECT_EQ(trial.result, expected.result);
  EXPECT_EQ(trial.lastError, expected.lastError);
  EXPECT_EQ(trial.calls, expected.calls);
  EXPECT_EQ(Joined(trial.after), Joined(expected.after));
}

}  // namespace

TEST_P(FailureSweep, EachFailedCallHasThePredictedEffect) {
  const Operation& operation = GetParam();
  Lines reopened;
  Trial undisturbed = RunAnew(operation, {}, &reopened);
  const Prediction prediction(operation, undisturbed);
  const Trial expected = prediction.With({});
  CutAsPredicted(undisturbed.calls, expected.calls);
  ASSERT_EQ(undisturbed.calls, expected.calls);
  EXPECT_EQ(undisturbed.result, expected.result);
  EXPECT_EQ(Joined(undisturbed.after), Joined(prediction.After(reopened)));
  for (std::size_t failing = 1; failing <= expected.calls.size(); ++failing) {
    for (const Status code : kCodes) {
      Check(operation, prediction, {{failing, code}});
      combinations.Add();
    }
  }
}

TEST_P(FailureSweep, TwoFailedCallsHaveTheEffectsOfBoth) {
  const Operation& operation = GetParam();
  const Trial undisturbed = RunAnew(operation, {});
  const Prediction prediction(operation, undisturbed);
  for (std::size_t first = 1; first <= undisturbed.calls.size(); ++first) {
    for (const Status code : kFirstCodes) {
      const Failures one = {{first, code}};
      const std::size_t made = prediction.With(one).calls.size();
      for (std::size_t second = first + 1; second <= made; ++second) {
        for (const Status secondCode : kSecondCodes) {
          Check(operation, prediction, {{first, code}, {second, secondCode}});
          pairs.Add();
        }
      }
    }
  }
}

TEST_P(FailureSweep, CallsThatFailFromOneOnHaveTheEffectsOfAll) {
  const Operation& operation = GetParam();
  const Trial undisturbed = RunAnew(operation, {});
  const Prediction prediction(operation, undisturbed);
  for (std::size_t first = 1; first <= undisturbed.calls.size(); ++first) {
    for (const Status code : kFirstCodes) {
      Failures all;
      for (std::size_t failing = first; failing <= kMostCalls; ++failing) all[failing] = code;
      Check(operation, prediction, all);
      endless.Add();
    }
  }
}

}  // namespace quillkit
