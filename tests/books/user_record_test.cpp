// One account beside its book: its private book, its log, its flags, and the list that a book of
// accounts holds.

#include <cstring>
#include <memory>

#include "base/archive.h"
#include "books/user_list.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class UserRecordTest : public PrivateBookTest {
 protected:
  UserRecordTest() { Put(account); }

  static void Put(const CUserEntry& entry) {
    SimulatorPutEntry(BookKind::kUsers, "", nullptr, &entry);
  }
};

TEST_P(UserRecordTest, HandsItsPrivateBookOutAndTakesOneOver) {
  CPrivEmailAB* book = account.PrivateBook();
  EXPECT_EQ(account.AttachPrivateBook(book), 1) << "its own again";
  const std::unique_ptr<CPrivEmailAB> detached(account.DetachPrivateBook());
  EXPECT_EQ(detached.get(), book);
  EXPECT_EQ(account.PrivateBook(), nullptr);
  EXPECT_EQ(account.DetachPrivateBook(), nullptr);
  auto* other = new CPrivEmailAB;
  EXPECT_EQ(account.AttachPrivateBook(other), 1);
  EXPECT_EQ(account.PrivateBook(), other);
  EXPECT_EQ(account.AttachPrivateBook(nullptr), 1);
  EXPECT_EQ(account.PrivateBook()->User(), &account) << "a new one";
  Name(account, kAdministrator);
  EXPECT_EQ(account.AttachPrivateBook(nullptr), 1);
  EXPECT_EQ(account.PrivateBook(), nullptr) << "a privileged account gets none";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(UserRecordTest, WithANameThatIsTooLongItHasNothing) {
  const std::unique_ptr<CPrivEmailAB> kept(account.DetachPrivateBook());
  Name(account, std::string(40, 'n'));
  EXPECT_FALSE(account.IsValid());
  EXPECT_EQ(account.PrivateBook(), nullptr);
  EXPECT_EQ(account.CreatePrivateBook(), 0);
  EXPECT_EQ(account.LoadPrivateBook(), 0);
  EXPECT_EQ(account.AttachPrivateBook(kept.get()), 0);
  EXPECT_EQ(account.DetachPrivateBook(), nullptr);
  EXPECT_FALSE(users.ReadUser(&account, 1));
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(UserRecordTest, ReadsAndClearsItsLog) {
  std::string third;
  CUserRecord login;
  login.SetFrom(nullptr, "Anna", "secret", "", "", &account.flags, &account.nibbles);
  ASSERT_EQ(TheAgent.Login(&login, box, third, 0), kNoError);
  users.Attach(LogIn(), 0, 0);
  EXPECT_EQ(account.LoadLog(), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPSizeofAB 1024:LOGAB Anna", "IMSPReadAB 1024:LOGAB [|Anna|0] 1 1"));
  ASSERT_EQ(account.LogSize(), 1U);
  EXPECT_EQ(account.LogAt(0), TheAgent.LogRecordAt(0));
  EXPECT_EQ(account.ClearMyLog(), kNoError);
  EXPECT_EQ(TakeCalls()[2], "IMSPClearAB 1024:LOGAB Anna");
}

TEST_P(UserRecordTest, WritesItsFlags) {
  const std::vector<std::string> write = {"IMSPModifyEntry 4:USERSAB Anna Anna"};
  EXPECT_EQ(account.MarkOnce(0), 1);
  EXPECT_EQ(TakeCalls(), write);
  EXPECT_EQ(account.MarkOnce(0), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  // A reload hands the record out anew, and lets go of the book that it holds.
  const std::unique_ptr<CPrivEmailAB> book(account.DetachPrivateBook());
  EXPECT_EQ(account.TurnOn(1), 1);
  EXPECT_EQ(TakeCalls().size(), GetParam() ? 2U : 1U) << "the owner reads its accounts anew";
  EXPECT_EQ(users.Count(), GetParam() ? 4 : 0);
  SimulatorFail(nullptr, 1, 11);
  EXPECT_EQ(account.TurnOff(0), 0);
  EXPECT_FALSE(account.IsOn()) << "in memory it is off all the same";
  CUserEntry stored;
  SimulatorFindEntry(BookKind::kUsers, "", nullptr, "Anna", &stored);
  EXPECT_EQ(stored.flags, 0x11U);
}

INSTANTIATE_TEST_SUITE_P(Routes, UserRecordTest, testing::Bool(), RouteName);

CUserEntry MakeUser(std::string_view name) {
  CUserEntry entry;
  entry.SetName(name);
  return entry;
}

TEST(UserList, KeepsTheBackOfAShortReadBackwards) {
  CUserList list;
  for (const char* name : {"a", "b", "c"}) list.Append(MakeUser(name));
  EXPECT_TRUE(list.Shrink(2, 0));
  EXPECT_STREQ(list.GetAt(0).Name(), "b");
  EXPECT_STREQ(list.GetAt(2).Name(), "");
  EXPECT_EQ(list.RemoveAt(0), 1);
  EXPECT_NE(list.Data(), nullptr);
  EXPECT_EQ(list.RemoveAt(0), 1);
  EXPECT_EQ(list.Data(), nullptr) << "the last one takes the block with it";
  EXPECT_EQ(list.SaveAll(), kRefused);
  EXPECT_EQ(list.Load({}, 1), kRefused);
}

TEST(UserList, RefusesMoreThanItsLimitAndRecordsIt) {
  CUserList list;
  list.Allocate(MaxUsers);
  TheAgent.SetError(kNoError);
  EXPECT_EQ(list.Append(MakeUser("a")), 0);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  EXPECT_EQ(list.Count(), MaxUsers);
}

TEST(UserList, IsStoredWithItsCount) {
  CUserList list;
  for (const char* name : {"a", "b"}) list.Append(MakeUser(name));
  std::string bytes;
  Archive storing(&bytes);
  list.Serialize(storing);
  EXPECT_EQ(bytes.substr(0, 6), std::string("\2\0\0\0\1a", 6));
  CUserList loaded;
  Archive loading{std::string_view(bytes)};
  loaded.Serialize(loading);
  EXPECT_EQ(loading.Remaining(), 0U);
  ASSERT_EQ(loaded.Count(), 2);
  EXPECT_STREQ(loaded.GetAt(1).Name(), "b");
}

// Without their number: a book takes from a stream what it holds, and drops it.
TEST_F(ApplianceTest, ABookOfAccountsIsStoredWithoutItsCount) {
  CUserAB book;
  book.Attach(LogIn(), 0, 1);
  std::string bytes;
  Archive storing(&bytes);
  book.Serialize(storing);
  EXPECT_EQ(bytes.substr(0, 14), "\15ADMINISTRATOR");
  book.RemoveAt(0, 0);
  Archive loading{std::string_view(bytes)};
  book.Serialize(loading);
  EXPECT_EQ(book.Count(), 2);
  CUserRecord record;
  EXPECT_STREQ(book.GetAt(0, &record)->Name(), "GUEST");
  CUserEntry left;
  left.Serialize(loading);
  EXPECT_STREQ(left.Name(), "TOOLKIT");
}

}  // namespace
}  // namespace quillkit
