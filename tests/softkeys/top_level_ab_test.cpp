// The set of soft keys: loads, limits, searches, and the operations that no exported function
// shows.

#include "softkeys/top_level_ab.h"

#include "tests/softkeys/panel.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class TopLevelTest : public PanelTest {
 protected:
  // A key of the application's own, with one blank item.
  CSoftKey& Key(const std::string& name) {
    key.Init(name, 1, &book);
    return key;
  }

  CSoftKey key;
};

TEST_F(TopLevelTest, LoadItemsDiscardsTheItemsAndReturnsTheCachedKey) {
  CSoftKey* first = book.KeyAt(0);
  first->RemoveItemAt(0);
  EXPECT_EQ(book.LoadItems("B"), first);
  EXPECT_EQ(first->ItemCount(), 2);
  PutKey("E", {"four"});
  EXPECT_EQ(book.LoadItems("E"), nullptr) << "the key E is not cached";
  SimulatorSetDefects(kDefectFailedCount);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(book.LoadItems("B"), nullptr);
}

TEST_F(TopLevelTest, FastAddAndFastModifyMakeTheBookTheOwnerOfTheCachedKey) {
  CMenuItem item = MakeItem("new");
  EXPECT_EQ(book.FastKeyAdd(Key("A")), 4);
  EXPECT_TRUE(book.KeyAt(3)->IsEmpty());
  EXPECT_EQ(book.KeyAt(3)->FastItemAdd(&item), 1);

  book.Load(0);  // keys without items have no owner
  CTopLevelAB other;
  key.Init("C", 1, &other);
  key.ItemAt(0)->SetName("mine");
  EXPECT_EQ(book.FastKeyModify(&key), 1);
  CSoftKey* cached = book.KeyAt(book.Find("C"));
  EXPECT_EQ(NamesOf(*cached), Names{"mine"});
  EXPECT_TRUE(key.IsEmpty());
  EXPECT_EQ(key.KeyName(), "C");
  EXPECT_EQ(book.FastKeyModify(cached), 1) << "the cached key itself is accepted";
  EXPECT_EQ(cached->ItemCount(), 1);
  EXPECT_EQ(cached->AddMenuItem(&item, false), kNoError);
}

TEST_F(TopLevelTest, FastFailsAfterItsCallIfOnlyTheServerHasTheKey) {
  book.KeyAt(1)->SetKeyName("X");
  EXPECT_EQ(book.FastKeyModify(&Key("C")), 0);
  EXPECT_EQ(book.FastKeyRename("C", Key("C")), 0);
  EXPECT_EQ(book.FastKeyRemove(Key("C")), -1);
  EXPECT_EQ(SimulatorCallCount(), 3);
  EXPECT_EQ(TheAgent.LastError(), kNoError);
  EXPECT_EQ(NamesOf(book), (Names{"B", "X", "D"}));
}

TEST_F(TopLevelTest, AcceptsCachedKeysAndTheirNamesAsArguments) {
  EXPECT_EQ(book.RenameSoftKeyByName("B", "none"), kRefused);
  EXPECT_EQ(book.RenameSoftKeyByName("B", "C"), 14);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 256:TOPAB B C"));
  EXPECT_EQ(book.FastKeyRemove(*book.KeyAt(1)), 2);
  EXPECT_EQ(book.DeleteKey(book.KeyAt(0)->KeyName(), true), kNoError);
  EXPECT_EQ(NamesOf(book), (Names{"D"}));
}

TEST_F(TopLevelTest, SendsANameOf32BytesAsAnEmptyName) {
  const std::string tooLong(32, 'x');
  EXPECT_EQ(book.AddKey(tooLong, false), kInvalidField);
  EXPECT_EQ(book.FastKeyAdd(Key(tooLong)), -1);
  EXPECT_EQ(book.DeleteKey(tooLong, false), kNoSuchBook);
  EXPECT_EQ(book.FastKeyRemove(Key(tooLong)), -1);
  EXPECT_EQ(book.RenameSoftKey(tooLong, Key("A")), kDataNotFound);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateEntry 256:TOPAB \"\"",
                                       "IMSPCreateEntry 256:TOPAB \"\"", "IMSPDeleteAB 512:",
                                       "IMSPDeleteAB 512:", "IMSPModifyEntry 256:TOPAB \"\" A"));
}

TEST_F(TopLevelTest, FindNextKeyReturnsThePreviousHitIfThereIsNoOther) {
  book.KeyAt(0)->SetKeyName("AB");
  book.KeyAt(1)->SetKeyName("ABC");
  book.KeyAt(2)->SetKeyName("AB");
  EXPECT_EQ(book.KeyAt(-1), nullptr);
  EXPECT_EQ(book.KeyAt(3), nullptr);
  EXPECT_EQ(book.FindNextKey(false), 0) << "a search without a pattern returns index 0";
  EXPECT_EQ(book.FindFirstKey("A", true), -1);
  EXPECT_EQ(book.FindFirstKey("AB", false), 0);
  EXPECT_EQ(book.FindNextKey(true), 2);
  EXPECT_EQ(book.FindNextKey(false), 2);
}

TEST_F(TopLevelTest, ClearAllReloadsTheBookEvenIfTheClearFails) {
  SimulatorFail("IMSPClearAB", 1, kFault);
  EXPECT_EQ(book.ClearAll(), kFault);
  EXPECT_EQ(TakeCalls().back(), "IMSPReadAB 512:D [|*|0] 512 1");
  EXPECT_EQ(book.ClearAll(), kNoError);
  std::uint32_t count = 7;
  EXPECT_EQ(book.SizeofTop(&count), kNoError);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(book.Attach(nullptr, 1), 1);
  EXPECT_EQ(book.ClearAll(), kRefused);
  EXPECT_EQ(book.SizeofTop(&count), kRefused);
}

}  // namespace
}  // namespace quillkit
