// Public e-mail lists, and the rules that all lists share: opening, local changes, searches,
// streams.

#include "lists/pub_email_dl.h"

#include "tests/books/books_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using testing::IsEmpty;

class PublicListTest : public BooksTest {
 public:
  PublicListTest() {
    PutTeam({"Ann", "Bea", "Cy"});
    list.Open(&email, "Team");
    Start();
  }

  static void PutTeam(std::initializer_list<std::string_view> members) {
    PutNames(BookKind::kPublicList, "Team", members);
  }

  CPubEmailDL list;
};

TEST_F(PublicListTest, OpenWithoutABookOrANameMakesNoCallAndAFailedOneSetsTheName) {
  CPubEmailDL other;
  EXPECT_TRUE(other.IsPublic());
  EXPECT_EQ(other.Open(nullptr, "Team"), kNoError);
  EXPECT_EQ(other.Open(&email, ""), kRefused);
  EXPECT_EQ(other.Book(), nullptr);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  SimulatorFail("IMSPSizeofAB", 1, kFault);
  list.Open(&email, "Choir");
  EXPECT_EQ(list.Name(), "Choir");
}

TEST_F(PublicListTest, AReloadReadsMoreThan512Members) {
  SimulatorInflateSizes(4'000'000'000);
  list.Reload();
  EXPECT_EQ(list.Count(), 200'000) << "the limit is 200,000 members";
  CPubEmailDL withoutBook;
  CEmailEntry entry;
  Load(withoutBook, Stored(list));
  EXPECT_EQ(withoutBook.AddMember(&entry, 0), kRefused) << "a full list also needs a book";
}

TEST_F(PublicListTest, AFailedReloadThatDeliversNothingLeavesBlankMembers) {
  SimulatorSetDefects(kDefectFailedCount);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(list.Reload(), kFault);
  EXPECT_EQ(Members(list), "=:0 =:0 =:0 ");
}

TEST_F(PublicListTest, RenamingReplacesTheMemberOfTheNewName) {
  PutTeam({"Dan"});
  box->PublicList("Team").Delete("Bea");
  CEmailEntry entry = MakeEntry("Bea", "Dan's", 3);
  EXPECT_EQ(list.RenameLocal("Dan", &entry), 3);
  EXPECT_EQ(Members(list), "Ann=at:0 Bea=Dan's:3 Cy=at:0 ");
  box->PublicList("Team").ClearBook();
  list.Reload();
  PutTeam({"Bea"});
  EXPECT_EQ(list.ModifyLocal(&entry), -1);
  EXPECT_EQ(list.RemoveLocal(&entry), 0) << "a list without members remains at 0 members";
}

TEST_F(PublicListTest, RemoveAtRemovesTheFollowingMemberOnTheServer) {
  EXPECT_EQ(list.RemoveAt(1, 0), 1);
  EXPECT_EQ(Members(list), "Ann=at:0 Cy=at:0 ");
  EXPECT_EQ(list.RemoveAt(2, 0), 0);
  list.Reload();
  EXPECT_EQ(list.RemoveAt(0, 1), kNoError);
  EXPECT_EQ(Members(list), "Ann=at:0 Cy=at:0 ") << "Bea, the member after Ann, is removed";
  EXPECT_EQ(list.RemoveAt(1, 1), kNoError);
  EXPECT_EQ(Members(list), "Ann=at:0 ") << "the last member itself is removed";
}

TEST_F(PublicListTest, SetAtCopiesTheEntryWithoutItsFlags) {
  EXPECT_EQ(list.SetAt(1, MakeEntry("Bea", "new", 5), 0), kNoError);
  EXPECT_EQ(list.GetAt(1)->flags, 0);
  EXPECT_EQ(list.SetAt(3, MakeEntry("Bea"), 1), kNoError);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(list.SetAt(1, MakeEntry("Eve"), 1), kDataNotFound) << "the server has no member Eve";
  CEmailEntry entry;
  EXPECT_EQ(list.CopyAt(1, &entry), 1);
  EXPECT_STREQ(entry.Name(), "Eve");
  EXPECT_EQ(list.CopyAt(3, &entry), -1);
  EXPECT_EQ(CPubEmailDL().SetAt(0, entry, 0), kRefused);
}

TEST_F(PublicListTest, ASearchWithoutAHitReturnsTheLastMember) {
  PutTeam({"Ben", "Beppe"});
  list.Reload();  // Ann Bea Ben Beppe Cy
  EXPECT_STREQ(list.Find("", 0)->Name(), "Ann");
  EXPECT_STREQ(list.Find("Be", 0)->Name(), "Bea");
  EXPECT_STREQ(list.FindNext(0)->Name(), "Ben");
  EXPECT_STREQ(list.FindNext(1)->Name(), "Cy");
  EXPECT_EQ(list.SearchIndex(), 2) << "the index is that of the latest hit";
  EXPECT_STREQ(list.Find("x", 1)->Name(), "Cy");
  EXPECT_EQ(list.SearchIndex(), -1);
  EXPECT_STREQ(list.FindNext(0)->Name(), "Bea")
      << "the pattern of the last search with a hit is used";
  EXPECT_STREQ(list.Find("Cy", 1)->Name(), "Cy");
  EXPECT_EQ(list.FindNext(0), nullptr) << "no member follows";
  EXPECT_EQ(list.FindMember(MakeEntry("Ben")), 2);
  EXPECT_EQ(list.FindMember(MakeEntry("Be")), -1);
  CPubEmailDL empty;
  EXPECT_EQ(empty.FindMember(MakeEntry("Ben")), 0);
  EXPECT_EQ(empty.Find("", 0), nullptr);
  EXPECT_EQ(empty.FindNext(0), nullptr);
}

TEST_F(PublicListTest, AChangeOfTheMembersResetsTheSearch) {
  CEmailEntry entry = MakeEntry("Dan");
  const auto indexAfter = [this](const auto& change) {
    list.Find("Cy", 1);
    change();
    return list.SearchIndex();
  };
  EXPECT_EQ(indexAfter([&] { list.AddMember(&entry, 0); }), 0);
  EXPECT_EQ(indexAfter([&] { list.RemoveMember(&entry, 0); }), 0);
  EXPECT_EQ(indexAfter([&] { list.Reload(); }), 0);
  EXPECT_EQ(indexAfter([&] { list.AddLocal(&entry); }), 0);
  EXPECT_EQ(indexAfter([&] { list.RemoveLocal(&entry); }), 0);
  EXPECT_EQ(indexAfter([&] { list.InitName(""); }), 0);
}

TEST_F(PublicListTest, ClearsAndCountsMembersWithoutABook) {
  CPubEmailDL withoutBook;
  withoutBook.SetName("Team");
  EXPECT_EQ(withoutBook.ClearMembers(), kNoError);
  std::uint32_t count = 7;
  EXPECT_EQ(withoutBook.GetMemberCount(&count), kNoError);
  EXPECT_EQ(count, 0U);
}

TEST_F(PublicListTest, OnlyANewListLoadsTheMembersOfAStream) {
  list.GetAt(0)->flags = 7;
  std::string stored = Stored(list);
  CPubEmailDL loaded;
  Load(loaded, stored);
  EXPECT_EQ(Members(loaded), "Ann=at:7 Bea=at:0 Cy=at:0 ");
  EXPECT_EQ(Load(loaded, stored).Remaining(), stored.size() - 9)
      << "only the name is loaded, not the members";
  EXPECT_EQ(loaded.Count(), 0);
  stored[3] = '\x7F';
  CPubEmailDL other;
  EXPECT_TRUE(Load(other, stored).Failed()) << "a member count larger than the stream is rejected";
  EXPECT_EQ(other.Count(), 0);
}

}  // namespace
}  // namespace quillkit
