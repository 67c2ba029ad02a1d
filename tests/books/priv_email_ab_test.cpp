// The private book: every server call on both routes, its limits, and what bulk operations leave.

#include "base/archive.h"
#include "books/email_ab.h"
#include "lists/priv_email_dl.h"
#include "lists/pub_email_dl.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_P(PrivateBookTest, LimitsRefuseInTheirOwnWays) {
  for (int i = 0; i < MaxPrivateLists; ++i) {
    auto list = std::make_unique<CPrivEmailDL>();
    list->SetName(NumberedName(i));
    ASSERT_EQ(Book().AddListLocal(list.release()), i + 1);
  }
  for (int i = 0; i < MaxPrivateEntries; ++i) PutEntry(MakeEntry(NumberedName(i), "a"));
  ASSERT_EQ(Book().LoadEntries(0), 1);
  SimulatorClearJournal();
  CEmailEntry entry = MakeEntry("Ann", "ann@example.org");
  CPrivEmailDL list;
  list.SetName("Team");

  TheAgent.SetError(11);
  EXPECT_EQ(Book().CreateServerList("Team"), 24);
  EXPECT_EQ(Book().AddEntry(&entry), 24);
  EXPECT_EQ(Book().AddMember("Team", &entry), 24);
  EXPECT_EQ(Book().Add(&entry, 1), 24);
  EXPECT_EQ(Book().AddLocal(&entry), 24);
  EXPECT_EQ(TheAgent.LastError(), 11) << "a status is the result, and nothing is recorded";

  EXPECT_FALSE(Book().AddList(&list, 1));
  EXPECT_EQ(TheAgent.LastError(), 24);
  TheAgent.SetError(11);
  EXPECT_EQ(Book().AddListLocal(&list), -1);
  EXPECT_EQ(TheAgent.LastError(), 24);
  EXPECT_THAT(TakeCalls(), IsEmpty());

  CEmailEntry first = *Book().EntryAt(0);
  EXPECT_EQ(Book().RemoveLocal(&first), MaxPrivateEntries - 1);
  EXPECT_EQ(Book().AddEntry(&entry), 0);
}

TEST_P(PrivateBookTest, AnAbsentBookLoadsAsAnEmptyOneAndALargeOneAsNone) {
  EXPECT_EQ(Book().LoadEntries(1), 1);
  EXPECT_TRUE(Book().EntriesLoaded());
  EXPECT_EQ(Book().EntryCount(), 0);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPReadAB 16:PRIVATEAB [||0] 2000 1", "IMSPListAB 128: [|*|0] 100 1"));

  for (int i = 0; i < MaxPrivateEntries; ++i) PutEntry(MakeEntry(NumberedName(i), "a"));
  EXPECT_EQ(Book().LoadEntries(0), 1);
  EXPECT_EQ(Book().EntryCount(), MaxPrivateEntries);
  PutEntry(MakeEntry("zz", "a"));
  EXPECT_EQ(Book().LoadEntries(0), 0);
  EXPECT_EQ(Book().EntryCount(), 0);
  EXPECT_TRUE(Book().EntriesLoaded());
}

TEST_P(PrivateBookTest, OfMoreThanAHundredListsTheFirstHundredAreHeld) {
  for (int i = 0; i <= MaxPrivateLists; ++i) {
    PutMember(NumberedName(i).c_str(), MakeEntry("m", "a"));
  }
  EXPECT_EQ(Book().LoadLists(0), 21);
  EXPECT_EQ(Book().ListCount(), MaxPrivateLists);
  EXPECT_TRUE(Book().ListAt(0)->IsEmpty());
  EXPECT_TRUE(Book().ListsLoaded());
  EXPECT_EQ(Book().LoadListsChecked(0), 0);
  SimulatorFail("IMSPListAB", 1, 6);
  EXPECT_EQ(Book().LoadLists(0), 6);
  EXPECT_EQ(Book().ListCount(), 0);
}

