// Public e-mail lists: the members held here, and both families of changes on the server.

#include "lists/pub_email_dl.h"

#include <functional>
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
  EXPECT_EQ(other.Book(), nullptr);
  EXPECT_EQ(other.Open(&book, ""), kRefused);
  EXPECT_EQ(other.Book(), nullptr);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(other.Open(&book, "Team"), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 64:Team -", "IMSPReadAB 64:Team - 3 1"));
  EXPECT_EQ(MemberNames(other), "Ann Bea Cy ");
  EXPECT_EQ(other.Book(), &book);
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

struct ListOperation {
  const char* name;
  std::function<std::int32_t(CPubEmailDL&, CEmailEntry*)> run;
  std::int32_t result;
  Calls calls;          // up to the one that may be refused
  const char* members;  // afterwards; a refusal leaves them

  // The server's status, or in the local family -1.
  std::int32_t Refused() const { return result == 0 ? kServerFault : -1; }
};

// With an entry of the name Bea, or one that is named anew.
std::vector<ListOperation> ListOperations() {
  using L = CPubEmailDL;
  using E = CEmailEntry;
  static std::uint32_t count;
  std::vector<ListOperation> all;
  const auto add = [&all](const char* name, auto run, std::int32_t result, Calls calls,
                          const char* members) {
    all.push_back({name, run, result, std::move(calls), members});
  };
  const auto bo = [](E* entry) { return entry->SetName("Bo"), entry; };
  const Calls modified = {"IMSPModifyEntry 64:Team Bea Bea"};
  const Calls created = {"IMSPCreateEntry 64:Team Bo"};
  const Calls deleted = {"IMSPDeleteEntry 64:Team Bea"};
  add(
      "GetMemberCount", [](L& list, E*) { return list.GetMemberCount(&count); }, 0,
      {"IMSPSizeofAB 64:Team -"}, "Ann Bea Cy ");
  add(
      "ReadMember", [](L& list, E* e) { return list.ReadMember(e); }, 0,
      {"IMSPReadEntryProperties 64:Team Bea"}, "Ann Bea Cy ");
  add(
      "Reload", [](L& list, E*) { return list.Reload(); }, 0, {"IMSPSizeofAB 64:Team -"},
      "Ann Bea Cy ");
  add(
      "WriteMembers", [](L& list, E*) { return list.WriteMembers(); }, 0,
      {"IMSPModifyEntry 64:Team Ann Ann", modified[0], "IMSPModifyEntry 64:Team Cy Cy"},
      "Ann Bea Cy ");
  add(
      "AddMember", [=](L& list, E* e) { return list.AddMember(bo(e), 0); }, 0, created,
      "Ann Bea Cy ");
  add(
      "AddMemberUnlimited", [=](L& list, E* e) { return list.AddMemberUnlimited(bo(e), 1); }, 0,
      created, "Ann Bea Bo Cy ");
  add(
      "ModifyMember", [](L& list, E* e) { return list.ModifyMember(e, 0); }, 0, modified,
      "Ann Bea Cy ");
  add(
      "RenameMember", [=](L& list, E* e) { return list.RenameMember("Cy", bo(e), 1); }, 0,
      {"IMSPModifyEntry 64:Team Cy Bo"}, "Ann Bea Bo ");
  add(
      "RemoveMember", [](L& list, E* e) { return list.RemoveMember(e, 1); }, 0, deleted, "Ann Cy ");
  add(
      "AddLocal", [=](L& list, E* e) { return list.AddLocal(bo(e)); }, 4, created,
      "Ann Bea Cy Bo ");
  add(
      "AddLocalUnlimited", [=](L& list, E* e) { return list.AddLocalUnlimited(bo(e)); }, 4, created,
      "Ann Bea Cy Bo ");
  add(
      "RemoveLocal", [](L& list, E* e) { return list.RemoveLocal(e); }, 2, deleted, "Ann Cy ");
  add(
      "ModifyLocal", [](L& list, E* e) { return list.ModifyLocal(e); }, 3, modified, "Ann Bea Cy ");
  add(
      "RenameLocal", [](L& list, E* e) { return list.RenameLocal("Bea", e); }, 3, modified,
      "Ann Bea Cy ");
  return all;
}

TEST_F(PublicListTest, EachOperationAsksTheServerFirst) {
  for (const ListOperation& each : ListOperations()) {
    for (const bool isRefused : {true, false}) {
      box->PublicList("Team").ClearBook();
      PutList("Team", {"Ann", "Bea", "Cy"});
      CPubEmailDL fresh;
      fresh.Open(&book, "Team");
      Start();
      CEmailEntry entry = MakeEntry("Bea", "new");
      const auto last = static_cast<std::int32_t>(each.calls.size());
      if (isRefused) SimulatorFail(nullptr, last, kServerFault);
      EXPECT_EQ(each.run(fresh, &entry), isRefused ? each.Refused() : each.result) << each.name;
      Calls calls = TakeCalls();
      calls.resize(each.calls.size());
      EXPECT_EQ(calls, each.calls) << each.name;
      EXPECT_EQ(TheAgent.LastError(), isRefused ? kServerFault : kNoError) << each.name;
      EXPECT_EQ(MemberNames(fresh), isRefused ? "Ann Bea Cy " : each.members) << each.name;
    }
  }
}

TEST_F(PublicListTest, EachOperationNeedsABook) {
  for (const ListOperation& each : ListOperations()) {
    CPubEmailDL loose;
    loose.SetName("Team");
    CEmailEntry entry = MakeEntry("Bea");
    Start();
    if (std::string(each.name) == "GetMemberCount") {
      EXPECT_EQ(each.run(loose, &entry), kNoError);
      EXPECT_EQ(TakeCalls(), each.calls);
      continue;
    }
    EXPECT_EQ(each.run(loose, &entry), -1) << each.name;
    EXPECT_THAT(TakeCalls(), IsEmpty()) << each.name;
    EXPECT_EQ(TheAgent.LastError(), kEarlierError);
  }
}

TEST_F(PublicListTest, GivesTheChangeAndNotTheReload) {
  CEmailEntry entry = MakeEntry("Dan");
  SimulatorFail("IMSPSizeofAB", 1, kServerFault);
  EXPECT_EQ(list.AddMember(&entry, 1), kNoError);
  EXPECT_EQ(MemberNames(list), "Ann Bea Cy ");
  SimulatorFail("IMSPReadAB", 1, kServerFault);
  EXPECT_EQ(list.RemoveMember(&entry, 1), kNoError);
  EXPECT_EQ(list.Count(), 3);
  EXPECT_TRUE(list.GetAt(0)->IsBlank());
}

TEST_F(PublicListTest, ShowsLocallyWhatTheServerTook) {
  CEmailEntry entry = MakeEntry("Bea", "new");
  entry.flags = 3;
  EXPECT_EQ(list.ModifyLocal(&entry), 3);
  EXPECT_STREQ(list.GetAt(1)->Address(), "new");
  EXPECT_EQ(list.GetAt(1)->flags, 3);
  PutList("Team", {"Dan"});
  entry = MakeEntry("Dan");
  EXPECT_EQ(list.ModifyLocal(&entry), -1);  // not held here
  EXPECT_EQ(list.RenameLocal("Dan", &entry), -1);
  EXPECT_EQ(list.RemoveLocal(&entry), -1);
  EXPECT_EQ(ServerSize("Team"), 3);
  EXPECT_EQ(list.AddLocal(list.GetAt(0)), -1);  // taken on the server
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
  EXPECT_EQ(TakeCalls().front(), "IMSPDeleteEntry 64:Team Bea");
  EXPECT_EQ(MemberNames(list), "Ann Cy ");
  EXPECT_EQ(list.RemoveAt(1, 1), kNoError);
  EXPECT_EQ(TakeCalls().front(), "IMSPDeleteEntry 64:Team Cy");
  EXPECT_EQ(list.RemoveAt(0, 1), kNoError);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(list.RemoveAt(0, 1), 0);
}

TEST_F(PublicListTest, SetsAMemberHereAndOnTheServer) {
  list.GetAt(1)->flags = 1;
  EXPECT_EQ(list.SetAt(1, MakeEntry("Bea", "new"), 0), kNoError);
  EXPECT_EQ(list.GetAt(1)->flags, 0);
  EXPECT_EQ(list.SetAt(3, MakeEntry("Bea"), 1), kNoError);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(list.SetAt(1, MakeEntry("Bea", "newer"), 1), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 64:Team Bea Bea", "IMSPSizeofAB 64:Team -",
                                       "IMSPReadAB 64:Team - 3 1"));
  EXPECT_STREQ(list.GetAt(1)->Address(), "newer");
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
  EXPECT_EQ(list.InitName(""), kRefused);
  EXPECT_EQ(list.SearchIndex(), 0);

  EXPECT_EQ(list.FindMember(MakeEntry("Ben")), 2);
  EXPECT_EQ(list.FindMember(MakeEntry("Be")), -1);
  CPubEmailDL empty;
  EXPECT_EQ(empty.FindMember(MakeEntry("Ben")), 0);
  EXPECT_EQ(empty.Find("", 0), nullptr);
  EXPECT_EQ(empty.FindNext(0), nullptr);
}

