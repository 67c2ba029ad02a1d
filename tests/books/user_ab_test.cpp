// The accounts of an appliance: the book, the list in memory, and a record with its private book,
// log, flags and archive.

#include <memory>

#include "books/user_list.h"
#include "tests/books/books_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::IsEmpty;

using UserBookTest = BooksTest;

TEST_F(UserBookTest, IterationMovesPastItsEndsAndBack) {
  EXPECT_EQ(users.Attach(box, 0, 1), 1);
  EXPECT_EQ(users.Attach(nullptr, 1), 0);
  CUserRecord record;
  EXPECT_STREQ(users.First(&record)->Name(), "ADMINISTRATOR");
  EXPECT_EQ(record.Owner(), &users);
  EXPECT_EQ(users.Previous(&record), nullptr);
  EXPECT_EQ(users.Previous(&record), nullptr);
  EXPECT_EQ(users.Next(&record), nullptr);
  EXPECT_STREQ(users.Next(&record)->Name(), "ADMINISTRATOR");
  EXPECT_STREQ(users.Next(&record)->Name(), "GUEST");
  EXPECT_STREQ(users.Next(&record)->Name(), "TOOLKIT");
  EXPECT_EQ(users.Next(&record), nullptr);
  EXPECT_STREQ(users.Previous(&record)->Name(), "TOOLKIT");
}

TEST_F(UserBookTest, ASearchFillsTheRecordAndComparesWholeNamesInModeOneOnly) {
  PutNames(BookKind::kUsers, "", {"ab", "abc"});
  users.Load();
  CUserRecord record;
  EXPECT_EQ(users.FindFirst("a", 1, &record), -1);
  EXPECT_EQ(users.FindFirst("a", 2, &record), 3);
  EXPECT_STREQ(record.Name(), "ab");
  EXPECT_EQ(users.FindNext(1, &record), -1);
  EXPECT_EQ(users.FindNext(2, &record), 4);
  EXPECT_STREQ(record.Name(), "abc");
  EXPECT_EQ(record.PrivateBook(), nullptr);
  users.Attach(box, 0);
  EXPECT_NE(users.GetAt(3, &record)->PrivateBook(), nullptr)
      << "attaching the users book creates private books";
  CUserRecord administrator;
  EXPECT_EQ(users.GetAt(0, &administrator)->PrivateBook(), nullptr);
}

