// A soft key: its cache, its loads, its limits, and the operations that no exported function shows.

#include "softkeys/soft_key.h"

#include <cstring>
#include <string_view>

#include "tests/softkeys/panel.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

using namespace std::literals;

class SoftKeyTest : public PanelTest {
 protected:
  CSoftKey& key = *book.KeyAt(0);
};

// --- The cache ---

TEST_F(SoftKeyTest, ANewKeyHoldsBlankItemsUnlessItsCapacityIs0) {
  CSoftKey made;
  EXPECT_EQ(made.Init("Old", 2, &book), 1);
  EXPECT_EQ(NamesOf(made), Names(2));
  EXPECT_EQ(made.Init("Scan", 0, &book), 0);
  EXPECT_EQ(made.SetKeyName(std::string(32, 'n')), 0);
  EXPECT_EQ(made.KeyName(), "Scan");
  EXPECT_EQ(made.SaveAllItems(), kRefused);
  EXPECT_EQ(made.SetKeyName(std::string(31, 'n')), 1);
}

TEST_F(SoftKeyTest, CopiesTheFieldsOfAnItemUpToATextWithoutANul) {
  CMenuItem item;
  item.SetAll("X", "path", "tag", "address", 1, 2);
  for (const std::int32_t index : {-1, 3}) {
    EXPECT_EQ(key.SetItemAt(index, item), 0);
    EXPECT_EQ(key.RemoveItemAt(index), 0);
    EXPECT_EQ(key.ItemAt(index), nullptr);
  }
  EXPECT_EQ(key.SetItemAt(2, item), 1);
  EXPECT_EQ(key.ItemAt(2)->appTag, "tag");
  EXPECT_EQ(key.ItemAt(2)->fileFormat, 2U);
  item.SetAll("Y", "other", "", "", 7, 8);
  std::memset(static_cast<void*>(&item.path), 'x', sizeof item.path);
  EXPECT_EQ(key.SetItemAt(2, item), 0);
  EXPECT_EQ(NamesOf(key), (Names{"B", "C", "Y"}));
  EXPECT_EQ(key.ItemAt(2)->path, "path");
  EXPECT_EQ(key.ItemAt(2)->settings, 1U);
}

TEST_F(SoftKeyTest, StoresItsPatternWithoutItemsAndLoadsBoth) {
  key.FindFirstItem("C", true);
  EXPECT_EQ(Stored(key), "\0\0\0\0\1C"s);
  EXPECT_TRUE(key.IsEmpty());

  key.Init("B", 3, &book);
  key.ItemAt(2)->SetName("C");
  key.FindFirstItem("C", true);
  const std::string item = "\1I\1P\1A\1T\1\0\0\0\2\0\0\0"s;
  EXPECT_EQ(Load(key, "\2\0\0\0\1I"s + item + item + "rest"s).Remaining(), 4U);
  EXPECT_EQ(NamesOf(key), (Names{"I", "I"}));
  EXPECT_EQ(key.ItemAt(1)->path, "P");
  EXPECT_EQ(key.FindNextItem(true), 1) << "a load restarts the search";
  EXPECT_EQ(key.KeyName(), "B");
}

// --- Loads ---

TEST_F(SoftKeyTest, LoadsFromANameInBothDirections) {
  // The name is in the block that the load overwrites.
  EXPECT_EQ(key.Load("B", &book, key.ItemAt(1)->name.View(), 1), kNoError);
  EXPECT_EQ(NamesOf(key), (Names{"D"}));
  EXPECT_EQ(key.Load("B", &book, "D", 0), kNoError);
  EXPECT_EQ(NamesOf(key), (Names{"B", "C"}));
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPReadAB 512:B [C|*|0] 512 1", "IMSPReadAB 512:B [D|*|0] 512 0"));
  CMenuItem added = MakeItem("A");
  EXPECT_EQ(key.FastItemAdd(&added), 3) << "the item is added after the loaded items";
  EXPECT_EQ(NamesOf(key), (Names{"B", "C", "A"}));
}

