// A soft key's cache, for which nobody asks the server: items, searches, the stream form.

#include <gtest/gtest.h>

#include <cstring>
#include <initializer_list>
#include <string>
#include <string_view>

#include "base/archive.h"
#include "softkeys/soft_key.h"
#include "softkeys/top_level_ab.h"

namespace quillkit {
namespace {

using namespace std::literals;

class SoftKeyCache : public testing::Test {
 protected:
  // Makes the key one with items of these names.
  void Fill(std::initializer_list<std::string_view> names) {
    key.Init("Scan", static_cast<std::int32_t>(names.size()), &book);
    std::int32_t index = 0;
    for (const std::string_view each : names) key.ItemAt(index++)->SetName(each);
  }

  CTopLevelAB book;
  CSoftKey key;
};

TEST_F(SoftKeyCache, ANewKeyHoldsAsManyBlankItemsAsItHasRoomFor) {
  EXPECT_EQ(key.Init("Scan", MaxKeyItems, nullptr), 0);
  EXPECT_EQ(key.KeyName(), "");
  EXPECT_TRUE(key.IsEmpty());

  const std::string longName(100, 'n');
  EXPECT_EQ(key.Init(longName, MaxKeyItems, &book), 1);
  EXPECT_EQ(key.KeyName(), longName);
  EXPECT_EQ(key.ItemCount(), 512);
  EXPECT_TRUE(key.ItemAt(511)->name.IsEmpty());

  EXPECT_EQ(key.Init("Scan", 0, &book), 0);
  EXPECT_EQ(key.KeyName(), "Scan") << "without a block, but it is the key";
  EXPECT_EQ(key.SetKeyName(std::string(32, 'n')), 0);
  EXPECT_EQ(key.KeyName(), "Scan");
}

TEST_F(SoftKeyCache, ItemsAreReplacedAndRemovedByIndex) {
  Fill({"A", "B"});
  CMenuItem item;
  item.SetAll("X", "path", "tag", "address", 1, 2);
  EXPECT_EQ(key.SetItemAt(1, item), 1);
  EXPECT_EQ(key.ItemAt(1)->appTag.View(), "tag");
  EXPECT_EQ(key.ItemAt(1)->fileFormat, 2U);
  for (const std::int32_t index : {-1, 2}) {
    EXPECT_EQ(key.SetItemAt(index, item), 0);
    EXPECT_EQ(key.RemoveItemAt(index), 0);
    EXPECT_EQ(key.ItemAt(index), nullptr);
  }
  EXPECT_EQ(key.RemoveItemAt(0), 1);
  EXPECT_EQ(key.ItemAt(0)->name.View(), "X");

  // An item whose text does not end updates what stands before that text.
  item.SetAll("Y", "other", "", "", 7, 8);
  std::memset(static_cast<void*>(&item.path), 'x', sizeof item.path);
  EXPECT_EQ(key.SetItemAt(0, item), 0);
  EXPECT_EQ(key.ItemAt(0)->name.View(), "Y");
  EXPECT_EQ(key.ItemAt(0)->path.View(), "path");
  EXPECT_EQ(key.ItemAt(0)->settings, 1U);
}

// --- Searches ---

TEST_F(SoftKeyCache, ANextSearchTakesItsOwnFlagAndTheLastPatternThatHit) {
  Fill({"AB", "ABC", "AB", "X"});
  EXPECT_EQ(key.FindFirstItem("AB", false), 0);
  EXPECT_EQ(key.FindNextItem(true), 2);
  EXPECT_EQ(key.FindNextItem(false), -1);
  EXPECT_EQ(key.FindFirstItem("none", false), -1);
  EXPECT_EQ(key.FindNextItem(true), 0) << "a miss lets it start at 0, with the earlier pattern";

  CSoftKey fresh;
  EXPECT_EQ(fresh.FindNextItem(false), -1);
  fresh.Init("Scan", 3, &book);
  EXPECT_EQ(fresh.FindNextItem(true), 1) << "without a first search, at the second item";
}

// --- The stream form ---

const std::string kItem = "\1I\1P\1A\1T\1\0\0\0\2\0\0\0"s;

TEST_F(SoftKeyCache, StoresNoItems) {
  Fill({"A", "B"});
  key.FindFirstItem("B", true);
  std::string bytes;
  Archive storing(&bytes);
  key.Serialize(storing);
  EXPECT_EQ(bytes, "\0\0\0\0\1B"s);
  EXPECT_EQ(key.ItemCount(), 0);
}

TEST_F(SoftKeyCache, LoadsItsPatternAndItsItems) {
  Fill({"A", "B", "C"});
  key.FindFirstItem("C", true);
  const std::string bytes = "\2\0\0\0\1I"s + kItem + kItem + "rest"s;
  Archive loading{std::string_view(bytes)};
  key.Serialize(loading);
  EXPECT_EQ(key.ItemCount(), 2);
  EXPECT_EQ(key.ItemAt(1)->path.View(), "P");
  EXPECT_EQ(key.FindNextItem(true), 1) << "the walk begins anew";
  EXPECT_EQ(key.KeyName(), "Scan");
  EXPECT_EQ(loading.Remaining(), 4U);
}

}  // namespace
}  // namespace quillkit
