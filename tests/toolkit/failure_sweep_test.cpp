// Exported functions that call the server, with every one of their calls failing in turn, with
// every code: the result, the last error, the calls made, and what memory then holds.

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/combination_count.h"
#include "tests/toolkit/server_operation.h"

namespace quillkit {
namespace {

constexpr Status kHighestCode = 25;
constexpr Status kEarlierError = 17;

CombinationCount& combinations =
    CombinationCount::Of("failure sweep of the exports, combinations of function, call and code");

// What a run came to.
struct Trial {
  std::int64_t result;
  Status lastError;
  Names calls;
  Panel before;
  Panel after;
};

class FailureSweep : public OperationTest, public testing::WithParamInterface<Operation> {
 protected:
  // Sets the stage and runs the operation, with its call number `failing` answering `code`; 0:
  // none.
  static Trial Try(std::size_t failing, Status code);

  // The same with what a failure of that call must come to, by the table and an undisturbed run.
  static Trial Expected(const Trial& undisturbed, std::size_t failing, Status code);
};

Trial FailureSweep::Try(std::size_t failing, Status code) {
  Stage stage = SetStage();
  Trial trial;
  trial.before = Look(stage.book);
  SimulatorRecordCalls(1);
  TheAgent.SetError(kEarlierError);
  if (failing != 0) SimulatorFail(nullptr, static_cast<std::int32_t>(failing), code);
  trial.result = GetParam().run(stage);
  trial.lastError = GetLastToolkitError();
  for (const std::string& call : TakeCalls()) trial.calls.push_back(call.substr(4));
  trial.after = Look(stage.box != nullptr ? GetTopLevelAbook(stage.box) : nullptr);
  SimulatorClearFaults();
  DestroySoftKey(stage.newKey);
  Logout();
  return trial;
}

Trial FailureSweep::Expected(const Trial& undisturbed, std::size_t failing, Status code) {
  const std::string& call = GetParam().calls[failing - 1];
  Trial expected = undisturbed;
  if (call[0] == '~') {
    for (auto& [key, items] : expected.after) {
      if (call.find("ReadAB 512:" + key + ' ') == 1) items.clear();
    }
    const bool isLast = failing == GetParam().calls.size();
    if (isLast && expected.lastError == kNoError) expected.lastError = code;
    return expected;
  }
  expected.calls.resize(failing);
  expected.lastError = code;
  if (call[0] == 'x') expected.calls.emplace_back("Logout");
  expected.after = call[0] == '!' ? undisturbed.before : Panel();
  const bool isSuccess = call[0] == '-' || (call[0] == '4' && code == kDataNotFound);
  if (!isSuccess) expected.result = FailureOf(GetParam().style, code);
  return expected;
}

TEST_P(FailureSweep, ComesToWhatTheTableTells) {
  const Names& calls = GetParam().calls;
  const Trial undisturbed = Try(0, kNoError);
  EXPECT_EQ(undisturbed.result, GetParam().success);
  ASSERT_EQ(undisturbed.calls.size(), calls.size());
  for (std::size_t failing = 1; failing <= calls.size(); ++failing) {
    EXPECT_EQ(undisturbed.calls[failing - 1], calls[failing - 1].substr(1));
    for (Status code = 1; code <= kHighestCode; ++code) {
      SCOPED_TRACE(calls[failing - 1] + " fails with " + std::to_string(code));
      const Trial trial = Try(failing, code);
      const Trial expected = Expected(undisturbed, failing, code);
      EXPECT_EQ(trial.result, expected.result);
      EXPECT_EQ(trial.lastError, expected.lastError);
      EXPECT_EQ(trial.calls, expected.calls);
      EXPECT_EQ(trial.after, expected.after);
      combinations.Add();
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Functions, FailureSweep, testing::ValuesIn(ServerOperations()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace quillkit
