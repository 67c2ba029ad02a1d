// A private book is written to an archive, emptied on the server, and restored: completely, and
// with each server call failing in turn.

#include "base/archive.h"
#include "tests/books/books_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The calls of a restore. For a failure of each: the result of the restore and the number of its
// calls. The restored lists have no book, so failures of their calls are not reported.
const struct {
  const char* call;
  Status result;
  std::size_t calls;
} kFailures[] = {
    {"IMSPReadEntryProperties 4:USERSAB Anna", 0, 1},
    {"IMSPIOCtl 2 0", 0, 2},
    {"IMSPIOCtl 1 3600000", 0, 3},
    {"IMSPListAB 128: [|*|0] 100 1", 1, 14},
    {"IMSPDeleteAB 16:PRIVATEAB", 0, 6},
    {"IMSPIOCtl 1 30000", 1, 14},
    {"IMSPCreateEntry 16:PRIVATEAB Ann", 1, 14},
    {"IMSPCreateEntry 16:PRIVATEAB Bo", 1, 14},
    {"IMSPCreateEntry 16:PRIVATEAB C\xE9lia", 0, 9},
    {"IMSPCreateAB 128:Crew", 1, 14},
    {"IMSPCreateEntry 128:Crew Ann", 1, 14},
    {"IMSPCreateAB 128:Team", 1, 14},
    {"IMSPCreateEntry 128:Team Bo", 1, 14},
    {"IMSPCreateEntry 128:Team Public", 1, 14},
};

class PrivateBackupTest : public PrivateBookTest {
 public:
  PrivateBackupTest() {
    PutNames(BookKind::kPrivateEmail, "", {"Ann", "Bo", "C\xE9lia"});
    Put(BookKind::kPrivateList, "Crew", MakeEntry("Ann", "own", 1));
    Put(BookKind::kPrivateList, "Team", MakeEntry("Bo", "own", 1));
    Put(BookKind::kPrivateList, "Team", MakeEntry("Public"));
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

  // Empties the book on the server and lets the call number `failing` fail.
  void Empty(std::size_t failing) {
    SimulatorClearFaults();
    Private().EmptyOnServer();
    EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""), IsEmpty());
    SimulatorSetTimeout(30'000);
    TakeCalls();
    SimulatorFail(nullptr, static_cast<std::int32_t>(failing), kFault);
  }

  std::string bytes;
};

TEST_P(PrivateBackupTest, ARecordDoesNotLoadTheSectionOfAnotherUser) {
  CUserRecord other;
  Load(other, "Bertil");
  EXPECT_TRUE(other.NameMismatch());
  EXPECT_EQ(other.PrivateBook()->EntryCount(), 0);
}

TEST_P(PrivateBackupTest, ARestoreStopsOnlyAtTheListedFailures) {
  Put<CUserEntry>(BookKind::kUsers, "", account);
  CUserRecord restored;
  Load(restored, "Anna");
  for (std::size_t i = 0; i < std::size(kFailures); ++i) {
    SCOPED_TRACE(kFailures[i].call);
    Empty(i + 1);
    EXPECT_EQ(restored.RestorePrivateBook(), kFailures[i].result);
    const std::vector<std::string> calls = TakeCalls();
    ASSERT_EQ(calls.size(), kFailures[i].calls);
    EXPECT_EQ(calls[i], kFailures[i].call);
  }
  Empty(std::size(kFailures) + 1);
  EXPECT_EQ(restored.RestorePrivateBook(), 1);
  EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""), ElementsAre("Ann=at", "Bo=at", "C\xE9lia=at"));
  EXPECT_THAT(OnServer(BookKind::kPrivateList, "Crew"), ElementsAre("Ann=own"));
  EXPECT_THAT(OnServer(BookKind::kPrivateList, "Team"), ElementsAre("Bo=own", "Public="));
}

TEST_P(PrivateBackupTest, AWriteBackEndsAtTheFirstListThatFails) {
  Empty(5);
  EXPECT_EQ(Private().WriteBack(), kFault);
  EXPECT_EQ(TakeCalls().back(), "IMSPCreateEntry 128:Crew Ann");
  Empty(3);
  EXPECT_EQ(Private().WriteBack(), kFault);
  EXPECT_EQ(TakeCalls().back(), "IMSPCreateEntry 16:PRIVATEAB C\xE9lia");
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBackupTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
