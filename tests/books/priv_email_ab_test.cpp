// The private book, with and without an owner: loading, copies of lists, bulk operations, searches.

#include "tests/books/books_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr BookKind kEntries = BookKind::kPrivateEmail;
constexpr BookKind kLists = BookKind::kPrivateList;

TEST_P(PrivateBookTest, AMissingBookIsLoadedAsEmpty) {
  EXPECT_EQ(Private().LoadEntries(1), 1);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPReadAB 16:PRIVATEAB [||0] 2000 1", "IMSPListAB 128: [|*|0] 100 1"));
  EXPECT_EQ(Private().WriteBack(), kNoError) << "there is nothing to write";
  EXPECT_TRUE(Private().EntriesLoaded());
  EXPECT_FALSE(Private().ListsLoaded()) << "the server has no lists";
  PutNames(kLists, "Team", {"Ann"});
  EXPECT_EQ(Private().LoadListsChecked(0), 1);
  EXPECT_TRUE(Private().ListsLoaded());
  EXPECT_TRUE(Private().ListAt(0)->IsEmpty());
}

TEST_P(PrivateBookTest, ChangesListsInMemoryOnlyIfRequested) {
  PutNames(kLists, "Team", {"Ann"});
  Private().LoadLists(1);
  EXPECT_STREQ(Private().ListName(0), "Team");
  EXPECT_EQ(Private().ListName(1), nullptr);
  std::string name;
  EXPECT_EQ(Private().CopyListName(0, name), 1);
  EXPECT_EQ(name, "Team");
  EXPECT_EQ(Private().CopyListName(1, name), 0);
  EXPECT_EQ(Private().CopyList(*Private().ListAt(0), "Crew", 1), 1);
  EXPECT_EQ(Private().RenameList("Crew", "Band", 0), 1);
  EXPECT_NE(Private().FindList("Crew"), nullptr);
  EXPECT_EQ(Private().DeleteListLocal("Band"), 2)
      << "Band is not in memory, so that 2 lists remain";
  SimulatorSetDefects(kDefectUnreported);
  EXPECT_EQ(Private().CopyListLocal(*Private().FindList("Team"), "Gang"), 1);
  EXPECT_TRUE(Private().FindList("Gang")->IsEmpty()) << "its member was not delivered";
}

TEST_P(PrivateBookTest, CopiesAPublicListWithItsMembersOnTheServer) {
  PutNames(BookKind::kPublicList, "All", {"Ann"});
  CPubEmailDL list;
  list.SetName("All");
  const auto expectRefusal = [this](CPubEmailDL& source) {
    EXPECT_EQ(Private().CopyPublicList(&source, "Mine", 0), 0);
    EXPECT_EQ(Private().CopyPublicListLocal(&source, "Mine"), 0);
    EXPECT_THAT(TakeCalls(), IsEmpty());
  };
  expectRefusal(list);  // no e-mail book is open
  box->SetEmailBook(nullptr);
  SimulatorFail("IMSPReadAB", 1, kDataNotFound);
  EXPECT_EQ(Private().CopyPublicList(&list, "Mine", 0), 0);
  EXPECT_TRUE(list.IsEmpty()) << "the failed read leaves the source list empty";
  EXPECT_EQ(Private().CopyPublicList(&list, "Mine", 0), 1);
  EXPECT_THAT(OnServer(kLists, "Mine"), ElementsAre("Ann=at"));
  EXPECT_EQ(Private().CopyPublicListLocal(&list, "Also mine"), 1);
  EXPECT_EQ(Private().ListCount(), 1);
  TakeCalls();
  CUserAB unattached;
  account.SetOwner(GetParam() ? &unattached : nullptr);
  TheAgent.DeleteScanners();
  CPubEmailDL unread;
  expectRefusal(unread);
}

TEST_P(PrivateBookTest, ClearingDropsTheListsAndAllocatesBlankEntries) {
  PutNames(kEntries, "", {"Ann"});
  PutNames(kLists, "Team", {"Ann"});
  Private().LoadEntries(1);
  PutNames(kLists, "Unseen", {"Ann"});
  std::uint32_t count = 0;
  EXPECT_EQ(Private().ServerEntryCount(&count), kNoError);
  EXPECT_EQ(count, 1U);
  EXPECT_EQ(Private().ClearAll(), kNoError);
  EXPECT_EQ(Private().ListCount(), 0);
  EXPECT_EQ(Private().EntryCount(), 2000);
  EXPECT_FALSE(Private().EntriesLoaded());
  EXPECT_THAT(OnServer(kEntries, ""), IsEmpty());
  EXPECT_EQ(Private().ServerListCount(&count), kNoError);
  EXPECT_EQ(count, 1U) << "the list Unseen remains on the server";
}

TEST_P(PrivateBookTest, SerializingReadsMembersThatAreNotLoaded) {
  for (const char* name : {"Crew", "Gang", "Team"}) PutNames(kLists, name, {"Ann"});
  Private().LoadLists(0);
  SimulatorFail("IMSPSizeofAB", 2, kFault);
  EXPECT_EQ(Private().LoadAllMembers(), kFault);
  EXPECT_EQ(Private().ListAt(0)->Count(), 1);
  EXPECT_TRUE(Private().ListAt(2)->IsEmpty());
  TakeCalls();
  const std::string bytes = Stored(Private());
  EXPECT_EQ(TakeCalls().size(), 4U) << "two lists are read, each with a size and a read call";
  CPrivEmailAB loaded;
  Load(loaded, bytes);
  ASSERT_EQ(loaded.ListCount(), 3);
  EXPECT_EQ(loaded.ListAt(2)->Count(), 1);
}

TEST_P(PrivateBookTest, WithoutAUserItIsTheBookOfTheSession) {
  CPrivEmailAB withoutUser;
  CEmailEntry entry = MakeEntry("Ann");
  EXPECT_FALSE(withoutUser.SetUser(nullptr));
  EXPECT_EQ(withoutUser.CreateServerEntry(&entry), kNoError);
  EXPECT_THAT(OnServer(kEntries, ""), ElementsAre("Ann=at"));
  EXPECT_EQ(CPrivEntryPage().ModifyLocal(&entry), 0) << "a page without a book has no entries";
  EXPECT_EQ(CPrivEntryPage().ModifyLocalByKey("Ann", &entry), 0);
}

TEST_P(PrivateBookTest, ModeOneFindsWholeNamesOnlyAndAFailedReloadLeavesNoEntries) {
  PutNames(kEntries, "", {"ab", "abc", "b"});
  Private().LoadEntries(0);
  EXPECT_EQ(Private().SearchNext(0), 0) << "a search without a pattern returns index 0";
  EXPECT_EQ(Private().SearchFirst("a", 1), -1);
  EXPECT_EQ(Private().SearchFirst("a", 2), 0);
  EXPECT_EQ(Private().SearchNext(1), -1);
  EXPECT_EQ(Private().SearchNext(0), 1);
  EXPECT_EQ(CPrivEntryPage().Search("", -1, 0), -1);
  CEmailEntry entry = MakeEntry("c", "new", 3);
  EXPECT_EQ(Private().ModifyLocalByKey("b", &entry), 1);
  EXPECT_STREQ(Private().EntryAt(2)->Name(), "c");
  EXPECT_EQ(Private().EntryAt(2)->flags, 3);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(Private().Remove(&entry, 1), kNoError) << "a failed reload does not change the result";
  EXPECT_EQ(Private().EntryCount(), 0);
  EXPECT_TRUE(Private().EntriesLoaded());
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBookTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
