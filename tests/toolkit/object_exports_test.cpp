// Keys and items in memory, through the exported functions that change nothing on the server.

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr Status kEarlierError = 17;

TEST(ItemExports, EachReachesItsOwnField) {
  CMenuItem* item = nullptr;
  ASSERT_EQ(CreateMenuItem(&item), 1);
  const char* const name = GetItemName(item);
  EXPECT_STREQ(name, "");
  EXPECT_EQ(SetName(item, std::string("name\0cut", 8)), 1);
  EXPECT_EQ(SetIPAddress(item, "address"), 1);
  EXPECT_EQ(SetPath(item, "path"), 1);
  EXPECT_EQ(SetAppTag(item, "tag"), 1);
  EXPECT_EQ(SetFileFormat(item, 0xFFFFFFFF), 1);
  EXPECT_EQ(SetSettings(item, 7), 1);
  EXPECT_EQ(SetPath(item, std::string(128, 'x')), 0);
  EXPECT_STREQ(name, "name") << "the object's own storage, which changed";
  EXPECT_STREQ(IPAddress(item), "address");
  EXPECT_STREQ(Path(item), "path");
  EXPECT_STREQ(AppTag(item), "tag");
  EXPECT_EQ(FileFormat(item), 0xFFFFFFFFU);
  EXPECT_EQ(Settings(item), 7U);
  DestroyMenuItem(item);
  DestroyMenuItem(nullptr);
}

class KeyExports : public ApplianceTest {
 protected:
  KeyExports() {
    PutKey("Scan", {"ABC", "ABD", "X"});
    book_ = GetTopLevelAbook(LogIn());
    EXPECT_EQ(LoadTopLevelAbook(book_, 1), 0);
    key_ = GetKeyAt(book_, 0);
    TakeCalls();
    TheAgent.SetError(kEarlierError);
  }

  CTopLevelAB* book_;
  CSoftKey* key_;
};

TEST_F(KeyExports, LookAtAndChangeMemoryAlone) {
  EXPECT_EQ(FindSoftKeyIndex(book_, "Scan"), 0);
  EXPECT_EQ(FindSoftKeyIndex(book_, "Sca"), -1);
  EXPECT_EQ(FindFirstItem(key_, "AB", 1), -1);
  EXPECT_EQ(FindFirstItem(key_, "AB", 0), 0);
  EXPECT_EQ(FindNextItem(key_, 1), -1);
  EXPECT_EQ(FindFirstItem(key_, "AB", 0), 0);
  EXPECT_EQ(FindNextItem(key_, 0), 1);

  EXPECT_EQ(SetItemAt(key_, 1, GetItemAt(key_, 2)), 1);
  EXPECT_EQ(FindMenuItemIndex(key_, GetItemAt(key_, 2)), 1);
  EXPECT_EQ(RemoveItemAt(key_, 3), 0);
  EXPECT_EQ(RemoveItemAt(key_, 0), 1);
  EXPECT_STREQ(GetItemName(GetItemAt(key_, 0)), "X");
  EXPECT_EQ(GetItemCount(key_), 2);
  EXPECT_EQ(IsSoftKeyEmpty(key_), 0);
  EXPECT_THAT(TakeCalls(), testing::IsEmpty());
  EXPECT_EQ(GetLastToolkitError(), kEarlierError);
}

TEST_F(KeyExports, LoadItemsProvesThatAKeyCanBeRead) {
  EXPECT_EQ(LoadItems(book_, "Scan"), key_);
  EXPECT_THAT(TakeCalls(), testing::ElementsAre("IMSPReadAB 512:Scan [|*|0] 512 1"));
}

TEST_F(KeyExports, MakeAKeyThatCountsAsFullUntilItIsRead) {
  const std::string name(1000, 'n');
  CSoftKey* key = nullptr;
  EXPECT_EQ(CreateSoftKey(name, book_, &key), 1);
  EXPECT_EQ(GetKeyName(key), name);
  EXPECT_EQ(GetItemCount(key), 512);
  DestroySoftKey(key);
  EXPECT_EQ(CreateSoftKey(name, nullptr, &key), 0);
  ASSERT_NE(key, nullptr);
  EXPECT_EQ(IsSoftKeyEmpty(key), 1);
  DestroySoftKey(key);
  DestroySoftKey(nullptr);
}

}  // namespace
}  // namespace quillkit
