// Every exported function that calls the server, with every one of its calls failing in turn, with
// every code: its result, the last error, the calls made, and what memory then holds.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "softkeys/top_level_ab.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/case_name.h"
#include "tests/toolkit/scratch_file.h"
#include "tests/toolkit/server_operation.h"

namespace quillkit {
namespace {

constexpr Status kHighestCode = 25;
constexpr Status kEarlierError = 17;

// What an application can see of the keys in memory; without a book that it can reach, nothing.
struct CachedKey {
  std::string name;
  std::vector<std::string> items;
  bool operator==(const CachedKey&) const = default;
};

std::vector<CachedKey> Cache(CTopLevelAB* book) {
  std::vector<CachedKey> cache;
  for (std::int32_t i = 0; book != nullptr && i < GetCount(book); ++i) {
    CSoftKey* key = GetKeyAt(book, i);
    CachedKey& seen = cache.emplace_back(CachedKey{GetKeyName(key), {}});
    for (std::int32_t item = 0; item < GetItemCount(key); ++item) {
      seen.items.emplace_back(GetItemName(GetItemAt(key, item)));
    }
  }
  return cache;
}

std::ostream& operator<<(std::ostream& out, const CachedKey& key) {
  return out << key.name << testing::PrintToString(key.items);
}

std::int64_t FailureOf(Style style, Status status) {
  switch (style) {
    case Style::kStatus:
      return status;
    case Style::kCount:
      return -1;
    default:
      return 0;
  }
}

// What a run came to.
struct Trial {
  std::int64_t result;
  Status lastError;
  std::vector<std::string> entries;
  std::vector<CachedKey> before;
  std::vector<CachedKey> after;
};

class FailureSweep : public ApplianceTest, public testing::WithParamInterface<Operation> {
 protected:
  static void TearDownTestSuite() {
    RecordProperty("combinations", combinations_);
    std::printf("failure sweep: %d combinations of function, call and code\n", combinations_);
  }

  // Sets the stage and runs the operation, with its call number `failing` answering `code`; 0:
  // none.
  Trial Try(std::size_t failing, Status code) const;

  // The same with what a failure of that call must come to, by the table and an undisturbed run.
  static Trial Expected(const Operation& operation, const Trial& undisturbed, std::size_t failing,
                        Status code);

  static inline int combinations_ = 0;
};

Trial FailureSweep::Try(std::size_t failing, Status code) const {
  SimulatorReset();
  PutKey("Scan", {"Desk", "Mail"});
  PutKey("Send", {"Fax"});
  const ScratchFile script("");
  Stage stage;
  stage.script = script.path();
  stage.item.SetName("Desk");
  stage.newItem.SetName("Fresh");
  stage.box = LogIn();
  stage.book = GetTopLevelAbook(stage.box);
  EXPECT_EQ(LoadTopLevelAbook(stage.book, 1), 0);
  stage.key = GetKeyAt(stage.book, 0);
  EXPECT_EQ(CreateSoftKey("Copy", stage.book, &stage.newKey), 1);
  CSoftKey* const newKey = stage.newKey;

  Trial trial;
  trial.before = Cache(stage.book);
  SimulatorRecordCalls(1);
  SimulatorClearJournal();
  TheAgent.SetError(kEarlierError);
  if (failing != 0) SimulatorFail(nullptr, static_cast<std::int32_t>(failing), code);
  trial.result = GetParam().run(stage);
  trial.lastError = GetLastToolkitError();
  for (const std::string& call : TakeCalls())
    trial.entries.push_back(call.substr(0, call.find(' ')));
  trial.after = Cache(stage.box != nullptr ? GetTopLevelAbook(stage.box) : nullptr);
  SimulatorClearFaults();
  DestroySoftKey(newKey);
  Logout();
  return trial;
}

Trial FailureSweep::Expected(const Operation& operation, const Trial& undisturbed,
                             std::size_t failing, Status code) {
  const Step& step = operation.steps[failing - 1];
  const bool isLast = failing == operation.steps.size();
  Trial expected = undisturbed;
  if (step.reaction != Reaction::kPasses) expected.entries.resize(failing);
  if (step.loss >= 0) expected.after[static_cast<std::size_t>(step.loss)].items.clear();
  if (step.loss == kAllKeys) expected.after.clear();
  if (step.reaction != Reaction::kPasses || (isLast && expected.lastError == kNoError)) {
    expected.lastError = code;
  }
  const bool isStopped = step.reaction == Reaction::kStops || step.reaction == Reaction::kLogsOut ||
                         (step.reaction == Reaction::kEmpties && code != kDataNotFound);
  if (!isStopped) return expected;
  expected.result = FailureOf(operation.style, code);
  if (step.loss == kNoLoss) expected.after = expected.before;
  if (step.reaction != Reaction::kLogsOut) return expected;
  expected.entries.emplace_back("IMSPLogout");
  expected.after.clear();
  return expected;
}

TEST_P(FailureSweep, ComesToWhatTheTableTells) {
  const Operation& operation = GetParam();
  const Trial undisturbed = Try(0, kNoError);
  EXPECT_EQ(undisturbed.result, operation.success);
  ASSERT_EQ(undisturbed.entries.size(), operation.steps.size());
  for (std::size_t i = 0; i < operation.steps.size(); ++i) {
    EXPECT_EQ(undisturbed.entries[i], operation.steps[i].entry);
  }

  for (std::size_t failing = 1; failing <= operation.steps.size(); ++failing) {
    for (Status code = 1; code <= kHighestCode; ++code) {
      SCOPED_TRACE(std::string(operation.steps[failing - 1].entry) + ", call " +
                   std::to_string(failing) + ", fails with " + std::to_string(code));
      const Trial trial = Try(failing, code);
      const Trial expected = Expected(operation, undisturbed, failing, code);
      EXPECT_EQ(trial.result, expected.result);
      EXPECT_EQ(trial.lastError, expected.lastError);
      EXPECT_EQ(trial.entries, expected.entries);
      EXPECT_EQ(trial.after, expected.after);
      ++combinations_;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Functions, FailureSweep, testing::ValuesIn(ServerOperations()),
                         CaseName<Operation>);

}  // namespace
}  // namespace quillkit
