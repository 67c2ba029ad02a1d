// What the access to a book tests before a call and does with what came back.

#include "appliance/book_access.h"

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kAnswer = 11;

// --- Guards ---

struct Guards {
  const char* name;
  bool buffer;  // whether a null buffer is refused
  bool count;   // whether a count of 0 is
  std::function<Status(CScanner&, bool, std::uint32_t*)> run;
};

std::ostream& operator<<(std::ostream& out, const Guards& each) {
  return out << each.name;
}

// A buffer of two for a method, or none.
template <class Row>
Row* Buffer(bool none) {
  static Row rows[2];
  return none ? nullptr : rows;
}

std::vector<Guards> AllGuards() {
  using S = CScanner;
  using Count = std::uint32_t*;
  static KeyRange range;
  return {
      {"ReadEmail", true, true,
       [](S& s, bool none, Count count) {
         return s.EmailEntries().Read(&range, Buffer<CEmailEntry>(none), count, 1);
       }},
      {"ReadFaxBack", true, true,
       [](S& s, bool none, Count count) {
         return s.FaxEntries().Read(&range, Buffer<CFaxEntry>(none), count, 0);
       }},
      {"ReadKeyItems", true, true,
       [](S& s, bool none, Count count) {
         return s.ReadKeyItems("Scan", &range, Buffer<CMenuItem>(none), count, 1);
       }},
      {"ListEmail", true, true,
       [](S& s, bool none, Count count) {
         return s.EmailEntries().List(&range, Buffer<EntryKey>(none), count, 1);
       }},
      {"ReadPageBoundaries", true, true,
       [](S& s, bool none, Count count) {
         return s.ReadPageBoundaries(Buffer<PageBoundary>(none), count);
       }},
      {"ListPrinters", false, true,
       [](S& s, bool none, Count count) {
         return s.PrinterEntries().ListNames(Buffer<EntryKey>(none), count);
       }},
      {"ListKeys", false, true,
       [](S& s, bool none, Count count) { return s.ListKeys(Buffer<EntryKey>(none), count); }},
      {"ListFaxLists", false, true,
       [](S& s, bool none, Count count) { return s.ListFaxLists(Buffer<ABIdent>(none), count); }},
      {"ReadList", false, false,
       [](S& s, bool none, Count count) {
         return s.PrivateList("Team").ReadAll(Buffer<CEmailEntry>(none), count);
       }},
  };
}

class BookGuards : public ApplianceTest, public testing::WithParamInterface<Guards> {
 protected:
  BookGuards() : box_(LogIn()) {
    SimulatorSetLies(kLieFailedCount);
    SimulatorFail(nullptr, 0, kAnswer);
  }

  void Expect(bool refused, bool none, std::uint32_t* count) {
    EXPECT_EQ(GetParam().run(*box_, none, count), refused ? kRefused : kAnswer);
    EXPECT_EQ(TakeCalls().size(), refused ? 0U : 1U);
  }

  CScanner* box_;
};

TEST_P(BookGuards, StandBeforeTheCall) {
  std::uint32_t count = 2;
  Expect(false, false, &count);
  count = 2;
  Expect(GetParam().buffer, true, &count);
  count = 0;
  Expect(GetParam().count, false, &count);
  Expect(true, false, nullptr);
}

INSTANTIATE_TEST_SUITE_P(Methods, BookGuards, testing::ValuesIn(AllGuards()));

// --- What goes out ---

class BookAccessTest : public ApplianceTest {
 protected:
  BookAccessTest() : box_(LogIn()) {}

  // Members named A, B, ... of an address each.
  static std::vector<CEmailEntry> Members(int count) {
    std::vector<CEmailEntry> members(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
      members[static_cast<std::size_t>(i)].Set(EntryKey(std::string(1, static_cast<char>('A' + i))),
                                               "address");
    }
    return members;
  }

  CScanner* box_;
};

// Cut, the name would be that of another key, list or entry.
TEST_F(BookAccessTest, ANameThatIsTooLongGoesOutAsTheEmptyOne) {
  const std::string tooLong(32, 'n');
  std::uint32_t count = 0;
  CMenuItem item;
  EXPECT_NE(box_->DeleteKeyBook(tooLong), kNoError);
  EXPECT_NE(box_->SizeofKey(tooLong, &count), kNoError);
  EXPECT_NE(box_->PublicList(tooLong).CreateBook(), kNoError);
  EXPECT_NE(box_->ModelEntries().Delete(tooLong), kNoError);
  EXPECT_NE(box_->ModifyKeyEntry(tooLong, &item), kNoError);
  EXPECT_NE(box_->RenamePublicList("Old", tooLong), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPDeleteAB 512:", "IMSPSizeofAB 512: -",
                                       "IMSPCreateAB 64:", "IMSPDeleteEntry 2048:MODELAB \"\"",
                                       "IMSPModifyEntry 256:TOPAB \"\" \"\"",
                                       "IMSPModifyEntry 64:PRIVATEAB Old \"\""));
}

