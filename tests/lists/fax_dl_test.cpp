// Fax lists: what their record and their kind of book make different from e-mail lists.

#include "appliance/scanner.h"
#include "base/archive.h"
#include "books/fax_ab.h"
#include "bridge/the_agent.h"
#include "lists/email_dl.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

CFaxEntry MakeFax(std::string_view name, std::string_view number, std::string_view third = "3") {
  CFaxEntry entry;
  entry.Set(EntryKey(name), number, third);
  return entry;
}

class FaxListTest : public ApplianceTest {
 protected:
  FaxListTest() : box(LogIn()) {
    for (const char* name : {"Ann", "Bob", "Cy"}) Put(MakeFax(name, "12"));
    book.Attach(box, 0);
    list.Open(&book, "Team");
    TakeCalls();
  }

  static void Put(const CFaxEntry& member) {
    SimulatorPutEntry(BookKind::kFaxList, "Team", nullptr, &member);
  }
  static std::int32_t ServerSize() {
    return SimulatorBookSize(BookKind::kFaxList, "Team", nullptr);
  }

  CScanner* const box;
  CFaxAB book;
  CPubFaxDL list;
};

TEST_F(FaxListTest, SetsWhatFits) {
  CFaxEntry entry = MakeFax("new", "", "0123456789");
  std::memset(static_cast<void*>(&entry.number), '9', sizeof entry.number);  // 80, and no NUL
  EXPECT_EQ(list.SetAt(1, entry, 0), kNoError);
  EXPECT_EQ(list.GetAt(1)->name, "Bob");
  EXPECT_EQ(list.GetAt(1)->number, "12");
  EXPECT_EQ(list.GetAt(1)->third, "0123456789");
  EXPECT_EQ(list.CopyAt(1, &entry), 1);
  EXPECT_EQ(entry.name, "Bob");
  EXPECT_EQ(entry.third, "0123456789");
}

TEST_F(FaxListTest, SearchesByNameAlone) {
  EXPECT_EQ(list.FindMember(MakeFax("Bob", "elsewhere")), 1);
  EXPECT_EQ(list.FindMember(MakeFax("12", "12")), -1);
  EXPECT_EQ(list.Find("C", 0), list.GetAt(2));
}

TEST_F(FaxListTest, IsClearedAndDeletedUnderTheLongTimeout) {
  SimulatorSetTimeout(2000);
  EXPECT_EQ(list.ClearMembers(), kNoError);
  EXPECT_EQ(ServerSize(), 0);
  EXPECT_EQ(list.DestroyList(), kNoError);
  EXPECT_EQ(ServerSize(), -1);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", "IMSPClearAB 768:Team -",
                          "IMSPIOCtl 1 2000", "IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                          "IMSPDeleteAB 768:Team", "IMSPIOCtl 2 0", "IMSPIOCtl 1 2000"));
}

TEST_F(FaxListTest, IsFullAt512) {
  for (int i = 3; i < MaxListMembers; ++i) Put(MakeFax("n" + std::to_string(i), "1"));
  ASSERT_EQ(list.Reload(), kNoError);
  TakeCalls();
  CFaxEntry entry = MakeFax("one more", "1");
  EXPECT_EQ(list.AddMember(&entry, 1), kBookFull);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  EXPECT_THAT(TakeCalls(), ElementsAre());
}

TEST_F(FaxListTest, IsStoredWithItsMembers) {
  std::string stored;
  Archive sink(&stored);
  list.RemoveAt(2, 0);
  list.Serialize(sink);
  EXPECT_EQ(stored, std::string("\2\0\0\0\4Team\3Ann\00212\0013\3Bob\00212\0013", 27));
  CPubFaxDL loaded;
  Archive source{std::string_view(stored)};
  loaded.Serialize(source);
  ASSERT_EQ(loaded.Count(), 2);
  EXPECT_EQ(loaded.GetAt(1)->number, "12");
  EXPECT_TRUE(loaded.IsPublic());
}

TEST(ListBase, HasNoServer) {
  CEmailDL list;
  CEmailEntry entry;
  std::uint32_t count = 5;
  for (const Status each :
       {list.GetMemberCount(&count), list.ReadMember(&entry), list.AddMember(&entry, 1),
        list.AddMemberUnlimited(&entry, 1), list.ModifyMember(&entry, 1),
        list.RenameMember("", &entry, 1), list.RemoveMember(&entry, 1), list.Reload(),
        list.WriteMembers(), list.DestroyList()}) {
    EXPECT_EQ(each, kNoError);
  }
  EXPECT_FALSE(list.IsPublic());
}

}  // namespace
}  // namespace quillkit