TEST_F(SoftKeyTest, IsEmptyAfterALoadWithoutDataEvenIfTheServerLeavesTheCountUnchanged) {
  SimulatorSetDefects(kDefectFailedCount);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(key.Load("B", &book, {}, 1), kFault);
  EXPECT_EQ(NamesOf(key), Names(512));
  SimulatorFail("IMSPReadAB", 1, kDataNotFound);
  EXPECT_EQ(key.Load("B", &book, {}, 1), kNoError);
  EXPECT_TRUE(key.IsEmpty());
}

TEST_F(SoftKeyTest, RefusesALoadWithoutAnOwnerOrAScanner) {
  EXPECT_EQ(key.Load("Other", nullptr, {}, 1), kRefused);
  EXPECT_EQ(key.KeyName(), "B");
  EXPECT_EQ(key.ItemCount(), 3);
  CTopLevelAB unattached;
  EXPECT_EQ(key.Load("Other", &unattached, {}, 1), kRefused);
  EXPECT_EQ(NamesOf(key), Names(512));
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

// --- Changes ---

TEST_F(SoftKeyTest, PlainAddCallsTheServerWith512CachedItems) {
  key.Init("B", 512, &book);
  CMenuItem item = MakeItem("X");
  EXPECT_EQ(key.AddMenuItem(&item, false), kNoError);
}

TEST_F(SoftKeyTest, FastChangesStoreTheFieldsInTheCacheAndOnTheServer) {
  CMenuItem item = MakeItem("C");
  item.SetPath("new");
  EXPECT_EQ(key.FastItemModify(&item), 1);
  item.SetName("E");
  EXPECT_EQ(key.FastItemRename("D", &item), 1);
  item.SetName("F");
  EXPECT_EQ(key.FastItemAdd(&item), 4);
  for (const char* source : {"cache", "server"}) {
    ASSERT_EQ(NamesOf(key), (Names{"B", "C", "E", "F"})) << source;
    for (int i = 1; i < 4; ++i) EXPECT_EQ(key.ItemAt(i)->path, "new") << source;
    key.Load("B", &book, {}, 1);
  }
}

TEST_F(SoftKeyTest, FastFailsAfterItsCallIfOnlyTheServerHasTheItem) {
  key.ItemAt(1)->SetName("X");
  CMenuItem item = MakeItem("C");
  EXPECT_EQ(key.FastItemModify(&item), 0);
  EXPECT_EQ(key.FastItemRename("C", &item), 0);
  EXPECT_EQ(key.FastItemRemove(&item), -1);
  EXPECT_EQ(SimulatorCallCount(), 3);
  EXPECT_EQ(TheAgent.LastError(), kNoError);
  EXPECT_EQ(NamesOf(key), (Names{"B", "X", "D"}));
}

TEST_F(SoftKeyTest, AcceptsItsOwnItemsAsArguments) {
  EXPECT_EQ(key.FastItemModify(key.ItemAt(1)), 1);
  EXPECT_EQ(key.FastItemRename("C", key.ItemAt(1)), 1);
  EXPECT_EQ(key.ModifyMenuItem(key.ItemAt(2), true), kNoError);
  EXPECT_EQ(key.FastItemRemove(key.ItemAt(0)), 2);
  EXPECT_EQ(NamesOf(key), (Names{"C", "D"}));
}

TEST_F(SoftKeyTest, CountsTheItemsOnTheServerWithoutAnOwner) {
  CSoftKey unowned;
  unowned.SetKeyName("B");
  std::uint32_t count = 0;
  EXPECT_EQ(unowned.GetDBItemCount(&count), kNoError);
  EXPECT_EQ(count, 3U);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 512:B -"));
  CScanner unbound;
  book.Attach(&unbound, 0);
  EXPECT_EQ(key.GetDBItemCount(&count), kRefused);
  EXPECT_EQ(unowned.SaveAllItems(), kRefused);
}

TEST_F(SoftKeyTest, SavesEveryItemAndReturnsTheLastStatus) {
  for (const int failing : {2, 3}) {
    SimulatorFail("IMSPModifyEntry", failing, kFault);
    EXPECT_EQ(key.SaveAllItems(), failing == 3 ? kFault : kNoError);
    EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 512:B B B", "IMSPModifyEntry 512:B C C",
                                         "IMSPModifyEntry 512:B D D"));
  }
}

}  // namespace
}  // namespace quillkit
