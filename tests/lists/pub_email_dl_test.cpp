// Public e-mail lists: the members held here, and both families of changes on the server.

#include "lists/pub_email_dl.h"

#include <string>

#include "base/archive.h"
#include "tests/books/email_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class PublicListTest : public EmailBookTest {
 protected:
  PublicListTest() {
    PutList("Team", {"Ann", "Bea", "Cy"});
    list.Open(&book, "Team");
    Start();
  }

  // Lets the list on the server hold more than it may.
  void Grow(int members) {
    for (int i = 3; i < members; ++i) PutList("Team", {std::to_string(1000 + i)});
    list.Reload();
    Start();
  }

  CPubEmailDL list;
};

TEST_F(PublicListTest, OpensOnTheServersMembers) {
  CPubEmailDL other;
  EXPECT_EQ(other.Open(nullptr, "Team"), kNoError);
  EXPECT_EQ(other.Open(&book, ""), kRefused);
  EXPECT_EQ(other.Book(), nullptr);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(other.Open(&book, "Team"), kNoError);
  EXPECT_TRUE(other.IsPublic());
  SimulatorFail("IMSPSizeofAB", 1, kServerFault);
  EXPECT_EQ(other.Open(&book, "Choir"), kServerFault);
  EXPECT_EQ(other.Name(), "Choir");
  EXPECT_EQ(MemberNames(other), "Ann Bea Cy ");
  SimulatorFail("IMSPReadAB", 1, kServerFault);
  EXPECT_EQ(other.Open(&book, "Board"), kServerFault);
  EXPECT_EQ(MemberNames(other), "  ");  // two members that did not come
}

TEST_F(PublicListTest, OpensFiveHundredAndTwelveAndReloadsAll) {
  Grow(600);
  EXPECT_EQ(list.Count(), 600);
  EXPECT_EQ(list.Open(&book, "Team"), kMoreData);
  EXPECT_EQ(list.Count(), 512);
  CEmailEntry entry = MakeEntry("Dan");
  TakeCalls();
  EXPECT_EQ(list.AddMember(&entry, 1), kBookFull);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  TheAgent.SetError(kEarlierError);
  EXPECT_EQ(list.AddLocal(&entry), -1);
  EXPECT_EQ(list.AddLocalUnlimited(&entry), -1);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(list.AddMemberUnlimited(&entry, 1), kNoError);
  EXPECT_EQ(list.Count(), 601);
  SimulatorInflateSizes(4'000'000'000);
  list.Reload();
  EXPECT_EQ(list.Count(), MaxServerMembers);
}

TEST_F(PublicListTest, ReadsAnewWhereAskedAndPatchesItsEndLocally) {
  CEmailEntry bo = MakeEntry("Bo");
  EXPECT_EQ(list.AddMember(&bo, 0), kNoError);
  EXPECT_EQ(MemberNames(list), "Ann Bea Cy ");
  bo.SetName("Dan");
  EXPECT_EQ(list.RenameMember("Cy", &bo, 1), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPCreateEntry 64:Team Bo", "IMSPModifyEntry 64:Team Cy Dan",
                          "IMSPSizeofAB 64:Team -", "IMSPReadAB 64:Team - 4 1"));
  EXPECT_EQ(MemberNames(list), "Ann Bea Bo Dan ");
  bo.SetName("Abe");
  EXPECT_EQ(list.AddLocal(&bo), 5);
  EXPECT_EQ(MemberNames(list), "Ann Bea Bo Dan Abe ");
}

TEST_F(PublicListTest, ShowsLocallyWhatTheServerTook) {
  CEmailEntry entry = MakeEntry("Bea", "new", 3);
  EXPECT_EQ(list.ModifyLocal(&entry), 3);
  EXPECT_EQ(list.GetAt(1)->flags, 3);
  PutList("Team", {"Dan"});
  entry = MakeEntry("Dan");
  EXPECT_EQ(list.ModifyLocal(&entry), -1);  // not held here
  EXPECT_EQ(list.RemoveLocal(&entry), -1);
  PutList("Team", {"Dan"});
  box->PublicList("Team").Delete("Bea");
  entry = MakeEntry("Bea", "Dan's");
  EXPECT_EQ(list.RenameLocal("Dan", &entry), 3);  // shown by its own name
  EXPECT_STREQ(list.GetAt(1)->Address(), "Dan's");

  box->PublicList("Team").ClearBook();
  list.Reload();
  PutList("Team", {"Bea"});
  EXPECT_EQ(list.ModifyLocal(&entry), -1);
  EXPECT_EQ(list.RemoveLocal(&entry), 0);
}

TEST_F(PublicListTest, RemovesTheOneBehindOnTheServer) {
  EXPECT_EQ(list.RemoveAt(1, 0), 1);
  EXPECT_EQ(MemberNames(list), "Ann Cy ");
  EXPECT_EQ(list.RemoveAt(2, 0), 0);
  list.Reload();
  Start();
  EXPECT_EQ(list.RemoveAt(0, 1), kNoError);
  EXPECT_EQ(MemberNames(list), "Ann Cy ");
  TakeCalls();
  EXPECT_EQ(list.RemoveAt(1, 1), kNoError);
  EXPECT_EQ(TakeCalls().front(), "IMSPDeleteEntry 64:Team Cy");
  EXPECT_EQ(list.RemoveAt(0, 1), kNoError);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.RemoveAt(0, 1), 0);
}

