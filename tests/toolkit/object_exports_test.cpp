// Keys and items in memory, through the exported functions that make no call.

#include <gtest/gtest.h>

#include <ostream>
#include <string>

#include "bridge/the_agent.h"
#include "tests/support/appliance_fixture.h"
#include "tests/toolkit/case_name.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::IsEmpty;

constexpr Status kEarlierError = 17;

// One text field of an item, as its two functions reach it.
struct TextField {
  const char* name;
  std::int32_t (*set)(CMenuItem*, const std::string&);
  const char* (*get)(CMenuItem*);
  std::size_t longest;
};

std::ostream& operator<<(std::ostream& out, const TextField& each) {
  return out << each.name;
}

class ItemText : public testing::TestWithParam<TextField> {};

TEST_P(ItemText, TakesWhatFitsAndRefusesWhatDoesNot) {
  const auto& [name, set, get, longest] = GetParam();
  CMenuItem* item = nullptr;
  ASSERT_EQ(CreateMenuItem(&item), 1);
  const char* const text = get(item);
  EXPECT_STREQ(text, "");
  const std::string full(longest, '\xE9');
  EXPECT_EQ(set(item, full), 1);
  EXPECT_EQ(text, full);  // the object's own storage, which changed
  EXPECT_EQ(set(item, full + "x"), 0);
  EXPECT_EQ(text, full);
  EXPECT_EQ(set(item, std::string("cut\0here", 8)), 1);
  EXPECT_STREQ(get(item), "cut");
  EXPECT_EQ(set(item, ""), 1);
  EXPECT_STREQ(get(item), "");
  DestroyMenuItem(item);
}

INSTANTIATE_TEST_SUITE_P(Fields, ItemText,
                         testing::Values(TextField{"Name", SetName, GetItemName, 31},
                                         TextField{"IPAddress", SetIPAddress, IPAddress, 255},
                                         TextField{"Path", SetPath, Path, 127},
                                         TextField{"AppTag", SetAppTag, AppTag, 127}),
                         CaseName<TextField>);

TEST(ItemWords, TakeAnyValue) {
  CMenuItem* item = nullptr;
  ASSERT_EQ(CreateMenuItem(&item), 1);
  for (const std::uint32_t value : {0xFFFFFFFFU, 1U, 0U}) {
    EXPECT_EQ(SetFileFormat(item, value), 1);
    EXPECT_EQ(SetSettings(item, ~value), 1);
    EXPECT_EQ(FileFormat(item), value);
    EXPECT_EQ(Settings(item), ~value);
  }
  DestroyMenuItem(item);
}

TEST(NullHandles, AreIgnoredByTheDestroyFunctions) {
  DestroyMenuItem(nullptr);
  DestroySoftKey(nullptr);
}

class KeyInMemory : public ApplianceTest {
 protected:
  KeyInMemory() {
    PutKey("Scan", {"ABC", "ABD", "X"});
    book_ = GetTopLevelAbook(LogIn());
    EXPECT_EQ(LoadTopLevelAbook(book_, 1), 0);
    key_ = GetKeyAt(book_, 0);
    TakeCalls();
    TheAgent.SetError(kEarlierError);
  }

  ~KeyInMemory() override {
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EXPECT_EQ(GetLastToolkitError(), kEarlierError);
  }

  CTopLevelAB* book_;
  CSoftKey* key_ = nullptr;
};

TEST_F(KeyInMemory, IsFoundByItsExactNameAndItsIndex) {
  EXPECT_EQ(FindSoftKeyIndex(book_, "Scan"), 0);
  EXPECT_EQ(FindSoftKeyIndex(book_, "SCAN"), -1);
  EXPECT_EQ(FindSoftKeyIndex(book_, "Sca"), -1);
  EXPECT_EQ(GetKeyAt(book_, -1), nullptr);
  EXPECT_EQ(GetKeyAt(book_, 1), nullptr);
  EXPECT_EQ(GetItemAt(key_, -1), nullptr);
  EXPECT_EQ(GetItemAt(key_, 3), nullptr);
}

TEST_F(KeyInMemory, IsSearchedByPrefixAndByWholeName) {
  EXPECT_EQ(FindNextItem(key_, 0), 1);  // a load leaves the search at its first item
  EXPECT_EQ(FindFirstItem(key_, "AB", 0), 0);
  EXPECT_EQ(FindNextItem(key_, 0), 1);
  EXPECT_EQ(FindNextItem(key_, 0), -1);
  EXPECT_EQ(FindNextItem(key_, 0), -1);
  EXPECT_EQ(FindFirstItem(key_, "AB", 1), -1);
  EXPECT_EQ(FindNextItem(key_, 0), 0);  // the pattern that hit before, from the start
  EXPECT_EQ(FindFirstItem(key_, "ABD", 1), 1);
  EXPECT_EQ(FindFirstItem(key_, "abd", 0), -1);
  EXPECT_EQ(FindFirstItem(key_, "", 0), 0);
  EXPECT_EQ(FindFirstItem(key_, "", 1), -1);
  EXPECT_EQ(FindMenuItemIndex(key_, GetItemAt(key_, 2)), 2);
}

TEST_F(KeyInMemory, IsChangedWithoutTheServer) {
  CMenuItem* item = nullptr;
  ASSERT_EQ(CreateMenuItem(&item), 1);
  SetName(item, "New");
  SetPath(item, "/new");
  SetSettings(item, 7);
  EXPECT_EQ(SetItemAt(key_, 3, item), 0);
  EXPECT_EQ(SetItemAt(key_, -1, item), 0);
  EXPECT_EQ(SetItemAt(key_, 1, item), 1);
  EXPECT_EQ(FindMenuItemIndex(key_, item), 1);
  EXPECT_STREQ(Path(GetItemAt(key_, 1)), "/new");
  EXPECT_EQ(Settings(GetItemAt(key_, 1)), 7U);
  DestroyMenuItem(item);

  EXPECT_EQ(RemoveItemAt(key_, 3), 0);
  EXPECT_EQ(RemoveItemAt(key_, -1), 0);
  EXPECT_EQ(RemoveItemAt(key_, 0), 1);
  EXPECT_STREQ(GetItemName(GetItemAt(key_, 0)), "New");
  EXPECT_EQ(RemoveItemAt(key_, 1), 1);
  EXPECT_EQ(IsSoftKeyEmpty(key_), 0);
  EXPECT_EQ(RemoveItemAt(key_, 0), 1);
  EXPECT_NE(IsSoftKeyEmpty(key_), 0);
  EXPECT_EQ(GetItemCount(key_), 0);
}

TEST_F(KeyInMemory, OfTheApplicationCarriesANameOfAnyLength) {
  const std::string name(1000, 'n');
  CSoftKey* carrier = nullptr;
  EXPECT_NE(CreateSoftKey(name, book_, &carrier), 0);
  EXPECT_EQ(GetKeyName(carrier), name);
  DestroySoftKey(carrier);

  EXPECT_EQ(CreateSoftKey(name, nullptr, &carrier), 0);
  ASSERT_NE(carrier, nullptr);
  EXPECT_STREQ(GetKeyName(carrier), "");
  EXPECT_EQ(GetItemCount(carrier), 0);
  DestroySoftKey(carrier);
}

}  // namespace
}  // namespace quillkit