TEST_F(UserBookTest, SavesAnAccountThatWasAddedInMemory) {
  account.tag = 7;
  EXPECT_EQ(users.AddLocal(&account), 1);
  CUserRecord held;
  EXPECT_EQ(users.GetAt(0, &held)->tag, 7U);
  TakeCalls();
  EXPECT_EQ(users.SaveAll(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 4:USERSAB Anna Anna"));
  EXPECT_EQ(users.RemoveAt(1, 1), 0);
  EXPECT_EQ(users.RemoveAt(0, 1), 1);
  EXPECT_EQ(users.Count(), 4) << "the removal reloads the 4 accounts";
}

TEST_F(UserBookTest, ClearAllUsesTheApplianceOfTheLatestLogin) {
  PutNames(BookKind::kUsers, "", {"Anna"});
  CUserAB unattached;
  EXPECT_EQ(unattached.ClearAll(), kNoError);
  const std::vector<std::string> calls = TakeCalls();
  EXPECT_THAT(calls, Contains("IMSPClearAB 1024:LOGAB _!ADMINISTRATOR_!GUEST"));
  EXPECT_THAT(calls, Contains("IMSPClearAB 4:USERSAB -"));
  TheAgent.DeleteScanners();
  EXPECT_EQ(unattached.ClearAll(), kRefused);
}

// A book loads as many accounts as it holds, and discards them.
TEST_F(UserBookTest, SerializesItsAccountsWithoutACount) {
  users.Load();
  const std::string bytes = Stored(users);
  EXPECT_EQ(bytes.substr(0, 14), "\15ADMINISTRATOR");
  users.RemoveAt(0, 0);
  Archive loading = Load(users, bytes);
  CUserRecord record;
  EXPECT_STREQ(users.GetAt(0, &record)->Name(), "GUEST");
  CUserEntry next;
  next.Serialize(loading);
  EXPECT_STREQ(next.Name(), "TOOLKIT");
}

TEST(UserList, KeepsTheEndOfABackwardReadAndFreesItsBlockWithTheLastRecord) {
  CUserList list;
  CUserEntry user;
  for (const char* name : {"a", "b", "c"}) {
    user.SetName(name);
    list.Append(user);
  }
  EXPECT_TRUE(list.Shrink(2, 0));
  const std::string bytes = Stored(list);
  EXPECT_EQ(bytes.substr(0, 6), std::string("\2\0\0\0\1b", 6));
  EXPECT_STREQ(list.GetAt(2).Name(), "");
  EXPECT_EQ(list.RemoveAt(0), 1);
  EXPECT_NE(list.Data(), nullptr);
  EXPECT_EQ(list.RemoveAt(0), 1);
  EXPECT_EQ(list.Data(), nullptr);
  EXPECT_EQ(list.SaveAll(), kRefused);
  EXPECT_EQ(list.Load({}, 1), kRefused);
  Load(list, bytes);
  EXPECT_STREQ(list.GetAt(1).Name(), "c");
  list.Allocate(MaxUsers);
  EXPECT_EQ(list.Append(user), 0);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
}

class UserRecordTest : public PrivateBookTest {
 public:
  UserRecordTest() { Put<CUserEntry>(BookKind::kUsers, "", account); }
};

TEST_P(UserRecordTest, ReleasesAndReplacesItsPrivateBook) {
  CPrivEmailAB* book = account.PrivateBook();
  EXPECT_EQ(account.AttachPrivateBook(book), 1)
      << "the book that the account owns already is accepted";
  const std::unique_ptr<CPrivEmailAB> detached(account.DetachPrivateBook());
  EXPECT_EQ(detached.get(), book);
  EXPECT_EQ(account.PrivateBook(), nullptr);
  EXPECT_EQ(account.DetachPrivateBook(), nullptr);
  auto* other = new CPrivEmailAB;
  EXPECT_EQ(account.AttachPrivateBook(other), 1);
  EXPECT_EQ(account.PrivateBook(), other);
  EXPECT_EQ(account.AttachPrivateBook(nullptr), 1);
  EXPECT_EQ(account.PrivateBook()->User(), &account) << "null attaches a new book of the account";
  Name(account, kAdministrator);
  EXPECT_EQ(account.AttachPrivateBook(nullptr), 1);
  EXPECT_EQ(account.PrivateBook(), nullptr) << "a privileged account gets none";
}

TEST_P(UserRecordTest, HasNoPrivateBookWithANameThatIsTooLong) {
  const std::unique_ptr<CPrivEmailAB> kept(account.DetachPrivateBook());
  Name(account, std::string(40, 'n'));
  EXPECT_EQ(account.PrivateBook(), nullptr);
  EXPECT_EQ(account.LoadPrivateBook(), 0);
  EXPECT_EQ(account.AttachPrivateBook(kept.get()), 0);
  EXPECT_EQ(account.DetachPrivateBook(), nullptr);
  EXPECT_FALSE(users.ReadUser(&account, 1));
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(UserRecordTest, ReadsAndClearsItsLog) {
  Name(account, kAdministrator);
  EXPECT_EQ(account.LoadLog(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 1024:LOGAB ADMINISTRATOR",
                                       "IMSPReadAB 1024:LOGAB [|ADMINISTRATOR|0] 1 1"));
  ASSERT_EQ(account.LogSize(), 1U);
  EXPECT_EQ(account.LogAt(0), TheAgent.LogRecordAt(0));
  EXPECT_EQ(account.ClearMyLog(), kNoError);
  EXPECT_THAT(TakeCalls(), Contains("IMSPClearAB 1024:LOGAB ADMINISTRATOR"));
}

TEST_P(UserRecordTest, WritesChangedFlagsToTheServer) {
  EXPECT_EQ(account.MarkOnce(0), 1);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 4:USERSAB Anna Anna"));
  EXPECT_EQ(account.MarkOnce(0), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  const std::unique_ptr<CPrivEmailAB> released(account.DetachPrivateBook());
  EXPECT_EQ(account.TurnOn(1), 1);
  EXPECT_EQ(users.Count(), GetParam() ? 4 : 0) << "the owner reads its accounts";
  SimulatorFail(nullptr, 1, kFault);
  EXPECT_EQ(account.TurnOff(0), 0);
  EXPECT_FALSE(account.IsOn()) << "the account is off in memory even if the call fails";
  CUserEntry stored;
  SimulatorFindEntry(BookKind::kUsers, "", nullptr, "Anna", &stored);
  EXPECT_EQ(stored.flags, 0x11U);
}

TEST_P(UserRecordTest, RestoresItsPrivateBookFromTheArchiveSectionOfItsName) {
  PutNames(BookKind::kPrivateEmail, "", {"Ann", "Bo", "C\xE9lia"});
  Put(BookKind::kPrivateList, "Crew", MakeEntry("Ann", "own", 1));
  Put(BookKind::kPrivateList, "Team", MakeEntry("Bo", "own", 1));
  Put(BookKind::kPrivateList, "Team", MakeEntry("Public"));
  std::string bytes;
  Archive storing(&bytes);
  account.SerializeWithBook(storing);
  TakeCalls();
  CUserRecord restored;
  for (const std::string_view name : {"Bertil", "Anna"}) {
    Name(restored, name);
    restored.CreatePrivateBook();
    Archive loading{std::string_view(bytes)};
    restored.SerializeWithBook(loading);
    EXPECT_EQ(restored.NameMismatch(), name == "Bertil");
    EXPECT_EQ(loading.Remaining() != 0, name == "Bertil");
    EXPECT_EQ(restored.PrivateBook()->EntryCount(), name == "Bertil" ? 0 : 3);
  }
  EXPECT_THAT(TakeCalls(), IsEmpty());
  for (const char* failing : {"IMSPCreateAB", "none"}) {
    Private().EmptyOnServer();
    EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""), IsEmpty());
    SimulatorFail(failing, 1, kFault);
    EXPECT_EQ(restored.RestorePrivateBook(), 1)
        << "a failure to create a list is not reported: lists of an archive have no book";
  }
  EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""), ElementsAre("Ann=at", "Bo=at", "C\xE9lia=at"));
  EXPECT_THAT(OnServer(BookKind::kPrivateList, "Crew"), ElementsAre("Ann=own"));
  EXPECT_THAT(OnServer(BookKind::kPrivateList, "Team"), ElementsAre("Bo=own", "Public="));
}

INSTANTIATE_TEST_SUITE_P(Routes, UserRecordTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