TEST_F(PublicListTest, StartsTheSearchAnewWhenMembersComeOrGo) {
  CEmailEntry entry = MakeEntry("Dan");
  const std::function<void()> changes[] = {
      [&] { list.AddMember(&entry, 0); },
      [&] { list.RemoveMember(&entry, 0); },
      [&] { list.Reload(); },
      [&] { list.AddLocal(&entry); },
      [&] { list.RemoveLocal(&entry); },
  };
  for (const auto& change : changes) {
    list.Find("Cy", 1);
    EXPECT_EQ(list.SearchIndex(), 2);
    change();
    EXPECT_EQ(list.SearchIndex(), 0);
  }
  list.Find("Cy", 1);
  list.ModifyMember(&entry, 0);
  EXPECT_EQ(list.SearchIndex(), 2);
}

TEST_F(PublicListTest, IsDestroyedUnderTheLongTimeout) {
  SimulatorFail("IMSPDeleteAB", 1, kServerFault);
  EXPECT_EQ(list.DestroyList(), kServerFault);
  EXPECT_EQ(list.Count(), 0);
  EXPECT_EQ(SimulatorTimeout(), 3'600'000U);
  SimulatorSetTimeout(30'000);
  Start();
  EXPECT_EQ(list.DestroyList(), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", "IMSPDeleteAB 64:Team",
                          "IMSPIOCtl 2 0", "IMSPIOCtl 1 30000"));
  SimulatorFail("IMSPIOCtl", 1, kServerFault);
  EXPECT_EQ(list.DestroyList(), kServerFault);
  EXPECT_EQ(TakeCalls().size(), 1U);
}