TEST_F(PublicListTest, SetsAMemberHereAndOnTheServer) {
  EXPECT_EQ(list.SetAt(1, MakeEntry("Bea", "new", 5), 0), kNoError);
  EXPECT_EQ(list.GetAt(1)->flags, 0);
  EXPECT_EQ(list.SetAt(3, MakeEntry("Bea"), 1), kNoError);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(list.SetAt(1, MakeEntry("Eve"), 1), kDataNotFound);
  EXPECT_EQ(MemberNames(list), "Ann Eve Cy ");
  CEmailEntry entry;
  EXPECT_EQ(list.CopyAt(1, &entry), 1);
  EXPECT_STREQ(entry.Name(), "Eve");
  EXPECT_EQ(list.CopyAt(3, &entry), -1);
  EXPECT_EQ(CPubEmailDL().SetAt(0, entry, 0), kRefused);
}

TEST_F(PublicListTest, SearchesItsMembers) {
  PutList("Team", {"Ben", "Beppe"});
  list.Reload();  // Ann Bea Ben Beppe Cy
  EXPECT_STREQ(list.Find("Be", 0)->Name(), "Bea");
  EXPECT_EQ(list.SearchIndex(), 1);
  EXPECT_STREQ(list.FindNext(0)->Name(), "Ben");
  EXPECT_STREQ(list.FindNext(1)->Name(), "Cy");  // a miss gives the last
  EXPECT_EQ(list.SearchIndex(), 2);
  EXPECT_STREQ(list.FindNext(0)->Name(), "Beppe");
  EXPECT_STREQ(list.Find("x", 1)->Name(), "Cy");
  EXPECT_EQ(list.SearchIndex(), -1);
  EXPECT_STREQ(list.FindNext(0)->Name(), "Bea");  // with the key that hit before
  EXPECT_STREQ(list.Find("Cy", 1)->Name(), "Cy");
  EXPECT_EQ(list.FindNext(0), nullptr);
  EXPECT_EQ(list.FindMember(MakeEntry("Ben")), 2);
  EXPECT_EQ(list.FindMember(MakeEntry("Be")), -1);
  CPubEmailDL empty;
  EXPECT_EQ(empty.FindMember(MakeEntry("Ben")), 0);
  EXPECT_EQ(empty.Find("", 0), nullptr);
  EXPECT_EQ(empty.FindNext(0), nullptr);
}

TEST_F(PublicListTest, StartsTheSearchAnewWhenMembersComeOrGo) {
  CEmailEntry entry = MakeEntry("Dan");
  const auto stands = [this] { return list.Find("Cy", 1), list.SearchIndex(); };
  EXPECT_EQ((stands(), list.AddMember(&entry, 0), list.SearchIndex()), 0);
  EXPECT_EQ((stands(), list.RemoveMember(&entry, 0), list.SearchIndex()), 0);
  EXPECT_EQ((stands(), list.Reload(), list.SearchIndex()), 0);
  EXPECT_EQ((stands(), list.AddLocal(&entry), list.SearchIndex()), 0);
  EXPECT_EQ((stands(), list.RemoveLocal(&entry), list.SearchIndex()), 0);
  EXPECT_EQ((stands(), list.InitName(""), list.SearchIndex()), 0);
  EXPECT_EQ((stands(), list.ModifyMember(&entry, 0), list.SearchIndex()), 2);
}

TEST_F(PublicListTest, IsDestroyedUnderTheLongTimeout) {
  SimulatorFail("IMSPDeleteAB", 1, kServerFault);
  EXPECT_EQ(list.DestroyList(), kServerFault);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(SimulatorTimeout(), 3'600'000U);
  SimulatorSetTimeout(30'000);
  EXPECT_EQ(list.DestroyList(), kNoError);
  EXPECT_EQ(SimulatorTimeout(), 30'000U);
}

TEST_F(PublicListTest, IsClearedWithoutABook) {
  CPubEmailDL loose;
  loose.SetName("Team");
  EXPECT_EQ(loose.ClearMembers(), kNoError);
  std::uint32_t count = 7;
  EXPECT_EQ(loose.GetMemberCount(&count), kNoError);
  EXPECT_EQ(count, 0U);
}

TEST_F(PublicListTest, IsStoredWithItsMembers) {
  std::string stored;
  Archive sink(&stored);
  list.GetAt(0)->flags = 7;
  list.Serialize(sink);
  CPubEmailDL fresh;
  Archive source{std::string_view(stored)};
  fresh.Serialize(source);
  EXPECT_EQ(MemberNames(fresh), "Ann Bea Cy ");
  EXPECT_EQ(fresh.GetAt(0)->flags, 7);

  // A list that has members leaves those of the stream where they are.
  Archive again{std::string_view(stored)};
  fresh.Serialize(again);
  EXPECT_EQ(fresh.Count(), 0);
  EXPECT_EQ(again.Remaining(), stored.size() - 9);

  stored[3] = '\x7F';
  Archive hostile{std::string_view(stored)};
  CPubEmailDL other;
  other.Serialize(hostile);
  EXPECT_TRUE(hostile.Failed());
  EXPECT_EQ(other.Count(), 0);
}

}  // namespace
}  // namespace quillkit