TEST_P(PrivateBookTest, MembersThatReferToThePublicBookGoOutWithoutTheirAddress) {
  CEmailEntry members[] = {MakeEntry("own", "own@example.org", 1), MakeEntry("pub", "p@example")};
  const std::uint32_t count = 2;
  EXPECT_EQ(Book().CreateListWithMembers("Team", members, &count), 0);
  EXPECT_THAT(MembersOnServer("Team"), ElementsAre("own=own@example.org", "pub="));
  EXPECT_TRUE(members[1].address.IsEmpty());
  const std::uint32_t none = 0;
  SimulatorClearJournal();
  EXPECT_EQ(Book().CreateListWithMembers("Crew", members, &none), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(PrivateBookTest, ListsAreCopiedAndGoStaleWithoutAReload) {
  PutMember("Team", MakeEntry("own", "own@example.org", 1));
  ASSERT_EQ(Book().LoadLists(1), 0);
  EXPECT_STREQ(Book().ListName(0), "Team");
  EXPECT_EQ(Book().ListName(1), nullptr);
  EXPECT_EQ(Book().CopyList(*Book().ListAt(0), "Crew", 1), 1);
  EXPECT_EQ(Book().CopyListLocal(*Book().FindList("Team"), "Gang"), 1);
  EXPECT_THAT(MembersOnServer("Gang"), ElementsAre("own=own@example.org"));
  EXPECT_EQ(Book().ListAt(2)->Name(), "Gang");
  EXPECT_EQ(Book().RenameList("Gang", "Band", 0), 1);
  EXPECT_NE(Book().FindList("Gang"), nullptr);
  EXPECT_EQ(Book().DeleteListLocal("Band"), 3) << "no list of that name is held";
  SimulatorSetLies(kLieUntold);
  EXPECT_EQ(Book().CopyListLocal(*Book().FindList("Team"), "Copy"), 1);
  EXPECT_TRUE(Book().FindList("Copy")->IsEmpty()) << "its member was not delivered";
}

TEST_P(PrivateBookTest, APublicListIsCopiedWithTheMembersThatTheServerHas) {
  const CEmailEntry member = MakeEntry("pub", "pub@example.org");
  SimulatorPutEntry(BookKind::kPublicList, "All", nullptr, &member);
  CPubEmailDL list;
  list.SetName("All");
  const auto expectRefusal = [this](CPubEmailDL* source) {
    EXPECT_EQ(Book().CopyPublicList(source, "Mine", 0), 0);
    EXPECT_EQ(Book().CopyPublicListLocal(source, "Mine"), 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
  };
  expectRefusal(&list);  // no e-mail book is open
  box->SetEmailBook(nullptr);
  SimulatorFail("IMSPReadAB", 1, kDataNotFound);
  EXPECT_EQ(Book().CopyPublicList(&list, "Mine", 0), 0);
  EXPECT_TRUE(list.IsEmpty()) << "a copy that is tried again reads the members again";
  EXPECT_EQ(Book().CopyPublicList(&list, "Mine", 0), 1);
  EXPECT_THAT(MembersOnServer("Mine"), ElementsAre("pub=pub@example.org"));
  EXPECT_EQ(Book().CopyPublicListLocal(&list, "Also mine"), 1);
  EXPECT_EQ(Book().ListCount(), 1);
  TakeCalls();
  CUserAB nowhere;
  account.SetOwner(GetParam() ? &nowhere : nullptr);
  TheAgent.DeleteScanners();
  CPubEmailDL unread;
  expectRefusal(&unread);
}

TEST_P(PrivateBookTest, BulkDeletionsWorkUnderTheLongTimeOut) {
  PutEntry(MakeEntry("Ann", "a"));
  PutMember("Team", MakeEntry("own", "a", 1));
  ASSERT_EQ(Book().LoadEntries(1), 1);
  SimulatorSetTimeout(1999);
  SimulatorClearJournal();

  Book().DeleteAll();
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", "IMSPIOCtl 2 0",
                          "IMSPIOCtl 1 3600000", "IMSPDeleteAB 128:Team", "IMSPIOCtl 1 3600000",
                          "IMSPDeleteAB 16:PRIVATEAB", "IMSPIOCtl 1 1999"));
  EXPECT_EQ(SimulatorTimeout(), 1999U);
  EXPECT_EQ(Book().EntryCount() == 0, GetParam()) << "the session keeps its copy to write back";
  EXPECT_EQ(Book().ListCount(), GetParam() ? 0 : 1);
  EXPECT_THAT(EntriesOnServer(), IsEmpty());
}

TEST_P(PrivateBookTest, ClearedItIsPreparedForALoad) {
  PutEntry(MakeEntry("Ann"));
  PutMember("Team", MakeEntry("own"));
  ASSERT_EQ(Book().LoadEntries(1), 1);
  PutMember("Unseen", MakeEntry("own"));
  std::uint32_t count = 0;
  EXPECT_EQ(Book().ServerEntryCount(&count), kNoError);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(Book().ClearAll(), kNoError);
  EXPECT_EQ(Book().ListCount(), 0);
  EXPECT_EQ(Book().EntryCount(), MaxPrivateEntries);
  EXPECT_TRUE(Book().EntryAt(MaxPrivateEntries - 1)->IsBlank());
  EXPECT_FALSE(Book().EntriesLoaded());
  EXPECT_THAT(EntriesOnServer(), IsEmpty());
  EXPECT_EQ(Book().ServerListCount(&count), kNoError);
  EXPECT_EQ(count, 1U) << "what was not held stays";
}

TEST_P(PrivateBookTest, ListsThatWereNotReadAreReadBeforeTheyAreStored) {
  for (const char* name : {"Crew", "Gang", "Team"}) PutMember(name, MakeEntry("own"));
  ASSERT_EQ(Book().LoadLists(0), kNoError);
  SimulatorFail("IMSPSizeofAB", 2, 11);
  EXPECT_EQ(Book().LoadAllMembers(), 11);
  EXPECT_EQ(Book().ListAt(0)->Count(), 1);
  EXPECT_TRUE(Book().ListAt(2)->IsEmpty());
  TakeCalls();
  std::string bytes;
  Archive storing(&bytes);
  Book().Serialize(storing);
  EXPECT_EQ(TakeCalls().size(), 4U);
  CPrivEmailAB loaded;
  Archive loading{std::string_view(bytes)};
  loaded.Serialize(loading);
  ASSERT_EQ(loaded.ListCount(), 3);
  EXPECT_EQ(loaded.ListAt(2)->Count(), 1);
}

TEST_P(PrivateBookTest, WithoutAUserItIsTheSessions) {
  CPrivEmailAB loose;
  CEmailEntry entry = MakeEntry("Ann");
  EXPECT_EQ(loose.CreateServerEntry(&entry), kNoError);
  EXPECT_THAT(EntriesOnServer(), ElementsAre("Ann=at"));
  EXPECT_FALSE(loose.SetUser(nullptr));
}

TEST_P(PrivateBookTest, ItsEntriesAreSearchedAndChanged) {
  for (const char* name : {"ab", "abc", "b"}) PutEntry(MakeEntry(name));
  ASSERT_EQ(Book().LoadEntries(0), 1);
  EXPECT_EQ(Book().SearchNext(0), 0) << "before any search: every name, from the first on";
  EXPECT_EQ(Book().SearchFirst("ab", 0), 0);
  EXPECT_EQ(Book().SearchNext(0), 1);
  EXPECT_EQ(Book().SearchNext(0), -1);
  EXPECT_EQ(Book().SearchFirst("x", 0), -1);
  EXPECT_EQ(Book().SearchNext(1), 0) << "with the key that hit before";
  EXPECT_EQ(Book().SearchFirst("a", 1), -1);

  CEmailEntry entry = MakeEntry("b", "new", 3);
  EXPECT_EQ(Book().ModifyLocal(&entry), 1);
  EXPECT_STREQ(Book().EntryAt(2)->Address(), "new");
  EXPECT_EQ(Book().EntryAt(2)->flags, 3);
  entry.SetName("c");
  EXPECT_EQ(Book().ModifyLocalByKey("b", &entry), 1);
  EXPECT_STREQ(Book().EntryAt(2)->Name(), "c");
  EXPECT_EQ(Book().RemoveLocal(&entry), 2);
  PutEntry(entry);
  EXPECT_EQ(Book().ModifyLocal(&entry), 0) << "not held here";
  EXPECT_EQ(Book().ModifyLocalByKey("c", &entry), 0);
  EXPECT_EQ(Book().RemoveLocal(&entry), -1);

  SimulatorFail("IMSPReadAB", 1, 11);
  entry.SetName("ab");
  EXPECT_EQ(Book().Remove(&entry, 1), kNoError) << "whatever the reload gives";
  EXPECT_EQ(Book().EntryCount(), 0);
  EXPECT_TRUE(Book().EntriesLoaded());
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBookTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
