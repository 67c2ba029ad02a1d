// Private e-mail lists, on both routes: where they differ from public ones.

#include "lists/priv_email_dl.h"

#include "base/archive.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kEarlierError = 99;

class PrivateListTest : public PrivateBookTest {
 protected:
  PrivateListTest() {
    PutMember("Team", MakeEntry("Ann", "a@own", 1));
    PutMember("Team", MakeEntry("Bob", "b@public", 0));
    list.Open(&Book(), "Team");
    TakeCalls();
    TheAgent.SetError(kEarlierError);
  }

  std::string Members() {
    std::string shown;
    for (std::int32_t i = 0; i < list.Count(); ++i) {
      const CEmailEntry& each = *list.GetAt(i);
      shown +=
          std::string(each.Name()) + "=" + each.Address() + ":" + std::to_string(each.flags) + " ";
    }
    return shown;
  }

  CPrivEmailDL list;
};

TEST_P(PrivateListTest, OpensInABookAlone) {
  CPrivEmailDL other;
  EXPECT_EQ(other.Open(nullptr, "Team"), kRefused);
  EXPECT_EQ(other.Name(), "");
  EXPECT_EQ(other.Open(&Book(), ""), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_NE(other.Open(&Book(), "Nobody"), kNoError);
  EXPECT_FALSE(other.IsFilled());
  SimulatorFail("IMSPReadAB", 1, 11);
  EXPECT_EQ(other.Open(&Book(), "Team"), 11);
  EXPECT_TRUE(other.IsFilled()) << "before the read";
  EXPECT_EQ(other.Count(), 2);
}

TEST_P(PrivateListTest, IsFullAt512) {
  for (int i = 2; i < 520; ++i) PutMember("Team", MakeEntry(NumberedName(i)));
  ASSERT_EQ(list.Open(&Book(), "Team"), kMoreData);
  ASSERT_EQ(list.Count(), MaxListMembers);
  TakeCalls();
  TheAgent.SetError(kEarlierError);
  CEmailEntry entry = MakeEntry("Zoe");
  EXPECT_EQ(list.AddMember(&entry, 1), kBookFull);
  EXPECT_EQ(TheAgent.LastError(), kEarlierError);
  using Add = std::int32_t (CPrivEmailDL::*)(CEmailEntry*);
  for (const Add add : {&CPrivEmailDL::AddLocal, &CPrivEmailDL::AddLocalUnlimited,
                        &CPrivEmailDL::AddLocalChecked}) {
    TheAgent.SetError(kEarlierError);
    EXPECT_EQ((list.*add)(&entry), -1);
    EXPECT_EQ(TheAgent.LastError(), kBookFull);
  }
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(list.AddMemberUnlimited(&entry, 1), kNoError);
  EXPECT_EQ(list.Count(), 521);
}

TEST_P(PrivateListTest, KeepsItsBlockWhenTheServerHasNoMembers) {
  box->PrivateList("Team").ClearBook();
  EXPECT_EQ(list.Reload(), kNoError);
  EXPECT_TRUE(list.IsEmpty());
  // Which shows in a load: a list with a block leaves the members in the stream.
  Archive loading(std::string_view("\1\0\0\0\1T\1a\0\0\0\0\0", 13));
  list.Serialize(loading);
  EXPECT_EQ(loading.Remaining(), 7U);
}

TEST_P(PrivateListTest, WritingItCreatesIt) {
  box->PrivateList("Team").DeleteBook();
  TakeCalls();
  EXPECT_EQ(list.WriteMembers(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateAB 128:Team", "IMSPCreateEntry 128:Team Ann",
                                       "IMSPCreateEntry 128:Team Bob"));
  EXPECT_THAT(MembersOnServer("Team"), ElementsAre("Ann=a@own", "Bob="));
  EXPECT_EQ(Members(), "Ann=a@own:1 Bob=:0 ");
  SimulatorFail("IMSPCreateEntry", 1, 11);
  EXPECT_EQ(list.WriteMembers(), 11);

  list.SetBook(nullptr);
  CEmailEntry* const second = list.GetAt(1);
  ASSERT_NE(second, nullptr);
  second->SetAddress("b@public");
  box->PrivateList("Team").DeleteBook();
  SimulatorFail("IMSPCreateAB", 1, 11);
  SimulatorFail("IMSPCreateEntry", 1, 11);
  TakeCalls();
  EXPECT_EQ(list.WriteMembers(), kNoError) << "no refusal is looked at";
  EXPECT_EQ(TakeCalls().size(), 3U);
  EXPECT_EQ(Members(), "Ann=a@own:1 Bob=:0 ");
}

TEST_P(PrivateListTest, IsDeletedWithItsMembersDroppedOrKept) {
  EXPECT_EQ(list.DestroyKeepingMembers(), kNoError);
  EXPECT_EQ(list.Count(), 2);
  PutMember("Team", MakeEntry("Ann"));
  EXPECT_EQ(list.DestroyList(), kNoError);
  EXPECT_EQ(list.Count(), 0);
  PutMember("Team", MakeEntry("Ann"));
  list.SetBook(nullptr);
  EXPECT_EQ(list.DestroyKeepingMembers(), kNoError) << "the session's own list";
}

// The time-outs alone go to the agent in any case.
TEST_P(PrivateListTest, TakesTheRouteOfItsBook) {
  PutEntry(MakeEntry("Ann"));
  ASSERT_EQ(Book().LoadEntries(0), 1);
  const std::uint32_t nowhere = 0;
  box->SetAddress(&nowhere);
  EXPECT_EQ(list.Reload(), GetParam() ? kRefused : kNoError) << "a size needs an address";
  EXPECT_EQ(list.Count(), 2);
  CUserAB unattached;
  account.SetOwner(&unattached);
  TakeCalls();
  TheAgent.SetError(kEarlierError);
  CEmailEntry entry = MakeEntry("Zoe");
  EXPECT_EQ(list.AddLocal(&entry), -1);
  EXPECT_EQ(Book().WriteBack(), kRefused);
  EXPECT_EQ(TheAgent.LastError(), kEarlierError);
  EXPECT_EQ(list.DestroyKeepingMembers(), kRefused);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000"));

  CPrivEntryPage loose;
  loose.Append(entry);
  EXPECT_EQ(loose.SendAll(), kNoError);
  EXPECT_THAT(EntriesOnServer(), ElementsAre("Ann=at", "Zoe=at")) << "the session's own book";
}

TEST_P(PrivateListTest, OverwritesLocallyByFlag) {
  CEmailEntry entry = MakeEntry("Ann", "new", 1);
  EXPECT_EQ(list.ModifyLocal(&entry), 1);
  EXPECT_EQ(Members(), "Ann=new:1 Bob=b@public:0 ");
  PutMember("Team", MakeEntry("Cy"));
  entry.SetName("Cy");
  EXPECT_EQ(list.ModifyLocal(&entry), 0) << "not held here";
  EXPECT_EQ(list.RenameLocal("Cy", &entry), 0);
  box->PrivateList("Team").Delete("Bob");
  entry = MakeEntry("Bob", "was Cy");
  EXPECT_EQ(list.RenameLocal("Cy", &entry), 1);
  EXPECT_EQ(Members(), "Ann=new:1 Cy=was Cy:0 ") << "with the key as its name";
  list.SetBook(nullptr);
  EXPECT_EQ(list.ModifyLocal(&entry), -1);
  EXPECT_EQ(list.RenameLocal("Cy", &entry), -1);
}

TEST_P(PrivateListTest, ACheckedAdditionLooksItsOriginUp) {
  PutEntry(MakeEntry("same", "here"));
  PutEntry(MakeEntry("other", "here"));
  CEmailEntry absent = MakeEntry("absent", "x", 7);
  EXPECT_EQ(list.AddLocalChecked(&absent), 3);
  EXPECT_EQ(absent.flags, 0);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateEntry 128:Team absent",
                                       "IMSPReadAB 16:PRIVATEAB [||0] 2000 1"));
  CEmailEntry same = MakeEntry("same", "here", 7);
  EXPECT_EQ(list.AddLocalChecked(&same), 4);
  EXPECT_EQ(same.flags, 1);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateEntry 128:Team same")) << "it is read by now";
  CEmailEntry other = MakeEntry("other", "there", 7);
  EXPECT_EQ(list.AddLocalChecked(&other), 5);
  EXPECT_EQ(other.flags, 7);
  EXPECT_EQ(Members(), "Ann=a@own:1 Bob=b@public:0 absent=x:0 same=here:1 other=there:7 ");
  EXPECT_EQ(list.AddLocalChecked(&same), -1) << "the server has it";
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateListTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
