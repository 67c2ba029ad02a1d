// The private book: every server call on both routes, its limits, and what bulk operations leave.

#include "books/email_ab.h"
#include "lists/priv_email_dl.h"
#include "lists/pub_email_dl.h"
#include "tests/books/private_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct Request {
  const char* name;
  Status (*send)(CPrivEmailAB& book, CEmailEntry* entry);
  const char* call;
};

const Request kRequests[] = {
    {"AddEntry", [](CPrivEmailAB& book, CEmailEntry* e) { return book.AddEntry(e); },
     "IMSPCreateEntry 16:PRIVATEAB Ann"},
    {"CreateServerEntry",
     [](CPrivEmailAB& book, CEmailEntry* e) { return book.CreateServerEntry(e); },
     "IMSPCreateEntry 16:PRIVATEAB Ann"},
    {"ReadEntry", [](CPrivEmailAB& book, CEmailEntry* e) { return book.ReadEntry(e); },
     "IMSPReadEntryProperties 16:PRIVATEAB Ann"},
    {"ModifyEntry", [](CPrivEmailAB& book, CEmailEntry* e) { return book.ModifyEntry(e); },
     "IMSPModifyEntry 16:PRIVATEAB Ann Ann"},
    {"RenameEntry", [](CPrivEmailAB& book, CEmailEntry* e) { return book.RenameEntry("Old", e); },
     "IMSPModifyEntry 16:PRIVATEAB Old Ann"},
    {"DeleteEntry", [](CPrivEmailAB& book, CEmailEntry* e) { return book.DeleteEntry(e); },
     "IMSPDeleteEntry 16:PRIVATEAB Ann"},
    {"CreateServerList",
     [](CPrivEmailAB& book, CEmailEntry*) { return book.CreateServerList("Team"); },
     "IMSPCreateAB 128:Team"},
    {"ListSize",
     [](CPrivEmailAB& book, CEmailEntry*) {
       std::uint32_t count = 0;
       return book.ListSize("Team", &count);
     },
     "IMSPSizeofAB 128:Team -"},
    {"AddMember", [](CPrivEmailAB& book, CEmailEntry* e) { return book.AddMember("Team", e); },
     "IMSPCreateEntry 128:Team Ann"},
    {"CreateMember",
     [](CPrivEmailAB& book, CEmailEntry* e) { return book.CreateMember("Team", e); },
     "IMSPCreateEntry 128:Team Ann"},
    {"ReadMember", [](CPrivEmailAB& book, CEmailEntry* e) { return book.ReadMember("Team", e); },
     "IMSPReadEntryProperties 128:Team Ann"},
    {"ModifyMember",
     [](CPrivEmailAB& book, CEmailEntry* e) { return book.ModifyMember("Team", e); },
     "IMSPModifyEntry 128:Team Ann Ann"},
    {"DeleteMember",
     [](CPrivEmailAB& book, CEmailEntry* e) { return book.DeleteMember("Team", e); },
     "IMSPDeleteEntry 128:Team Ann"},
    {"DeleteServerList",
     [](CPrivEmailAB& book, CEmailEntry*) { return book.DeleteServerList("Team"); },
     "IMSPDeleteAB 128:Team"},
    {"RenameServerList",
     [](CPrivEmailAB& book, CEmailEntry*) { return book.RenameServerList("Team", "Crew"); },
     "IMSPModifyEntry 128:PRIVATEAB Team Crew"},
    {"ListLists",
     [](CPrivEmailAB& book, CEmailEntry*) {
       ABIdent row;
       std::uint32_t count = 1;
       return book.ListLists(&row, &count);
     },
     "IMSPListAB 128: [|*|0] 1 1"},
};

TEST_P(PrivateBookTest, EveryRequestIsOneCallWhoseStatusComesBack) {
  for (const Request& each : kRequests) {
    for (const Status status : {11, 4, 21}) {
      SimulatorFail(nullptr, 1, status);
      CEmailEntry entry = MakeEntry("Ann", "ann@example.org");
      EXPECT_EQ(each.send(Book(), &entry), status) << each.name;
      EXPECT_THAT(TakeCalls(), ElementsAre(each.call)) << each.name;
      EXPECT_EQ(TheAgent.LastError(), status) << each.name;
    }
  }
}

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
  Book().RemoveListAt(0);
  EXPECT_EQ(Book().AddEntry(&entry), 0);
  EXPECT_EQ(Book().CreateServerList("Team"), 0);
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
  EXPECT_EQ(Book().LoadListsChecked(1), 0);
  EXPECT_EQ(Book().ListCount(), 0);
}

