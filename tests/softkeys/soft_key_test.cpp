// A soft key and the server: loads, limits, and what stands beside the two families of changes.

#include "softkeys/soft_key.h"

#include <gtest/gtest.h>

#include <string>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/softkeys/panel.h"
#include "tests/support/menu_item.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kFault = 11;
constexpr Status kEarlier = 17;

// A key Scan of the items B, C and D, here and on the server.
class SoftKeyTest : public PanelTest {
 protected:
  SoftKeyTest() {
    PutKey("Scan", {"B", "C", "D"});
    key.Load("Scan", &book, {}, 1);
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  // Puts `count` items with numbers for names into the server's key, beside what is there.
  static void PutItems(int count) {
    for (int i = 0; i < count; ++i) {
      const CMenuItem item = MakeItem(std::to_string(1000 + i));
      SimulatorPutEntry(BookKind::kKeyItems, "Scan", nullptr, &item);
    }
  }

  CSoftKey key;
};

// --- Loads ---

TEST_F(SoftKeyTest, ALoadIsOneReadOfTheWholeKey) {
  for (const int extra : {509, 510}) {  // 512 and 513 items in all
    PutItems(extra);
    EXPECT_EQ(key.Load("Scan", &book, {}, 1), extra == 510 ? kMoreData : kNoError);
    EXPECT_EQ(key.ItemCount(), 512);
    EXPECT_EQ(key.ItemAt(0)->name.View(), "1000");
    EXPECT_THAT(TakeCalls(), ElementsAre(ReadCall("Scan")));
  }
}

TEST_F(SoftKeyTest, ALoadGoesOnFromANameAndBackFromOne) {
  // The name lies in the block that the load gives up.
  EXPECT_EQ(key.Load(key.KeyName(), &book, key.ItemAt(1)->name.View(), 1), kNoError);
  EXPECT_EQ(NamesOf(key), (Names{"D"}));
  EXPECT_EQ(key.Load("Scan", &book, "D", 0), kNoError);
  EXPECT_EQ(NamesOf(key), (Names{"B", "C"}));
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadAB 512:Scan [C|*|0] 512 1",
                                       "IMSPReadAB 512:Scan [D|*|0] 512 0"));
  CMenuItem added = MakeItem("A");
  EXPECT_EQ(key.FastItemAdd(&added), 3) << "behind what stands at the block's end";
  EXPECT_EQ(NamesOf(key), (Names{"B", "C", "A"}));
}

// Where the count stays as it was, only the status tells that nothing is there.
TEST_F(SoftKeyTest, AKeyThatIsNotDeliveredLoadsAsEmpty) {
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail("IMSPReadAB", 1, kDataNotFound);
  EXPECT_EQ(key.Load("Scan", &book, {}, 1), kNoError);
  EXPECT_TRUE(key.IsEmpty());
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(key.Load("Scan", &book, {}, 1), kFault);
  EXPECT_EQ(NamesOf(key), Names(512));
}

TEST_F(SoftKeyTest, ALoadWithoutAnOwnerChangesNothingAndWithoutAScannerReadsNothing) {
  EXPECT_EQ(key.Load("Other", nullptr, {}, 1), kRefused);
  EXPECT_EQ(key.KeyName(), "Scan");
  EXPECT_EQ(key.ItemCount(), 3);
  CTopLevelAB unattached;
  EXPECT_EQ(key.Load("Other", &unattached, {}, 1), kRefused);
  EXPECT_EQ(NamesOf(key), Names(512));
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

// --- Limits and oddities ---

TEST_F(SoftKeyTest, FastAddEndsAt512CachedItems) {
  PutItems(508);
  key.Load("Scan", &book, {}, 1);
  CMenuItem item = MakeItem("X");
  EXPECT_EQ(key.FastItemAdd(&item), 512);
  TheAgent.SetError(kEarlier);
  TakeCalls();
  EXPECT_EQ(key.FastItemAdd(&item), -1);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(key.AddMenuItem(&item, false), 14) << "the plain one leaves the limit to the server";
}

TEST_F(SoftKeyTest, AnItemOfTheKeyItselfMayBeGiven) {
  EXPECT_EQ(key.FastItemModify(key.ItemAt(1)), 1);
  EXPECT_EQ(key.FastItemRename("C", key.ItemAt(1)), 1);
  EXPECT_EQ(key.ModifyMenuItem(key.ItemAt(2), true), kNoError);
  EXPECT_EQ(key.FastItemRemove(key.ItemAt(0)), 2);
  CMenuItem outside = MakeItem("E");
  EXPECT_EQ(key.FastItemAdd(&outside), 3);
  EXPECT_EQ(NamesOf(key), (Names{"C", "D", "E"}));
}

TEST_F(SoftKeyTest, TheServersCountIsToldWithAnOwnerAndWithout) {
  CSoftKey unowned;
  unowned.SetKeyName("Scan");
  for (CSoftKey* each : {&key, &unowned}) {
    std::uint32_t count = 0;
    EXPECT_EQ(each->GetDBItemCount(&count), kNoError);
    EXPECT_EQ(count, 3U);
  }
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 512:Scan -", "IMSPSizeofAB 512:Scan -"));
  CScanner unbound;
  book.Attach(&unbound, 0);
  std::uint32_t count = 0;
  EXPECT_EQ(key.GetDBItemCount(&count), kRefused);
}

TEST_F(SoftKeyTest, SavingGoesOnPastARefusalAndGivesTheLastStatus) {
  for (const int failing : {2, 3}) {
    SimulatorFail("IMSPModifyEntry", failing, kFault);
    EXPECT_EQ(key.SaveAllItems(), failing == 3 ? kFault : kNoError);
    EXPECT_THAT(TakeCalls(),
                ElementsAre("IMSPModifyEntry 512:Scan B B", "IMSPModifyEntry 512:Scan C C",
                            "IMSPModifyEntry 512:Scan D D"));
  }
  key.Init("Scan", 0, &book);
  EXPECT_EQ(key.SaveAllItems(), kRefused);
}

}  // namespace
}  // namespace quillkit
