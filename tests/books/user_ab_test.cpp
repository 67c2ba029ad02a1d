// The accounts of an appliance: the list in memory, its limit, and the two families of changes.

#include <cstring>

#include "books/priv_email_ab.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kReadUsers = "IMSPReadAB 4:USERSAB [||0] 4096 1";

class UserBookTest : public ApplianceTest {
 protected:
  UserBookTest() : box(LogIn()) {}

  static void Fill(CUserRecord& record, std::string_view name) {
    const std::uint32_t flags = 0;
    const std::uint32_t nibbles = 0x21;
    record.SetFrom(nullptr, name, "secret", "third", "fourth", &flags, &nibbles);
    record.tag = 7;
  }

  static void PutUser(std::string_view name) {
    CUserEntry entry;
    entry.SetName(name);
    SimulatorPutEntry(BookKind::kUsers, "", nullptr, &entry);
  }

  static bool IsOnServer(const char* name) {
    CUserEntry entry;
    return SimulatorFindEntry(BookKind::kUsers, "", nullptr, name, &entry) != 0;
  }

  CScanner* const box;
  CUserAB book;
};

TEST_F(UserBookTest, LoadsInOneReadThatIsThenCutToSize) {
  ASSERT_EQ(book.Attach(box, 0, 1), 1);
  EXPECT_EQ(book.Count(), 3);
  EXPECT_THAT(TakeCalls(), ElementsAre(kReadUsers));

  SimulatorFail("IMSPReadAB", 1, 4);
  EXPECT_EQ(book.Load(), 1);
  EXPECT_TRUE(book.IsEmpty());
  SimulatorFail("IMSPReadAB", 1, 11);
  EXPECT_EQ(book.Load(), 0);
  EXPECT_TRUE(book.IsEmpty());

  for (int i = book.Count(); SimulatorBookSize(BookKind::kUsers, "", nullptr) < MaxUsers; ++i) {
    PutUser(NumberedName(i));
  }
  EXPECT_EQ(book.Load(), 1);
  EXPECT_EQ(book.Count(), MaxUsers);
  PutUser("zz");
  EXPECT_EQ(book.Load(), 0) << "a server that holds more is not held in part";
  EXPECT_TRUE(book.IsEmpty());
  EXPECT_EQ(book.Attach(nullptr, 1), 0);
}

TEST_F(UserBookTest, WalksAndSearchesWithoutTheServer) {
  for (const char* name : {"Abel", "Anna", "abel"}) PutUser(name);
  book.Attach(box, 0, 1);
  SimulatorClearJournal();
  CUserRecord record;
  EXPECT_STREQ(book.First(&record)->Name(), "ADMINISTRATOR");
  EXPECT_EQ(record.Owner(), &book);
  for (int i = 1; i < book.Count(); ++i) EXPECT_NE(book.Next(&record), nullptr);
  EXPECT_STREQ(record.Name(), "abel");
  EXPECT_EQ(book.Next(&record), nullptr);
  EXPECT_STREQ(book.Previous(&record)->Name(), "abel");
  EXPECT_EQ(book.GetAt(-1, &record), nullptr);

  EXPECT_EQ(book.FindFirst("A", 0, &record), 0);
  EXPECT_EQ(book.FindNext(0, &record), 1);
  EXPECT_STREQ(record.Name(), "Abel");
  EXPECT_EQ(book.FindNext(0, &record), 2);
  EXPECT_EQ(book.FindNext(0, &record), -1);
  EXPECT_EQ(book.FindNext(0, &record), -1);
  EXPECT_EQ(book.FindFirst("A", 1, &record), -1);
  EXPECT_EQ(book.FindNext(0, &record), 0) << "with the pattern of the search that hit";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(UserBookTest, RecordsThatAreHandedOutGetAPrivateBookWhereAskedFor) {
  PutUser("Anna");
  book.Attach(box, 1);
  CUserRecord record;
  ASSERT_GE(book.FindFirst("Anna", 1, &record), 0);
  EXPECT_NE(record.PrivateBook(), nullptr);
  CUserRecord toolkit;
  ASSERT_GE(book.FindFirst("TOOLKIT", 1, &toolkit), 0);
  EXPECT_EQ(toolkit.PrivateBook(), nullptr);
}

TEST_F(UserBookTest, PlainChangesReadTheBookAnewWhereAskedFor) {
  book.Attach(box, 0, 1);
  SimulatorClearJournal();
  CUserRecord record;
  Fill(record, "Anna");
  EXPECT_TRUE(book.AddUser(&record, 0));
  EXPECT_EQ(book.Count(), 3);
  EXPECT_FALSE(book.AddUser(&record, 1)) << "the name is taken";
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPCreateEntry 4:USERSAB Anna", "IMSPCreateEntry 4:USERSAB Anna"));

  record.SetName("Ann");
  EXPECT_TRUE(book.RenameUser("Anna", &record, 1));
  EXPECT_EQ(record.Owner(), &book) << "the record went through the copy step";
  EXPECT_EQ(book.Count(), 4);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 4:USERSAB Anna Ann", kReadUsers));

  CUserRecord read;
  Fill(read, "Ann");
  read.tag = 0;
  EXPECT_TRUE(book.ReadUser(&read, 0));
  EXPECT_EQ(read.tag, 7U);
  EXPECT_TRUE(book.ModifyUser(&read, 0));
  std::memset(static_cast<void*>(&read.name), 'x', sizeof read.name);
  SimulatorClearJournal();
  EXPECT_FALSE(book.ReadUser(&read, 1));
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(UserBookTest, ADeletedAccountLosesItsLogFirst) {
  PutUser("Anna");
  book.Attach(box, 0, 1);
  CUserRecord record;
  Fill(record, "Anna");
  SimulatorClearJournal();
  SimulatorFail("IMSPDeleteEntry", 1, 11);
  EXPECT_FALSE(book.DeleteUser(&record, 1));
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", "IMSPClearAB 1024:LOGAB Anna",
                          "IMSPIOCtl 2 0", "IMSPIOCtl 1 30000", "IMSPDeleteEntry 4:USERSAB Anna"));
  EXPECT_TRUE(book.DeleteUser(&record, 0));
  EXPECT_FALSE(IsOnServer("Anna"));
}