TEST_P(PrivateBookTest, MembersThatReferToThePublicBookGoOutWithoutTheirAddress) {
  CEmailEntry members[] = {MakeEntry("own", "own@example.org", 1), MakeEntry("pub", "p@example", 0),
                           MakeEntry("z", "z@example.org", 1)};
  const std::uint32_t count = 3;
  EXPECT_EQ(Book().CreateListWithMembers("Team", members, &count), 0);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPCreateAB 128:Team", "IMSPCreateEntry 128:Team own",
                          "IMSPCreateEntry 128:Team pub", "IMSPCreateEntry 128:Team z"));
  EXPECT_THAT(MembersOnServer("Team"),
              ElementsAre("own=own@example.org", "pub=", "z=z@example.org"));
  EXPECT_TRUE(members[1].address.IsEmpty());

  SimulatorFail("IMSPCreateEntry", 1, 11);
  EXPECT_EQ(Book().CreateListWithMembers("Team", members, &count), 11)
      << "the list that is there already is passed over, a refused member is not";
  const std::uint32_t none = 0;
  SimulatorClearJournal();
  EXPECT_EQ(Book().CreateListWithMembers("Crew", members, &none), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_P(PrivateBookTest, ListsAreAddedCopiedRenamedAndDeleted) {
  PutMember("Team", MakeEntry("own", "own@example.org", 1));
  ASSERT_EQ(Book().LoadLists(1), 0);
  EXPECT_STREQ(Book().ListName(0), "Team");
  EXPECT_EQ(Book().ListName(1), nullptr);

  EXPECT_EQ(Book().CopyList(*Book().FindList("Team"), "Crew", 1), 1);
  EXPECT_EQ(Book().ListCount(), 2);
  EXPECT_EQ(Book().CopyListLocal(*Book().FindList("Team"), "Gang"), 1);
  EXPECT_THAT(MembersOnServer("Gang"), ElementsAre("own=own@example.org"));
  EXPECT_EQ(Book().ListAt(2)->Name(), "Gang");
  EXPECT_EQ(Book().CopyListLocal(*Book().FindList("Team"), "Gang"), 0) << "it is there already";
  EXPECT_EQ(Book().ListCount(), 3);

  EXPECT_EQ(Book().RenameList("Gang", "Band", 0), 1);
  EXPECT_NE(Book().FindList("Gang"), nullptr) << "stale without a reload";
  EXPECT_EQ(Book().DeleteListLocal("Band"), 3) << "no list of that name is held";
  EXPECT_EQ(Book().DeleteListLocal("Band"), -1);
  EXPECT_TRUE(Book().DeleteList("Crew", 1));
  EXPECT_EQ(Book().ListCount(), 1);
}

TEST_P(PrivateBookTest, APublicListIsCopiedWithTheMembersThatTheServerHas) {
  const CEmailEntry member = MakeEntry("pub", "pub@example.org");
  SimulatorPutEntry(BookKind::kPublicList, "All", nullptr, &member);
  box->SetEmailBook(nullptr);
  CPubEmailDL list;
  list.SetName("All");
  EXPECT_EQ(Book().CopyPublicList(&list, "Mine", 0), 1);
  EXPECT_THAT(MembersOnServer("Mine"), ElementsAre("pub=pub@example.org"));
  EXPECT_EQ(Book().CopyPublicListLocal(&list, "Also mine"), 1);
  EXPECT_EQ(Book().ListCount(), 1);
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

  SimulatorFail("IMSPIOCtl", 1, 6);
  EXPECT_EQ(Book().ClearAll(), 6);
  EXPECT_EQ(Book().EmptyOnServer(), 0);
}

INSTANTIATE_TEST_SUITE_P(Routes, PrivateBookTest, testing::Bool(), RouteName);

}  // namespace
}  // namespace quillkit
