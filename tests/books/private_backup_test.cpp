// A private book is written to an archive, emptied on the server, and restored from the bytes:
// whole, and with each server call failing in turn.

#include <algorithm>

#include "base/archive.h"
#include "bridge/status.h"
#include "lists/priv_email_dl.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::IsEmpty;

// What a refused call brings about: the result, and which of the six things that were there before
// are there again.
struct Refusal {
  const char* call;
  Status result;
  const char* left;
};

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

  // Runs `write` on an empty book, with each call in turn answering 11.
  template <std::size_t N, class Write>
  void CheckRefusals(const Refusal (&refusals)[N], Write write) {
    for (std::size_t i = 0; i < N; ++i) {
      SimulatorClearFaults();
      Book().EmptyOnServer();
      SimulatorSetTimeout(30'000);
      TakeCalls();
      SimulatorFail(nullptr, static_cast<std::int32_t>(i) + 1, 11);
      EXPECT_EQ(write(), refusals[i].result) << refusals[i].call;
      const std::vector<std::string> calls = TakeCalls();
      ASSERT_GT(calls.size(), i);
      EXPECT_EQ(calls[i], refusals[i].call);
      const std::vector<std::string> left = Everything();
      std::string shown;
      for (const std::string& each : before) shown += std::ranges::count(left, each) ? 'A' : '.';
      EXPECT_EQ(shown, refusals[i].left) << refusals[i].call;
    }
    SimulatorClearFaults();
    Book().EmptyOnServer();
    TakeCalls();
    write();
    EXPECT_EQ(TakeCalls().size(), N);
    EXPECT_EQ(Everything(), before);
  }

  std::string bytes;
  std::vector<std::string> before;
};

TEST_P(PrivateBackupTest, AnotherUsersSectionIsLeftUnread) {
  CUserRecord other;
  Name(other, "Bertil");
  other.CreatePrivateBook();
  Archive archive(bytes);
  other.SerializeWithBook(archive);
  EXPECT_TRUE(other.NameMismatch());
  EXPECT_EQ(other.PrivateBook()->EntryCount(), 0);
  EXPECT_GT(archive.Remaining(), 0U);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

// Lists that came out of an archive have no book: what the server refuses them goes unnoticed.
TEST_P(PrivateBackupTest, ARestoreWithACallRefused) {
  const Refusal kRefusals[] = {
      {"IMSPReadEntryProperties 4:USERSAB Anna", 0, "......"},
      {"IMSPIOCtl 2 0", 0, "......"},
      {"IMSPIOCtl 1 3600000", 0, "......"},
      {"IMSPListAB 128: [|*|0] 100 1", 1, "AAAAAA"},
      {"IMSPDeleteAB 16:PRIVATEAB", 0, "......"},
      {"IMSPIOCtl 1 30000", 1, "AAAAAA"},
      {"IMSPCreateEntry 16:PRIVATEAB Ann", 1, ".AAAAA"},
      {"IMSPCreateEntry 16:PRIVATEAB Bo", 1, "A.AAAA"},
      {"IMSPCreateEntry 16:PRIVATEAB C\xE9lia", 0, "AA...."},
      {"IMSPCreateAB 128:Crew", 1, "AAA.AA"},
      {"IMSPCreateEntry 128:Crew Ann", 1, "AAA.AA"},
      {"IMSPCreateAB 128:Team", 1, "AAAA.."},
      {"IMSPCreateEntry 128:Team Bo", 1, "AAAA.A"},
      {"IMSPCreateEntry 128:Team Public", 1, "AAAAA."},
  };
  PutAccount();
  CUserRecord restored;
  Load(restored, bytes);
  CheckRefusals(kRefusals, [&] { return restored.RestorePrivateBook(); });
}

// Those that were read from the server have one, and a refusal ends the run. Of the entries the
// last alone decides.
TEST_P(PrivateBackupTest, WritingBackWithACallRefused) {
  const Refusal kRefusals[] = {
      {"IMSPCreateEntry 16:PRIVATEAB Ann", 0, ".AAAAA"},
      {"IMSPCreateEntry 16:PRIVATEAB Bo", 0, "A.AAAA"},
      {"IMSPCreateEntry 16:PRIVATEAB C\xE9lia", 11, "AA...."},
      {"IMSPCreateAB 128:Crew", kNoSuchBook, "AAA..."},
      {"IMSPCreateEntry 128:Crew Ann", 11, "AAA..."},
      {"IMSPCreateAB 128:Team", kNoSuchBook, "AAAA.."},
      {"IMSPCreateEntry 128:Team Bo", 11, "AAAA.."},
      {"IMSPCreateEntry 128:Team Public", 11, "AAAAA."},
  };
  CheckRefusals(kRefusals, [&] { return Book().WriteBack(); });
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBackupTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
