// What the access to a book tests before a call and does with what came back.

#include "appliance/book_access.h"

#include <gtest/gtest.h>

#include <functional>
#include <iterator>
#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

constexpr Status kAnswer = 11;

class BookAccessTest : public ApplianceTest {
 protected:
  CScanner* box = LogIn();
};

// A null buffer and a count of 0 are refused by some operations; a null count is by all.
TEST_F(BookAccessTest, GuardsStandBeforeTheCall) {
  KeyRange range;
  CEmailEntry records[2];
  EntryKey rows[2];
  ABIdent books[2];
  PageBoundary table[2];
  using Count = std::uint32_t*;
  const struct {
    const char* name;
    bool refusesNull;
    bool refusesZero;
    std::function<Status(bool none, Count)> run;
  } operations[] = {
      {"Read", true, true,
       [&](bool none, Count count) {
         return box->EmailEntries().Read(&range, none ? nullptr : records, count, 1);
       }},
      {"List", true, true,
       [&](bool none, Count count) {
         return box->EmailEntries().List(&range, none ? nullptr : rows, count, 1);
       }},
      {"ReadPageBoundaries", true, true,
       [&](bool none, Count count) {
         return box->ReadPageBoundaries(none ? nullptr : table, count);
       }},
      {"ListNames", false, true,
       [&](bool none, Count count) {
         return box->PrinterEntries().ListNames(none ? nullptr : rows, count);
       }},
      {"ListLists", false, true,
       [&](bool none, Count count) { return box->ListFaxLists(none ? nullptr : books, count); }},
      {"ReadAll", false, false,
       [&](bool none, Count count) {
         return box->PrivateList("Team").ReadAll(none ? nullptr : records, count);
       }},
  };
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail(nullptr, 0, kAnswer);
  for (const auto& each : operations) {
    SCOPED_TRACE(each.name);
    std::uint32_t count = 2;
    std::uint32_t zero = 0;
    const auto expect = [&](bool refused, bool none, Count given) {
      EXPECT_EQ(each.run(none, given), refused ? kRefused : kAnswer);
      EXPECT_EQ(TakeCalls().empty(), refused);
    };
    expect(false, false, &count);
    expect(each.refusesNull, true, &count);
    expect(each.refusesZero, false, &zero);
    expect(true, false, nullptr);
  }
}

// Cut, the name would be that of another key, list or entry.
TEST_F(BookAccessTest, ANameThatIsTooLongGoesOutAsTheEmptyOne) {
  const std::string tooLong(32, 'n');
  CMenuItem item;
  EXPECT_NE(box->DeleteKeyBook(tooLong), kNoError);
  EXPECT_NE(box->ModelEntries().Delete(tooLong), kNoError);
  EXPECT_NE(box->ModifyKeyEntry(tooLong, &item), kNoError);
  EXPECT_NE(box->RenamePublicList("Old", tooLong), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPDeleteAB 512:", "IMSPDeleteEntry 2048:MODELAB \"\"",
                                       "IMSPModifyEntry 256:TOPAB \"\" \"\"",
                                       "IMSPModifyEntry 64:PRIVATEAB Old \"\""));
}

TEST_F(BookAccessTest, ABatchOfModificationsEndsAtTheFirstRefusal) {
  CEmailEntry members[5];
  for (std::size_t i = 0; i < std::size(members); ++i) {
    CEmailEntry& each = members[i];
    each.SetName(std::string(1, static_cast<char>('A' + i)));
    SimulatorPutEntry(BookKind::kPublicList, "Team", nullptr, &each);
  }
  const std::uint32_t count = 5;
  SimulatorFail("IMSPModifyEntry", 3, kAnswer);
  EXPECT_EQ(box->PublicList("Team").ModifyEach(members, &count), kAnswer);
  EXPECT_EQ(TakeCalls().size(), 3U);
  SimulatorSetLies(kLieScribble);  // the book of each call is that of the first
  EXPECT_EQ(box->PublicList("Team").ModifyEach(members, &count), kNoError);
  EXPECT_EQ(TakeCalls().back(), "IMSPModifyEntry 64:Team E E");
}

// Also where a server fills every text to its end.
TEST_F(BookAccessTest, DeliveredTextsEndInsideTheirFields) {
  SimulatorSeed();
  box = LogIn();
  SimulatorSetLies(kLieUnterminated);
  KeyRange all;
  CFaxEntry fax[5];
  std::uint32_t count = 5;
  EXPECT_EQ(box->FaxEntries().Read(&all, fax, &count, 0), kMoreData);
  for (const CFaxEntry& each : fax) EXPECT_TRUE(each.IsValid());
  ABIdent lists[3];
  count = 3;
  EXPECT_EQ(box->ListPublicLists(lists, &count), kNoError);
  for (const ABIdent& each : lists) EXPECT_TRUE(each.name.IsTerminated());
  PrinterModelRecord model;
  model.modelName.Assign("Laserette 9");
  EXPECT_EQ(box->ModelEntries().ReadOne(&model), kNoError);
  EXPECT_TRUE(model.IsValid());
}

}  // namespace
}  // namespace quillkit