TEST_F(BookAccessTest, ABatchOfModificationsEndsAtTheFirstRefusal) {
  std::vector<CEmailEntry> members = Members(5);
  for (CEmailEntry& each : members) {
    SimulatorPutEntry(BookKind::kPublicList, "Team", nullptr, &each);
    each.SetAddress("changed");
  }
  const std::uint32_t count = 5;
  const std::uint32_t none = 0;
  EXPECT_EQ(box_->PublicList("Team").ModifyEach(members.data(), &none), kNoError);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  SimulatorFail("IMSPModifyEntry", 3, 11);
  EXPECT_EQ(box_->PublicList("Team").ModifyEach(members.data(), &count), 11);
  EXPECT_EQ(TakeCalls().size(), 3U);
  for (int i = 0; i < 5; ++i) {
    CEmailEntry stored;
    SimulatorEntryAt(BookKind::kPublicList, "Team", nullptr, i, &stored);
    EXPECT_EQ(stored.address.View(), i < 2 ? "changed" : "address") << i;
  }
  EXPECT_EQ(box_->PublicList("Team").ModifyEach(members.data(), &count), kNoError);
  EXPECT_EQ(TakeCalls().size(), 5U);
}

TEST_F(BookAccessTest, PrivateMembersOfThePublicBookGoWithoutTheirAddress) {
  std::vector<CEmailEntry> members = Members(3);
  members[1].flags = 1;
  const std::uint32_t count = 3;
  EXPECT_EQ(box_->CreatePrivateMembers("Team", members.data(), &count), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateAB 128:Team", "IMSPCreateEntry 128:Team A",
                                       "IMSPCreateEntry 128:Team B", "IMSPCreateEntry 128:Team C"));
  EXPECT_EQ(members[0].address.View(), "");
  EXPECT_EQ(members[1].address.View(), "address");

  // A list that is there takes further members; a refused one ends the run.
  std::vector<CEmailEntry> more = Members(5);
  more[0].SetName("X");
  EXPECT_EQ(box_->CreatePrivateMembers("Team", more.data(), &count), 14);
  EXPECT_EQ(TakeCalls().size(), 3U);
  EXPECT_EQ(SimulatorBookSize(BookKind::kPrivateList, "Team", kAdministrator.c_str()), 4);
  EXPECT_EQ(more[2].address.View(), "address") << "not sent, not touched";
}

// --- What comes back ---

// Reads of every kind from a server that fills every text to its end and claims more than it
// delivered: each row of the buffer ends inside its fields.
TEST_F(BookAccessTest, DeliveredTextsEndInsideTheirFields) {
  SimulatorSeed();
  CScanner* box = LogIn();
  SimulatorPutEntry(BookKind::kPrivateEmail, "", kAdministrator.c_str(), Members(1).data());
  for (const std::uint32_t lies : {kLieUnterminated | 0U, kLieUnterminated | kLieDeliveredCount}) {
    SimulatorSetLies(lies);
    KeyRange all;
    for (const std::int32_t direction : {0, 1}) {
      CEmailEntry email[40];
      std::uint32_t count = 40;
      box->EmailEntries().Read(&all, email, &count, direction);
      for (const CEmailEntry& each : email) EXPECT_TRUE(each.IsValid());
      CFaxEntry fax[5];
      count = 5;
      EXPECT_EQ(box->FaxEntries().Read(&all, fax, &count, direction), kMoreData);
      for (const CFaxEntry& each : fax) EXPECT_TRUE(each.IsValid());
      EntryKey rows[40];
      count = 40;
      box->EmailEntries().List(&all, rows, &count, direction);
      for (const EntryKey& each : rows) EXPECT_TRUE(each.name.IsTerminated());
    }
    ABIdent lists[3];
    std::uint32_t count = 3;
    EXPECT_EQ(box->ListPublicLists(lists, &count), kNoError);
    for (const ABIdent& each : lists) EXPECT_TRUE(each.name.IsTerminated());
    CUserEntry user;
    user.SetName(kAdministratorName);
    EXPECT_EQ(box->UserEntries().ReadOne(&user), kNoError);
    EXPECT_TRUE(user.IsValid());
    PrinterRecord printer;
    printer.printerName.Assign("Workshop");
    EXPECT_EQ(box->PrinterEntries().ReadOne(&printer), kNoError);
    EXPECT_TRUE(printer.description.IsTerminated());
    PrinterModelRecord model;
    model.modelName.Assign("Laserette 9");
    EXPECT_EQ(box->ModelEntries().ReadOne(&model), kNoError);
    EXPECT_TRUE(model.modelText.IsTerminated());
  }
}

}  // namespace
}  // namespace quillkit
