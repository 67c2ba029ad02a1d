// Keys and items in memory, through the exported functions that change nothing on the server.

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

constexpr Status kEarlierError = 17;

TEST(ItemExports, EachFunctionAccessesItsOwnField) {
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
  EXPECT_STREQ(name, "name")
      << "GetItemName returns the storage of the item, which SetName changed";
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
    book = GetTopLevelAbook(LogIn());
    EXPECT_EQ(LoadTopLevelAbook(book, 1), 0);
    key = GetKeyAt(book, 0);
    EXPECT_EQ(LoadItems(book, "Scan"), key);
    TakeCalls();
    TheAgent.SetError(kEarlierError);
  }

  CTopLevelAB* book;
  CSoftKey* key;
};

TEST_F(KeyExports, SearchAndChangeMemoryWithoutACall) {
  EXPECT_EQ(FindSoftKeyIndex(book, "Scan"), 0);
  EXPECT_EQ(FindSoftKeyIndex(book, "Sca"), -1);
  EXPECT_EQ(FindFirstItem(key, "AB", 1), -1);
  EXPECT_EQ(FindFirstItem(key, "AB", 0), 0);
  EXPECT_EQ(FindNextItem(key, 1), -1);
  EXPECT_EQ(FindFirstItem(key, "AB", 0), 0);
  EXPECT_EQ(FindNextItem(key, 0), 1);

  EXPECT_EQ(SetItemAt(key, 1, GetItemAt(key, 2)), 1);
  EXPECT_EQ(FindMenuItemIndex(key, GetItemAt(key, 2)), 1);
  EXPECT_EQ(RemoveItemAt(key, 3), 0);
  EXPECT_EQ(RemoveItemAt(key, 0), 1);
  EXPECT_STREQ(GetItemName(GetItemAt(key, 0)), "X");
  EXPECT_EQ(GetItemCount(key), 2);
  EXPECT_EQ(IsSoftKeyEmpty(key), 0);
  EXPECT_THAT(TakeCalls(), testing::IsEmpty());
  EXPECT_EQ(GetLastToolkitError(), kEarlierError);
}

TEST_F(KeyExports, ACreatedKeyWithABookCountsAsFullUntilItIsRead) {
  const std::string name(1000, 'n');
  CSoftKey* made = nullptr;
  EXPECT_EQ(CreateSoftKey(name, book, &made), 1);
  EXPECT_EQ(GetKeyName(made), name);
  EXPECT_EQ(GetItemCount(made), 512);
  DestroySoftKey(made);
  EXPECT_EQ(CreateSoftKey(name, nullptr, &made), 0);
  ASSERT_NE(made, nullptr);
  EXPECT_EQ(IsSoftKeyEmpty(made), 1);
  DestroySoftKey(made);
  DestroySoftKey(nullptr);
}

}  // namespace
}  // namespace quillkit
