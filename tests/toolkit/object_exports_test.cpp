// Items and keys of the application, through the exported functions.

#include <gtest/gtest.h>

#include <string>

#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

TEST(ItemExports, SetNameChangesTheStorageThatGetItemNameReturned) {
  CMenuItem* item = nullptr;
  ASSERT_EQ(CreateMenuItem(&item), 1);
  const char* const name = GetItemName(item);
  EXPECT_EQ(SetName(item, std::string("name\0cut", 8)), 1);
  EXPECT_STREQ(name, "name");
  EXPECT_EQ(SetPath(item, std::string(128, 'x')), 0);
  DestroyMenuItem(item);
  DestroyMenuItem(nullptr);
}

using KeyExports = ApplianceTest;

TEST_F(KeyExports, ACreatedKeyWithABookCountsAsFullUntilItIsRead) {
  const std::string name(1000, 'n');
  CSoftKey* made = nullptr;
  EXPECT_EQ(CreateSoftKey(name, GetTopLevelAbook(LogIn()), &made), 1);
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