TEST_F(PublicListTest, IsClearedWithOrWithoutABook) {
  CPubEmailDL loose;
  loose.SetName("Team");
  SimulatorSetTimeout(1999);
  EXPECT_EQ(loose.ClearMembers(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                                       "IMSPClearAB 64:Team -", "IMSPIOCtl 1 1999"));
  EXPECT_EQ(ServerSize("Team"), 0);
  for (std::int32_t failing = 1; failing <= 4; ++failing) {
    Start();
    SimulatorFail(nullptr, failing, kServerFault);
    EXPECT_EQ(list.ClearMembers(), kServerFault);
    EXPECT_EQ(TakeCalls().size(), static_cast<std::size_t>(failing));
    EXPECT_EQ(list.Count(), 0);
  }
}

TEST_F(PublicListTest, IsStoredWithItsMembers) {
  std::string stored;
  Archive sink(&stored);
  list.GetAt(0)->flags = 7;
  list.Serialize(sink);
  EXPECT_EQ(stored.substr(0, 13), std::string("\3\0\0\0\4Team\3Ann", 13));
  CPubEmailDL fresh;
  Archive source{std::string_view(stored)};
  fresh.Serialize(source);
  EXPECT_EQ(MemberNames(fresh), "Ann Bea Cy ");
  EXPECT_EQ(fresh.GetAt(0)->flags, 7);
  EXPECT_EQ(source.Remaining(), 0U);

  // A list that has members leaves those of the stream where they are.
  Archive again{std::string_view(stored)};
  fresh.Serialize(again);
  EXPECT_EQ(fresh.Count(), 0);
  EXPECT_EQ(fresh.Name(), "Team");
  EXPECT_EQ(again.Remaining(), stored.size() - 9);

  std::string lying = "\xFF\xFF\xFF\x7F" + stored.substr(4);
  Archive hostile{std::string_view(lying)};
  CPubEmailDL other;
  other.Serialize(hostile);
  EXPECT_TRUE(hostile.Failed());
  EXPECT_EQ(other.Count(), 0);
}

TEST(EmailListBase, DoesNothing) {
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
