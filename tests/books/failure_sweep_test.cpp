// The operations of the books, the lists and the accounts, with each of their server calls failing
// in turn, on objects that are attached to no book, and on entries that are not in memory.

#include <algorithm>
#include <iterator>
#include <regex>
#include <string_view>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "softkeys/soft_key.h"
#include "tests/books/book_operations.h"
#include "tests/books/books_fixture.h"
#include "tests/toolkit/export_operations.h"

namespace quillkit {
namespace {

INSTANTIATE_TEST_SUITE_P(Books, FailureSweep, testing::ValuesIn(BookOperations()), OperationName);

class WithoutABook : public ApplianceTest {};

TEST_F(WithoutABook, EveryOperationFailsWithoutACall) {
  for (const Operation& each : BookOperations()) {
    SCOPED_TRACE(each.name);
    if (each.notes.find("needs no book") != std::string::npos) continue;
    SimulatorReset();
    SimulatorRecordCalls(1);
    Stage stage(LogIn(), true, Stage::kWithoutABook);
    TakeCalls();
    TheAgent.SetError(kEarlierError);
    EXPECT_EQ(each.run(stage), each.result.Failure(kRefused));
    EXPECT_THAT(TakeCalls(), testing::IsEmpty());
    EXPECT_EQ(TheAgent.LastError(), kEarlierError);
  }
}

class WithoutTheEntry : public ApplianceTest {
 public:
  // Puts an entry of this name into each fixed book, and into the list Board of each kind.
  static void PutEverywhere(std::string_view name) {
    for (const BookKind kind :
         {BookKind::kFax, BookKind::kUsers, BookKind::kPrinters, BookKind::kPrivateEmail,
          BookKind::kPublicList, BookKind::kFaxList, BookKind::kPrivateList}) {
      BooksTest::PutNames(kind, "Board", {name});
    }
  }
};

TEST_F(WithoutTheEntry, ALocalChangeFailsAfterItsCallIfOnlyTheServerHasTheEntry) {
  Operations operations = BookOperations();
  std::ranges::copy(ExportOperations(), std::back_inserter(operations));
  const std::regex changes(".*(Local|Fast).*");
  const std::regex ofEntries("(ModifyEntry|DeleteEntry|DeleteAB 512:).*");
  for (const Operation& each : operations) {
    if (!std::regex_match(each.name, changes) || !std::regex_match(each.calls, ofEntries)) continue;
    SCOPED_TRACE(each.name);
    SimulatorReset();
    SimulatorRecordCalls(1);
    PutEverywhere("Bob");
    PutKey("Send", {"Fax"});
    Stage stage(LogIn(), each.throughOwner, Stage::kAsFound);
    PutEverywhere("Ann");
    PutKey("Scan", {"Desk"});
    stage.key = stage.newKey;
    stage.key->SetKeyName("Scan");
    BooksTest::Start();
    EXPECT_EQ(each.run(stage), each.result.Failure(kRefused));
    EXPECT_EQ(SimulatorCallCount(), 1);
    EXPECT_EQ(TheAgent.LastError(), kNoError) << "the server makes the change";
  }
}

}  // namespace
}  // namespace quillkit
