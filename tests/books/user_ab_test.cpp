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
  EXPECT_EQ(book.Previous(&record), nullptr);
  EXPECT_EQ(book.Previous(&record), nullptr);
  EXPECT_EQ(book.Next(&record), nullptr);
  EXPECT_STREQ(book.Next(&record)->Name(), "ADMINISTRATOR") << "step by step";
  for (int i = 1; i < book.Count(); ++i) EXPECT_NE(book.Next(&record), nullptr);
  EXPECT_STREQ(record.Name(), "abel");
  EXPECT_EQ(book.Next(&record), nullptr);
  EXPECT_STREQ(book.Previous(&record)->Name(), "abel");

  EXPECT_EQ(book.FindFirst("A", 0, &record), 0);
  EXPECT_EQ(book.FindNext(0, &record), 1);
  EXPECT_STREQ(record.Name(), "Abel");
  EXPECT_EQ(record.PrivateBook(), nullptr);
  EXPECT_EQ(book.FindNext(0, &record), 2);
  EXPECT_EQ(book.FindFirst("Abe", 1, &record), -1);
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

TEST_F(UserBookTest, LocalChangesPatchTheList) {
  book.Attach(box, 0, 1);
  CUserRecord record;
  Fill(record, "Anna");
  EXPECT_EQ(book.AddLocal(&record), 4);
  CUserRecord held;
  EXPECT_EQ(book.FindFirst("Anna", 1, &held), 3);
  EXPECT_EQ(held.tag, 7U);
  PutUser("Bo");
  Fill(record, "Bo");
  EXPECT_FALSE(book.ModifyLocal(&record)) << "changed on the server, not held here";
  EXPECT_FALSE(book.RenameLocal("Bo", &record));
  EXPECT_EQ(book.DeleteLocal(&record), -1);
  EXPECT_FALSE(IsOnServer("Bo"));
}

TEST_F(UserBookTest, SavesAccountsThatWereOnlyAdded) {
  book.Attach(box, 0, 0);
  CUserRecord record;
  Fill(record, "Anna");
  ASSERT_EQ(book.AddLocal(&record), 1);
  TakeCalls();
  EXPECT_EQ(book.SaveAll(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 4:USERSAB Anna Anna"));
}

TEST_F(UserBookTest, AFullListRefusesAndRecordsIt) {
  for (int i = 3; i < MaxUsers; ++i) PutUser(NumberedName(i));
  CUserRecord record;
  Fill(record, "zz");
  ASSERT_EQ(book.Attach(box, 0, 1), 1);
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
  CUserAB loose;
  SimulatorClearJournal();
  EXPECT_EQ(loose.ClearAll(), 0);
  const std::vector<std::string> calls = TakeCalls();
  EXPECT_THAT(calls, testing::Contains("IMSPClearAB 1024:LOGAB _!ADMINISTRATOR_!GUEST"));
  EXPECT_THAT(calls, testing::Contains("IMSPClearAB 4:USERSAB -"));
  EXPECT_FALSE(IsOnServer("Anna"));
  TheAgent.DeleteScanners();
  EXPECT_EQ(loose.ClearAll(), -1);
}

}  // namespace
}  // namespace quillkit
