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
    book_.Load(1);
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  // A key of the application's own.
  CSoftKey& Key(const std::string& name) {
    key_.Init(name, 1, &book_);
    return key_;
  }

  CSoftKey key_;
};

// --- Loads ---

TEST_F(TopLevelTest, TwelveKeysAreOneTooMany) {
  for (const char* name : {"E", "F", "G", "H", "I", "J", "K", "L"}) PutKey(name, {});
  EXPECT_EQ(book_.Load(0), kNoError);
  EXPECT_EQ(book_.Count(), 11);
  PutKey("M", {});
  EXPECT_EQ(book_.Load(0), kMoreData);
  EXPECT_EQ(book_.Count(), 0);
}

TEST_F(TopLevelTest, LoadItemsProvesThatTheBookCanBeRead) {
  CSoftKey* key = book_.KeyAt(1);
  key->RemoveItemAt(0);
  EXPECT_EQ(book_.LoadItems("C"), key);
  EXPECT_EQ(key->ItemCount(), 1) << "the items read are dropped";
  EXPECT_THAT(TakeCalls(), ElementsAre(ReadCall("C")));
  PutKey("E", {"four"});
  EXPECT_EQ(book_.LoadItems("E"), nullptr);
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(book_.LoadItems("C"), nullptr);
}

// --- Changes ---

TEST_F(TopLevelTest, AtElevenCachedKeysNoneIsAddedAndNothingIsRecorded) {
  for (const char* name : {"E", "F", "G", "H", "I", "J", "K"}) PutKey(name, {});
  book_.Load(0);
  EXPECT_EQ(book_.FastKeyAdd(Key("L")), 11);
  TheAgent.SetError(kEarlier);
  TakeCalls();
  CMenuItem record;
  record.SetName("M");
  EXPECT_EQ(book_.AddKey("M", true), kBookFull);
  EXPECT_EQ(book_.AddKey(&record, true), kBookFull);
  EXPECT_EQ(book_.FastKeyAdd(Key("M")), -1);
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  book_.FastKeyRemove(Key("L"));
  EXPECT_EQ(book_.AddKey(&record, false), kNoError) << "the limit is that of the cache";
}

TEST_F(TopLevelTest, AFastAddedKeyIsEmptyAndWorks) {
  EXPECT_EQ(book_.FastKeyAdd(Key("A")), 4);
  CSoftKey* cached = book_.KeyAt(3);
  EXPECT_NE(cached, &key_);
  EXPECT_TRUE(cached->IsEmpty());
  CMenuItem item;
  item.SetName("new");
  EXPECT_EQ(cached->FastItemAdd(&item), 1);
  EXPECT_EQ(SimulatorBookSize(BookKind::kKeyItems, "A", nullptr), 1);
}

TEST_F(TopLevelTest, FastModifyHandsTheContentOver) {
  book_.Load(0);  // keys without items have no owner
  CTopLevelAB other;
  key_.Init("C", 1, &other);
  key_.ItemAt(0)->SetName("mine");
  CSoftKey* cached = book_.KeyAt(1);
  EXPECT_EQ(book_.FastKeyModify(&key_), 1);
  ASSERT_EQ(cached->ItemCount(), 1);
  EXPECT_EQ(cached->ItemAt(0)->name.View(), "mine");
  EXPECT_TRUE(key_.IsEmpty());
  EXPECT_EQ(key_.KeyName(), "C");
  EXPECT_EQ(book_.FastKeyModify(cached), 1) << "itself";
  EXPECT_EQ(cached->ItemCount(), 1);
  CMenuItem item;
  item.SetName("more");
  EXPECT_EQ(cached->AddMenuItem(&item, false), kNoError) << "by its own book, not the other";
}

TEST_F(TopLevelTest, TakesCachedKeysAndTheirNames) {
  EXPECT_EQ(book_.RenameSoftKeyByName("B", "none"), kRefused);
  EXPECT_EQ(book_.RenameSoftKeyByName("B", "C"), 14);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPModifyEntry 256:TOPAB B C"));
  EXPECT_EQ(book_.FastKeyRemove(*book_.KeyAt(1)), 2);
  EXPECT_EQ(book_.DeleteKey(book_.KeyAt(0)->KeyName(), true), kNoError);
  EXPECT_EQ(NamesOf(book_), (Names{"D"}));
}

TEST_F(TopLevelTest, ANameThatIsTooLongGoesOutAsTheEmptyOne) {
  const std::string tooLong(32, 'x');
  EXPECT_NE(book_.AddKey(tooLong, false), kNoError);
  EXPECT_EQ(book_.FastKeyAdd(Key(tooLong)), -1);
  EXPECT_NE(book_.DeleteKey(tooLong, false), kNoError);
  EXPECT_EQ(book_.FastKeyRemove(Key(tooLong)), -1);
  EXPECT_NE(book_.RenameSoftKey(tooLong, Key("A")), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateEntry 256:TOPAB \"\"",
                                       "IMSPCreateEntry 256:TOPAB \"\"", "IMSPDeleteAB 512:",
                                       "IMSPDeleteAB 512:", "IMSPModifyEntry 256:TOPAB \"\" A"));
}

// --- Searches and the rest ---

TEST_F(TopLevelTest, FindsKeysByNameAndKeepsTheLastHit) {
  book_.KeyAt(0)->SetKeyName("AB");
  book_.KeyAt(1)->SetKeyName("ABC");
  book_.KeyAt(2)->SetKeyName("AB");
  EXPECT_EQ(book_.Find("AB"), 0);
  EXPECT_EQ(book_.Find("ab"), -1);
  EXPECT_EQ(book_.KeyAt(-1), nullptr);
  EXPECT_EQ(book_.KeyAt(3), nullptr);
  EXPECT_EQ(book_.FindNextKey(false), 0) << "before any search it starts at 0";
  EXPECT_EQ(book_.FindFirstKey("AB", false), 0);
  EXPECT_EQ(book_.FindNextKey(false), 1);
  EXPECT_EQ(book_.FindNextKey(true), 2);
  EXPECT_EQ(book_.FindNextKey(false), 2) << "the end gives the previous hit";
  EXPECT_EQ(book_.FindFirstKey("X", false), -1);
  EXPECT_EQ(book_.FindNextKey(true), 0) << "after a miss it starts at 0, with the earlier pattern";
}

TEST_F(TopLevelTest, ClearAllLoadsWhatIsLeft) {
  SimulatorFail("IMSPClearAB", 1, kFault);
  EXPECT_EQ(book_.ClearAll(), kFault);
  EXPECT_EQ(TakeCalls().back(), ReadCall("D"));
  EXPECT_EQ(book_.ClearAll(), kNoError);
  std::uint32_t count = 7;
  EXPECT_EQ(book_.SizeofTop(&count), kNoError);
  EXPECT_EQ(count, 0U);
  EXPECT_EQ(book_.Attach(nullptr, 1), 1) << "what the load gave is dropped";
  EXPECT_EQ(book_.ClearAll(), kRefused);
  EXPECT_EQ(book_.SizeofTop(&count), kRefused);
}

}  // namespace
}  // namespace quillkit
