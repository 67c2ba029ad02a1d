// A private book is written to an archive, emptied on the server, and written back: from the
// archive and from memory, completely and with each server call failing in turn.

#include "base/archive.h"
#include "tests/books/books_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What comes of the failure of a call: the result, and how many calls are made.
struct Outcome {
  Status result;
  std::size_t calls;
};

// The calls of a restore, and of a write-back, which makes the last eight only. The lists of a
// restored book have no book: what the server refuses to them is not reported.
const struct Failure {
  const char* call;
  Outcome restored;
  Outcome writtenBack;
} kFailures[] = {
    {"IMSPReadEntryProperties 4:USERSAB Anna", {0, 1}, {}},
    {"IMSPIOCtl 2 0", {0, 2}, {}},
    {"IMSPIOCtl 1 3600000", {0, 3}, {}},
    {"IMSPListAB 128: [|*|0] 100 1", {1, 14}, {}},
    {"IMSPDeleteAB 16:PRIVATEAB", {0, 6}, {}},
    {"IMSPIOCtl 1 30000", {1, 14}, {}},
    {"IMSPCreateEntry 16:PRIVATEAB Ann", {1, 14}, {0, 8}},
    {"IMSPCreateEntry 16:PRIVATEAB Bo", {1, 14}, {0, 8}},
    {"IMSPCreateEntry 16:PRIVATEAB C\xE9lia", {0, 9}, {kFault, 3}},
    {"IMSPCreateAB 128:Crew", {1, 14}, {kNoSuchBook, 5}},
    {"IMSPCreateEntry 128:Crew Ann", {1, 14}, {kFault, 5}},
    {"IMSPCreateAB 128:Team", {1, 14}, {kNoSuchBook, 7}},
    {"IMSPCreateEntry 128:Team Bo", {1, 14}, {kFault, 7}},
    {"IMSPCreateEntry 128:Team Public", {1, 14}, {kFault, 8}},
};
constexpr std::size_t kOnlyRestored = 6;

class PrivateBackupTest : public PrivateBookTest {
 public:
  PrivateBackupTest() {
    PutNames(BookKind::kPrivateEmail, "", {"Ann", "Bo", "C\xE9lia"});
    Put(BookKind::kPrivateList, "Crew", MakeEntry("Ann", "own", 1));
    Put(BookKind::kPrivateList, "Team", MakeEntry("Bo", "own", 1));
    Put(BookKind::kPrivateList, "Team", MakeEntry("Public"));
    account.LoadPrivateBook();
    Archive archive(&bytes);
    account.SerializeWithBook(archive);
    TakeCalls();
  }

  // Loads the archive into another record. Makes no call.
  void Load(CUserRecord& record, std::string_view name) {
    Name(record, name);
    record.CreatePrivateBook();
    Archive archive(bytes);
    record.SerializeWithBook(archive);
    EXPECT_EQ(archive.Remaining() != 0, record.NameMismatch());
    EXPECT_THAT(TakeCalls(), IsEmpty());
  }

  template <class Write>
  void CheckFailures(std::size_t skipped, Outcome Failure::*outcome, Write write) {
    for (std::size_t i = skipped; i <= std::size(kFailures); ++i) {
      SimulatorClearFaults();
      Private().EmptyOnServer();
      EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""), IsEmpty());
      SimulatorSetTimeout(30'000);
      TakeCalls();
      if (i == std::size(kFailures)) break;
      SCOPED_TRACE(kFailures[i].call);
      SimulatorFail(nullptr, static_cast<std::int32_t>(i - skipped) + 1, kFault);
      EXPECT_EQ(write(), (kFailures[i].*outcome).result);
      const std::vector<std::string> calls = TakeCalls();
      ASSERT_EQ(calls.size(), (kFailures[i].*outcome).calls);
      EXPECT_EQ(calls[i - skipped], kFailures[i].call);
    }
    write();
    EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""),
                ElementsAre("Ann=at", "Bo=at", "C\xE9lia=at"));
    EXPECT_THAT(OnServer(BookKind::kPrivateList, "Crew"), ElementsAre("Ann=own"));
    EXPECT_THAT(OnServer(BookKind::kPrivateList, "Team"), ElementsAre("Bo=own", "Public="));
  }

  std::string bytes;
};

TEST_P(PrivateBackupTest, ARecordDoesNotLoadTheSectionOfAnotherUser) {
  CUserRecord other;
  Load(other, "Bertil");
  EXPECT_TRUE(other.NameMismatch());
  EXPECT_EQ(other.PrivateBook()->EntryCount(), 0);
}

TEST_P(PrivateBackupTest, ARestoreEndsAtTheFailuresInTheTable) {
  Put<CUserEntry>(BookKind::kUsers, "", account);
  CUserRecord restored;
  Load(restored, "Anna");
  CheckFailures(0, &Failure::restored, [&] { return restored.RestorePrivateBook(); });
}

TEST_P(PrivateBackupTest, AWriteBackEndsAtTheFailuresInTheTable) {
  CheckFailures(kOnlyRestored, &Failure::writtenBack, [&] { return Private().WriteBack(); });
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBackupTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
