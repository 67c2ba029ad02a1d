// The set of soft keys and the server: loads, limits, searches, and what stands beside the two
// families of changes.

#include "softkeys/top_level_ab.h"

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/softkeys/panel.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kFault = 11;
constexpr Status kEarlier = 17;

// An appliance of the keys B, C and D, with the items of their panel loaded.
class TopLevelTest : public PanelTest {
 protected:
  TopLevelTest() {
    PutKey("B", {"one"});
    PutKey("C", {"two", "three"});
    PutKey("D", {});
    book.Load(1);
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  // A key of the application's own.
  CSoftKey& Key(const std::string& name) {
    key.Init(name, 1, &book);
    return key;
  }

  CSoftKey key;
};

// --- Loads ---

TEST_F(TopLevelTest, TwelveKeysAreOneTooMany) {
  for (const char* name : {"E", "F", "G", "H", "I", "J", "K", "L"}) PutKey(name, {});
  EXPECT_EQ(book.Load(0), kNoError);
  EXPECT_EQ(book.Count(), 11);
  PutKey("M", {});
  EXPECT_EQ(book.Load(0), kMoreData);
  EXPECT_EQ(book.Count(), 0);
}

TEST_F(TopLevelTest, LoadItemsProvesThatTheBookCanBeRead) {
  CSoftKey* second = book.KeyAt(1);
  second->RemoveItemAt(0);
  EXPECT_EQ(book.LoadItems("C"), second);
  EXPECT_EQ(second->ItemCount(), 1) << "the items read are dropped";
  EXPECT_THAT(TakeCalls(), ElementsAre(ReadCall("C")));
  PutKey("E", {"four"});
  EXPECT_EQ(book.LoadItems("E"), nullptr);
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(book.LoadItems("C"), nullptr);
}

// --- Changes ---

TEST_F(TopLevelTest, AtElevenCachedKeysNoneIsAddedAndNothingIsRecorded) {
  for (const char* name : {"E", "F", "G", "H", "I", "J", "K"}) PutKey(name, {});
  book.Load(0);
  EXPECT_EQ(book.FastKeyAdd(Key("L")), 11);
  TheAgent.SetError(kEarlier);
  TakeCalls();
  CMenuItem record;
  record.SetName("M");
  EXPECT_EQ(book.AddKey("M", true), kBookFull);
  EXPECT_EQ(book.AddKey(&record, true), kBookFull);
  EXPECT_EQ(book.FastKeyAdd(Key("M")), -1);
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  book.FastKeyRemove(Key("L"));
  EXPECT_EQ(book.AddKey(&record, false), kNoError) << "the limit is that of the cache";
}

TEST_F(TopLevelTest, AFastAddedKeyIsEmptyAndWorks) {
  EXPECT_EQ(book.FastKeyAdd(Key("A")), 4);
  CSoftKey* cached = book.KeyAt(3);
  EXPECT_NE(cached, &key);
  EXPECT_TRUE(cached->IsEmpty());
  CMenuItem item;
  item.SetName("new");
  EXPECT_EQ(cached->FastItemAdd(&item), 1);
  EXPECT_EQ(SimulatorBookSize(BookKind::kKeyItems, "A", nullptr), 1);
}

TEST_F(TopLevelTest, FastModifyHandsTheContentOver) {
  book.Load(0);  // keys without items have no owner
  CTopLevelAB other;
  key.Init("C", 1, &other);
  key.ItemAt(0)->SetName("mine");
  CSoftKey* cached = book.KeyAt(1);
  EXPECT_EQ(book.FastKeyModify(&key), 1);
  ASSERT_EQ(cached->ItemCount(), 1);
  EXPECT_EQ(cached->ItemAt(0)->name.View(), "mine");
  EXPECT_TRUE(key.IsEmpty());
  EXPECT_EQ(key.KeyName(), "C");
  EXPECT_EQ(book.FastKeyModify(cached), 1) << "itself";
  EXPECT_EQ(cached->ItemCount(), 1);
  CMenuItem item;
  item.SetName("more");
  EXPECT_EQ(cached->AddMenuItem(&item, false), kNoError) << "by its own book, not the other";
}

TEST_F(TopLevelTest, TakesCachedKeysAndTheirNames) {
  EXPECT_EQ(book.RenameSoftKeyByName("B", "none"), kRefused);
  EXPECT_EQ(book.RenameSoftKeyByName("B", "C"), 14);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 256:TOPAB B C"));
  EXPECT_EQ(book.FastKeyRemove(*book.KeyAt(1)), 2);
  EXPECT_EQ(book.DeleteKey(book.KeyAt(0)->KeyName(), true), kNoError);
  EXPECT_EQ(NamesOf(book), (Names{"D"}));
}

TEST_F(TopLevelTest, ANameThatIsTooLongGoesOutAsTheEmptyOne) {
  const std::string tooLong(32, 'x');
  EXPECT_NE(book.AddKey(tooLong, false), kNoError);
  EXPECT_EQ(book.FastKeyAdd(Key(tooLong)), -1);
  EXPECT_NE(book.DeleteKey(tooLong, false), kNoError);
  EXPECT_EQ(book.FastKeyRemove(Key(tooLong)), -1);
  EXPECT_NE(book.RenameSoftKey(tooLong, Key("A")), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateEntry 256:TOPAB \"\"",
                                       "IMSPCreateEntry 256:TOPAB \"\"", "IMSPDeleteAB 512:",
                                       "IMSPDeleteAB 512:", "IMSPModifyEntry 256:TOPAB \"\" A"));
}

// --- Searches and the rest ---

TEST_F(TopLevelTest, FindsKeysByNameAndKeepsTheLastHit) {
  book.KeyAt(0)->SetKeyName("AB");
  book.KeyAt(1)->SetKeyName("ABC");
  book.KeyAt(2)->SetKeyName("AB");
  EXPECT_EQ(book.Find("AB"), 0);
  EXPECT_EQ(book.Find("ab"), -1);
  EXPECT_EQ(book.KeyAt(-1), nullptr);
  EXPECT_EQ(book.KeyAt(3), nullptr);
  EXPECT_EQ(book.FindNextKey(false), 0) << "before any search it starts at 0";
  EXPECT_EQ(book.FindFirstKey("AB", false), 0);
  EXPECT_EQ(book.FindNextKey(false), 1);
  EXPECT_EQ(book.FindNextKey(true), 2);
  EXPECT_EQ(book.FindNextKey(false), 2) << "the end gives the previous hit";
  EXPECT_EQ(book.FindFirstKey("X", false), -1);
  EXPECT_EQ(book.FindNextKey(true), 0) << "after a miss it starts at 0, with the earlier pattern";
}

TEST_F(TopLevelTest, ClearAllLoadsWhatIsLeft) {
  SimulatorFail("IMSPClearAB", 1, kFault);
  EXPECT_EQ(book.ClearAll(), kFault);
  EXPECT_EQ(TakeCalls().back(), ReadCall("D"));
  EXPECT_EQ(book.ClearAll(), kNoError);
  std::uint32_t count = 7;
  EXPECT_EQ(book.SizeofTop(&count), kNoError);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(book.Attach(nullptr, 1), 1) << "what the load gave is dropped";
  EXPECT_EQ(book.ClearAll(), kRefused);
  EXPECT_EQ(book.SizeofTop(&count), kRefused);
}

}  // namespace
}  // namespace quillkit
