// Private e-mail lists: the differences from public lists.

#include "lists/priv_email_dl.h"

#include "tests/books/books_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PrivateListTest : public PrivateBookTest {
 public:
  PrivateListTest() {
    PutMember(MakeEntry("Ann", "a@own", 1));
    PutMember(MakeEntry("Bob", "b@public", 0));
    list.Open(&Private(), "Team");
    Start();
  }

  static void PutMember(const CEmailEntry& member) { Put(BookKind::kPrivateList, "Team", member); }
  static std::vector<std::string> TeamOnServer() {
    return OnServer(BookKind::kPrivateList, "Team");
  }

  CPrivEmailDL list;
};

TEST_P(PrivateListTest, OpenRequiresABookAndANameAndFillsTheListOnceItReadsMembers) {
  CPrivEmailDL other;
  EXPECT_FALSE(other.IsPublic());
  EXPECT_EQ(other.Open(nullptr, "Team"), kRefused);
  EXPECT_EQ(other.Open(&Private(), ""), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(other.Open(&Private(), "Unknown"), kNoSuchBook);
  EXPECT_FALSE(other.IsFilled());
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(other.Open(&Private(), "Team"), kFault);
  EXPECT_TRUE(other.IsFilled());
  EXPECT_EQ(other.Count(), 2);
}

TEST_P(PrivateListTest, AReloadReadsMoreThan512MembersAndKeepsTheBlockIfTheListIsEmpty) {
  SimulatorInflateSizes(598);
  EXPECT_EQ(list.Reload(), kNoError);
  EXPECT_EQ(list.Count(), 600);
  SimulatorInflateSizes(0);
  box->PrivateList("Team").ClearBook();
  EXPECT_EQ(list.Reload(), kNoError);
  EXPECT_TRUE(list.IsEmpty());
  EXPECT_EQ(Load(list, {"\1\0\0\0\1T\1a\0\0\0\0\0", 13}).Remaining(), 7U)
      << "a list with a block does not load members";
}

TEST_P(PrivateListTest, WritingMembersClearsTheAddressesOfPublicMembers) {
  for (CPrivEmailAB* const book : {&Private(), static_cast<CPrivEmailAB*>(nullptr)}) {
    list.SetBook(book);
    box->PrivateList("Team").DeleteBook();
    CEmailEntry* const bob = list.GetAt(1);
    ASSERT_NE(bob, nullptr);
    bob->SetAddress("b@public");
    EXPECT_EQ(list.WriteMembers(), kNoError);
    EXPECT_THAT(TeamOnServer(), ElementsAre("Ann=a@own", "Bob="));
    EXPECT_EQ(Members(list), "Ann=a@own:1 Bob=:0 ");
    SimulatorFail(nullptr, 2, kFault);
    EXPECT_EQ(list.WriteMembers(), book != nullptr ? kFault : kNoError);
    SimulatorClearFaults();
  }
  const std::uint32_t none = 0;
  TakeCalls();
  EXPECT_EQ(Private().CreateListWithMembers("Crew", nullptr, &none), kNoError);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(PrivateListTest, DestroyListDropsTheMembersAndDestroyKeepingMembersDoesNot) {
  list.SetBook(nullptr);
  EXPECT_EQ(list.DestroyKeepingMembers(), kNoError);
  EXPECT_THAT(TeamOnServer(), IsEmpty());
  EXPECT_EQ(list.Count(), 2);
  PutMember(MakeEntry("Ann"));
  EXPECT_EQ(list.DestroyList(), kNoError);
  EXPECT_EQ(list.Count(), 0);
}

TEST_P(PrivateListTest, CallsTheServerThroughTheScannerOfItsBook) {
  Put(BookKind::kPrivateEmail, "", MakeEntry("Ann"));
  Private().LoadEntries(0);
  const std::uint32_t nowhere = 0;
  box->SetAddress(&nowhere);
  EXPECT_EQ(list.Reload(), GetParam() ? kRefused : kNoError)
      << "reading the size of a list with an owner needs an address";
  CUserAB unattached;
  account.SetOwner(&unattached);
  Start();
  EXPECT_EQ(Private().WriteBack(), kRefused);
  EXPECT_EQ(TheAgent.LastError(), kEarlierError);
  EXPECT_EQ(list.DestroyKeepingMembers(), kRefused);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000"))
      << "only the time-out calls are made without the owner";
  CPrivEntryPage page;
  page.Append(MakeEntry("Zoe"));
  EXPECT_EQ(page.SendAll(), kNoError);
  EXPECT_THAT(OnServer(BookKind::kPrivateEmail, ""), ElementsAre("Ann=at", "Zoe=at"));
}

TEST_P(PrivateListTest, RenamingReplacesTheMemberOfTheNewNameButKeepsTheOldName) {
  CEmailEntry entry = MakeEntry("Ann", "new", 1);
  EXPECT_EQ(list.ModifyLocal(&entry), 1);
  PutMember(MakeEntry("Cy"));
  box->PrivateList("Team").Delete("Bob");
  entry = MakeEntry("Bob", "was Cy");
  EXPECT_EQ(list.RenameLocal("Cy", &entry), 1);
  EXPECT_EQ(Members(list), "Ann=new:1 Cy=was Cy:0 ");
  list.SetBook(nullptr);
  EXPECT_EQ(list.ModifyLocal(&entry), -1);
  EXPECT_EQ(list.RenameLocal("Cy", &entry), -1);
}

TEST_P(PrivateListTest, AssignFromCopiesMembersWithoutTheirFlagsButNotAnEmptyList) {
  CPrivEmailDL copy;
  copy.AssignFrom(list);
  copy.AssignFrom(CPrivEmailDL());
  EXPECT_EQ(Members(copy), "Ann=a@own:0 Bob=b@public:0 ");
}

TEST_P(PrivateListTest, ACheckedAdditionSetsTheFlagsFromThePrivateBook) {
  for (const char* name : {"other", "same"}) {
    Put(BookKind::kPrivateEmail, "", MakeEntry(name, "here"));
  }
  const auto flagsOf = [this](const char* name, const char* address) {
    CEmailEntry entry = MakeEntry(name, address, 7);
    list.AddLocalChecked(&entry);
    return entry.flags;
  };
  EXPECT_EQ(flagsOf("absent", "x"), 0);
  EXPECT_EQ(flagsOf("same", "here"), 1);
  EXPECT_EQ(flagsOf("other", "there"), 7) << "an entry with another address keeps its flags";
  EXPECT_EQ(Members(list), "Ann=a@own:1 Bob=b@public:0 absent=x:0 same=here:1 other=there:7 ");
  EXPECT_EQ(TakeCalls().size(), 4U) << "three create calls and one read of the private book";
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateListTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
