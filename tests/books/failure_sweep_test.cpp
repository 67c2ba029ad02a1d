// The operations of the books, the lists and the accounts, with every one of its calls failing in
// turn: its result, the last error, the calls made, and what is then held.

#include <gtest/gtest.h>

#include <algorithm>
#include <sstream>
#include <tuple>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/books/book_operation.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/combination_count.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr Status kEarlierError = 17;
constexpr Status kCodes[] = {kDataNotFound, 6, 11, 24};

CombinationCount& combinations =
    CombinationCount::Of("failure sweep of the books, combinations of operation, call and code");

struct Trial {
  std::int64_t result;
  Status lastError;
  std::vector<std::string> calls;
  std::vector<std::string> before;
  std::vector<std::string> after;
  std::vector<std::string> found;  // by books that are opened afterwards
};

// A call of the table: its name, what its failure does, how many calls are then left out.
struct BookCall {
  std::string name;
  char reaction;
  std::size_t leftOut = 0;
};

std::vector<BookCall> CallsOf(const BookOperation& operation) {
  std::vector<BookCall> calls;
  std::istringstream words(operation.calls);
  for (std::string word; words >> word;) {
    const std::size_t mark = word.find_first_of("!4-~?+");
    if (mark == std::string::npos) break;
    calls.push_back({word.substr(0, mark), word[mark]});
    if (mark + 1 < word.size()) calls.back().leftOut = std::stoul(word.substr(mark + 1));
  }
  return calls;
}

// The parameter: the operation, and whether the private book goes through its account's owner.
class BookFailureSweep : public ApplianceTest,
                         public testing::WithParamInterface<std::tuple<BookOperation, bool>> {
 protected:
  const BookOperation& Operation() const { return std::get<0>(GetParam()); }

  // Runs the operation with its call number `failing` answering `code`; 0: none.
  Trial Try(std::size_t failing, Status code) const;

  std::int64_t Failure(Status code, std::int64_t undisturbed) const;

  void Compare(const Trial& trial, const Trial& undisturbed, const BookCall& call,
               std::size_t failing, Status code) const;
};

Trial BookFailureSweep::Try(std::size_t failing, Status code) const {
  SimulatorReset();
  SimulatorRecordCalls(1);
  LogIn();
  const bool throughOwner = std::get<1>(GetParam());
  BookStage stage(throughOwner);
  Trial trial;
  trial.before = stage.Held();
  TakeCalls();
  TheAgent.SetError(kEarlierError);
  if (failing != 0) SimulatorFail(nullptr, static_cast<std::int32_t>(failing), code);
  trial.result = Operation().run(stage);
  trial.lastError = TheAgent.LastError();
  for (const std::string& call : TakeCalls()) {
    trial.calls.push_back(call.substr(4, call.find(' ') - 4));
  }
  SimulatorClearFaults();
  trial.after = stage.Held();
  if (failing == 0) trial.found = BookStage(throughOwner, BookStage::Setting::kAsFound).Held();
  Logout();
  return trial;
}

std::int64_t BookFailureSweep::Failure(Status code, std::int64_t undisturbed) const {
  switch (Operation().style) {
    case FailureStyle::kStatus:
      return code;
    case FailureStyle::kCount:
      return -1;
    case FailureStyle::kFlag:
      return 0;
    default:
      return undisturbed;
  }
}

void BookFailureSweep::Compare(const Trial& trial, const Trial& undisturbed, const BookCall& call,
                               std::size_t failing, Status code) const {
  const bool isNothing = code == kDataNotFound && (call.reaction == '4' || call.reaction == '+');
  const bool fails = !isNothing && call.reaction != '-' && call.reaction != '~';
  EXPECT_EQ(trial.result, fails ? Failure(code, undisturbed.result) : undisturbed.result);
  if (isNothing) return;

  std::vector<std::string> calls = undisturbed.calls;
  const auto behind = calls.begin() + static_cast<std::ptrdiff_t>(failing);
  const bool goesOn = call.reaction == '~' || call.reaction == '?' || call.reaction == '+';
  calls.erase(behind, goesOn ? behind + static_cast<std::ptrdiff_t>(call.leftOut) : calls.end());
  EXPECT_EQ(trial.calls, calls);
  EXPECT_EQ(trial.lastError, calls.size() == failing ? code : undisturbed.lastError);

  if (call.name == "ReadAB" || call.name == "SizeofAB" || call.name == "ListAB") return;
  if (call.name == "ReadEntryProperties" && call.reaction == '~') return;
  if (call.reaction != '~' && (call.reaction != '!' || Operation().Has("neither"))) return;
  const bool isAfter = call.reaction == '~' || Operation().Has("after");
  EXPECT_EQ(trial.after, isAfter ? undisturbed.after : trial.before);
}

TEST_P(BookFailureSweep, ComesToWhatTheTableTells) {
  const Trial undisturbed = Try(0, kNoError);
  EXPECT_EQ(undisturbed.result, Operation().success);
  if (!Operation().Has("stale")) {
    EXPECT_EQ(undisturbed.after, undisturbed.found);
  }
  const std::vector<BookCall> calls = CallsOf(Operation());
  ASSERT_EQ(undisturbed.calls.size(), calls.size());
  for (std::size_t i = 0; i < calls.size(); ++i) {
    EXPECT_EQ(undisturbed.calls[i], calls[i].name);
    for (const Status code : kCodes) {
      SCOPED_TRACE(calls[i].name + ", call " + std::to_string(i + 1) + ", fails with " +
                   std::to_string(code));
      Compare(Try(i + 1, code), undisturbed, calls[i], i + 1, code);
      combinations.Add();
    }
  }
}

TEST_P(BookFailureSweep, NeedsABookOrAnAppliance) {
  const auto [operation, throughOwner] = GetParam();
  // The session's own private book has a way of its own.
  if (operation.Has("loose") || !throughOwner) return;
  SimulatorRecordCalls(1);
  LogIn();
  BookStage stage(throughOwner, BookStage::Setting::kWithoutABook);
  TakeCalls();
  TheAgent.SetError(kEarlierError);
  EXPECT_EQ(operation.run(stage), Failure(kRefused, 0));
  EXPECT_THAT(TakeCalls(), testing::IsEmpty());
  EXPECT_EQ(TheAgent.LastError(), kEarlierError);
}

INSTANTIATE_TEST_SUITE_P(Operations, BookFailureSweep,
                         testing::Combine(testing::ValuesIn(BookOperations()), testing::Bool()),
                         [](const auto& each) {
                           std::string name = std::get<0>(each.param).name;
                           std::erase(name, ' ');
                           return name + (std::get<1>(each.param) ? "ThroughTheOwner" : "");
                         });

}  // namespace
}  // namespace quillkit
