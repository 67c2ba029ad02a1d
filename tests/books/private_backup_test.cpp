// A private book is written to an archive, emptied on the server, and restored from the bytes:
// whole, with each server call failing in turn, and from bytes that were cut or changed.

#include <random>
#include <sstream>

#include "base/archive.h"
#include "lists/priv_email_dl.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::IsEmpty;

class PrivateBackupTest : public PrivateBookTest {
 protected:
  PrivateBackupTest() {
    for (const char* name : {"Ann", "Bo", "C\xE9lia"}) PutEntry(MakeEntry(name, "own@example.org"));
    PutMember("Crew", MakeEntry("Ann", "own@example.org", 1));
    PutMember("Team", MakeEntry("Bo", "own@example.org", 1));
    PutMember("Team", MakeEntry("Public", "", 0));
    account.LoadPrivateBook();
    Archive archive(&bytes);
    account.SerializeWithBook(archive);
    before = Everything();
    Book().EmptyOnServer();
    EXPECT_THAT(Everything(), IsEmpty());
    SimulatorClearJournal();
  }

  static std::vector<std::string> Everything() {
    std::vector<std::string> all = EntriesOnServer();
    for (const char* list : {"Crew", "Team"}) {
      for (const std::string& each : MembersOnServer(list)) all.push_back(list + (":" + each));
    }
    return all;
  }

  // A record of the same account whose book holds what the bytes tell, which asks the server
  // nothing.
  void Load(CUserRecord& record, std::string_view from) {
    Name(record, "Anna");
    record.CreatePrivateBook();
    Archive archive(from);
    record.SerializeWithBook(archive);
  }

  // The account must be on the server for a restore.
  void PutAccount() {
    const CUserEntry& entry = account;
    SimulatorPutEntry(BookKind::kUsers, "", nullptr, &entry);
  }

  std::string bytes;
  std::vector<std::string> before;
};

TEST_P(PrivateBackupTest, RestoresWhatWasThere) {
  PutAccount();
  CUserRecord restored;
  Load(restored, bytes);
  EXPECT_FALSE(restored.NameMismatch());
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(restored.RestorePrivateBook(), 1);
  EXPECT_EQ(Everything(), before);
}

TEST_P(PrivateBackupTest, AnotherUsersSectionIsLeftUnread) {
  CUserRecord other;
  Name(other, "Bertil");
  other.CreatePrivateBook();
  Archive archive(bytes);
  other.SerializeWithBook(archive);
  EXPECT_TRUE(other.NameMismatch());
  EXPECT_EQ(other.PrivateBook()->EntryCount(), 0);
  EXPECT_GT(archive.Remaining(), 0U);
}

// What was sent before the failure stays. Entries go on behind a refused one, of which the last
// decides; a list ends at a refused member and no list follows it.
TEST_P(PrivateBackupTest, AFailureAtAnyCallLeavesWhatWasSentBefore) {
  PutAccount();
  CUserRecord restored;
  Load(restored, bytes);
  ASSERT_EQ(restored.RestorePrivateBook(), 1);
  const std::vector<std::string> calls = TakeCalls();
  for (std::size_t fault = 0; fault < calls.size(); ++fault) {
    SimulatorClearFaults();
    Book().EmptyOnServer();
    SimulatorSetTimeout(30'000);
    SimulatorClearJournal();
    SimulatorFail(nullptr, static_cast<std::int32_t>(fault) + 1, 11);
    const int result = restored.RestorePrivateBook();
    SCOPED_TRACE(calls[fault]);
    const std::vector<std::string> left = Everything();
    for (const std::string& each : left) EXPECT_THAT(before, testing::Contains(each));
    if (result == 1) continue;
    EXPECT_LT(left.size(), before.size());
  }
}

TEST_P(PrivateBackupTest, CutBytesGiveAPrefixOfTheBook) {
  for (std::size_t length = 0; length < bytes.size(); ++length) {
    CUserRecord loaded;
    Load(loaded, std::string_view(bytes).substr(0, length));
    ASSERT_LE(loaded.PrivateBook()->ListCount(), 2) << length;
    ASSERT_LE(loaded.PrivateBook()->EntryCount(), 3) << length;
  }
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(PrivateBackupTest, ChangedBytesAreReadWithinBounds) {
  std::mt19937 random(20'260'000);
  for (int round = 0; round < 2000; ++round) {
    std::string changed = bytes;
    for (int i = 0; i < 3; ++i) changed[random() % changed.size()] = static_cast<char>(random());
    CUserRecord loaded;
    Load(loaded, changed);
    if (loaded.NameMismatch()) continue;
    ASSERT_LE(loaded.PrivateBook()->EntryCount(), static_cast<std::int32_t>(changed.size()));
    for (std::int32_t i = 0; i < loaded.PrivateBook()->ListCount(); ++i) {
      ASSERT_LE(loaded.PrivateBook()->ListAt(i)->Count(),
                static_cast<std::int32_t>(changed.size()));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBackupTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
