// 11 keys and 512 items: at the limit and one beyond, in both families, in memory and on the
// server.

#include <gtest/gtest.h>

#include <cstdio>
#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::int32_t kMostKeys = 11;
constexpr std::int32_t kMostItems = 512;
constexpr Status kEarlierError = 17;

class Limits : public ApplianceTest {
 protected:
  static std::string Numbered(const char* word, std::int32_t number) {
    char text[32];
    std::snprintf(text, sizeof text, "%s %03d", word, static_cast<int>(number));
    return text;
  }

  // Puts a key of that many items on the server.
  static void PutItems(const char* key, std::int32_t count) {
    PutKey(key, {});
    for (std::int32_t i = 0; i < count; ++i) PutItem(key, i);
  }

  static void PutItem(const char* key, std::int32_t number) {
    CMenuItem item;
    item.SetName(Numbered("Item", number));
    SimulatorPutEntry(BookKind::kKeyItems, key, nullptr, &item);
  }

  // Logs in, loads the keys, and forgets calls and error.
  void Load(Status expected) {
    book_ = GetTopLevelAbook(LogIn());
    EXPECT_EQ(LoadTopLevelAbook(book_, 1), expected);
    TakeCalls();
    TheAgent.SetError(kEarlierError);
  }

  CTopLevelAB* book_ = nullptr;
};

TEST_F(Limits, AKeyInMemoryTakesItemsUpTo512) {
  PutItems("Full", kMostItems - 1);
  Load(0);
  CSoftKey* key = GetKeyAt(book_, 0);
  ASSERT_EQ(GetItemCount(key), kMostItems - 1);
  CMenuItem item;
  item.SetName("Last");
  EXPECT_EQ(FastItemAdd(key, &item), kMostItems);
  EXPECT_EQ(GetLastToolkitError(), 0);
  EXPECT_STREQ(GetItemName(GetItemAt(key, kMostItems - 1)), "Last");
  TakeCalls();

  item.SetName("Over");
  EXPECT_EQ(FastItemAdd(key, &item), -1);
  EXPECT_EQ(GetLastToolkitError(), 24);
  EXPECT_EQ(GetItemCount(key), kMostItems);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(Limits, APlainAddLeavesTheLimitToTheServerAndToTheReload) {
  PutItems("Full", kMostItems - 1);
  Load(0);
  CSoftKey* key = GetKeyAt(book_, 0);
  CMenuItem item;
  item.SetName("Last");
  EXPECT_EQ(AddMenuItem(key, &item, 1), 0);
  EXPECT_EQ(GetItemCount(key), kMostItems);

  item.SetName("Over");
  EXPECT_EQ(AddMenuItem(key, &item, 0), 0);
  EXPECT_EQ(GetItemCount(key), kMostItems);
  EXPECT_EQ(ModifyMenuItem(key, &item, 1), 21);
  EXPECT_EQ(GetLastToolkitError(), 21);
  EXPECT_EQ(GetItemCount(key), kMostItems);
}

TEST_F(Limits, AKeyOfTheApplicationCountsAsFullUntilItIsRead) {
  PutKey("Scan", {"Desk"});
  Load(0);
  CSoftKey* key = nullptr;
  ASSERT_NE(CreateSoftKey("Scan", book_, &key), 0);
  CMenuItem item;
  item.SetName("Mail");
  EXPECT_EQ(GetItemCount(key), kMostItems);
  EXPECT_EQ(IsSoftKeyEmpty(key), 0);
  EXPECT_STREQ(GetItemName(GetItemAt(key, kMostItems - 1)), "");
  EXPECT_EQ(FastItemAdd(key, &item), -1);
  EXPECT_EQ(GetLastToolkitError(), 24);
  EXPECT_EQ(AddMenuItem(key, &item, 1), 0);
  EXPECT_EQ(GetItemCount(key), 2);
  DestroySoftKey(key);
}

TEST_F(Limits, APanelInMemoryTakesKeysUpTo11) {
  for (std::int32_t i = 0; i < kMostKeys - 2; ++i) PutKey(Numbered("Key", i), {});
  Load(0);
  EXPECT_EQ(AddKey(book_, "Next", 1), 0);
  CSoftKey* last = nullptr;
  ASSERT_NE(CreateSoftKey("Last", book_, &last), 0);
  EXPECT_EQ(FastKeyAdd(book_, last), kMostKeys);

  TakeCalls();
  TheAgent.SetError(kEarlierError);
  EXPECT_EQ(AddKey(book_, "Over", 1), 24);
  EXPECT_EQ(FastKeyAdd(book_, last), -1);
  EXPECT_EQ(GetLastToolkitError(), kEarlierError);
  EXPECT_EQ(GetCount(book_), kMostKeys);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  DestroySoftKey(last);
}

TEST_F(Limits, AServerWithMoreThan11KeysShowsNone) {
  for (std::int32_t i = 0; i <= kMostKeys; ++i) PutKey(Numbered("Key", i), {"Item"});
  Load(21);
  EXPECT_EQ(GetCount(book_), 0);
  EXPECT_EQ(FindSoftKeyIndex(book_, "Key 000"), -1);

  // Memory does not know that the server is full: the server is asked, and the reload tells.
  EXPECT_EQ(AddKey(book_, "Over", 0), 0);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPCreateEntry 256:TOPAB Over"));
  EXPECT_EQ(DeleteKey(book_, "Over", 1), 21);
}

}  // namespace
}  // namespace quillkit