TEST_F(UserBookTest, LocalChangesPatchTheListAndReadNothing) {
  book.Attach(box, 0, 1);
  SimulatorClearJournal();
  CUserRecord record;
  Fill(record, "Anna");
  EXPECT_EQ(book.AddLocal(&record), 4);
  record.SetFourth("changed");
  EXPECT_TRUE(book.ModifyLocal(&record));
  record.SetName("Ann");
  EXPECT_TRUE(book.RenameLocal("Anna", &record));
  CUserRecord held;
  EXPECT_EQ(book.FindFirst("Ann", 1, &held), 3);
  EXPECT_STREQ(held.Fourth(), "changed");
  EXPECT_EQ(held.tag, 7U);
  EXPECT_EQ(book.DeleteLocal(&record), 3);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPCreateEntry 4:USERSAB Anna", "IMSPModifyEntry 4:USERSAB Anna Anna",
                          "IMSPModifyEntry 4:USERSAB Anna Ann", "IMSPDeleteEntry 4:USERSAB Ann"));

  PutUser("Bo");
  CUserRecord unknown;
  Fill(unknown, "Bo");
  EXPECT_FALSE(book.ModifyLocal(&unknown)) << "changed on the server, not held here";
  EXPECT_EQ(book.DeleteLocal(&unknown), -1);
  EXPECT_FALSE(IsOnServer("Bo"));
}

TEST_F(UserBookTest, AFullListRefusesAndRecordsIt) {
  for (int i = 3; i < MaxUsers; ++i) PutUser(NumberedName(i));
  CUserRecord record;
  Fill(record, "zz");
  book.Attach(box, 0, 0);
  EXPECT_TRUE(book.AddUser(&record, 0)) << "a list that is not loaded counts none";
  CUserEntry gone;
  gone.SetName("zz");
  box->UserEntries().Delete(gone);
  ASSERT_EQ(book.Load(), 1);
  TheAgent.SetError(0);
  SimulatorClearJournal();
  EXPECT_FALSE(book.AddUser(&record, 1));
  EXPECT_EQ(book.AddLocal(&record), -1);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(TheAgent.LastError(), 24);
  EXPECT_EQ(book.RemoveAt(0, 0), 1);
  EXPECT_EQ(book.AddLocal(&record), MaxUsers);
}

TEST_F(UserBookTest, ClearAllGoesThroughTheApplianceOfTheLastLogin) {
  PutUser("Anna");
  book.Attach(box, 0, 1);
  SimulatorClearJournal();
  EXPECT_EQ(book.ClearAll(), 0);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                                       "IMSPClearAB 1024:LOGAB _!ADMINISTRATOR_!GUEST",
                                       "IMSPIOCtl 2 0", "IMSPIOCtl 1 30000", "IMSPIOCtl 2 0",
                                       "IMSPIOCtl 1 3600000", "IMSPClearAB 4:USERSAB -",
                                       "IMSPIOCtl 2 0", "IMSPIOCtl 1 30000", kReadUsers));
  EXPECT_EQ(book.Count(), SimulatorBookSize(BookKind::kUsers, "", nullptr));
  EXPECT_FALSE(IsOnServer("Anna"));

  TheAgent.DeleteScanners();
  CUserAB loose;
  EXPECT_EQ(loose.ClearAll(), -1);
}

TEST_F(UserBookTest, TheSessionsRecordWritesItsFlagsByItself) {
  CUserRecord& user = *TheAgent.CurrentUser();
  EXPECT_EQ(user.MarkOnce(0), 1);
  EXPECT_EQ(user.MarkOnce(0), 0);
  EXPECT_EQ(user.TurnOn(0), 1);
  EXPECT_TRUE(user.IsOn());
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 4:USERSAB ADMINISTRATOR ADMINISTRATOR",
                                       "IMSPModifyEntry 4:USERSAB ADMINISTRATOR ADMINISTRATOR"));
  SimulatorFail(nullptr, 1, 11);
  EXPECT_EQ(user.TurnOff(0), 0);
  EXPECT_FALSE(user.IsOn()) << "in memory it is off all the same";
  CUserEntry stored;
  SimulatorFindEntry(BookKind::kUsers, "", nullptr, "ADMINISTRATOR", &stored);
  EXPECT_EQ(stored.flags & 0x11U, 0x11U);
}

TEST_F(UserBookTest, ALoginReadsThePrivateBookWhereAskedFor) {
  CUserEntry anna;
  anna.SetName("Anna");
  anna.SetPassword("secret");
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, &anna);
  const CEmailEntry entry = MakeEntry("Ann", "a");
  SimulatorPutEntry(BookKind::kPrivateEmail, "", "Anna", &entry);
  SimulatorPutEntry(BookKind::kPrivateList, "Team", "Anna", &entry);
  CUserRecord record;
  Fill(record, "Anna");
  std::string third;
  ASSERT_EQ(TheAgent.Login(&record, box, third, 1), 0);
  ASSERT_NE(TheAgent.CurrentUser()->PrivateBook(), nullptr);
  EXPECT_EQ(TheAgent.CurrentUser()->PrivateBook()->EntryCount(), 1);
  EXPECT_EQ(TheAgent.CurrentUser()->PrivateBook()->ListCount(), 1);
}

}  // namespace
}  // namespace quillkit
