// The entry page: rules that the random walks of the views do not test.

#include "views/entry_page.h"

#include "tests/views/view_walk.h"

namespace quillkit {
namespace {

TEST(EntryPage, IterationMovesPastItsEndsAndBack) {
  CEntryPage page;
  page.Allocate(2);
  EXPECT_EQ(page.First(), page.At(0));
  for (CEmailEntry* next : {page.At(1), page.At(2), page.At(3)}) EXPECT_EQ(page.Next(), next);
  for (CEmailEntry* prev : {page.At(2), page.At(1)}) EXPECT_EQ(page.Prev(), prev);
  page.Clear();
  for (CEmailEntry* each : {page.First(), page.Next(), page.Prev()}) EXPECT_EQ(each, nullptr);
  page.Resize(2);
  EXPECT_EQ(page.Prev(), page.At(0)) << "an empty page keeps its position";
}

TEST(EntryPage, OnlyModeOneComparesWholeNamesAndAnUpdateClearsTheFlags) {
  CEntryPage page;
  std::int32_t index = -7;
  EXPECT_EQ(page.Locate("ab", &index, 1), 0) << "nothing is found in an empty page";
  for (const char* each : {"aa", "ab1", "ac"}) page.Append(MakeEntry(each));
  EXPECT_EQ(page.Locate("ab", &index, 1), -1);
  EXPECT_EQ(page.LinearFind("aa", 1, &index, 1), 0);
  EXPECT_EQ(index, -7) << "without a hit no index is stored";
  EXPECT_EQ(page.Locate("ab", &index, 2), 0) << "only mode 1 compares whole names";
  EXPECT_EQ(index, 1);
  EXPECT_EQ(page.LinearFind("aa", -5, &index, 1), 1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(page.FindName("a"), -1);
  EXPECT_EQ(page.FindName("aa"), 0);
  page.At(1)->flags = 5;
  EXPECT_EQ(page.UpdateAt(1, MakeEntry("c", "there")), 1);
  EXPECT_EQ(Result(page.At(1)).text, "c=there:0");
  EXPECT_EQ(page.UpdateAt(3, MakeEntry("c")), 0);
  CEmailEntry endless;
  std::memset(static_cast<void*>(&endless.name), 'x', sizeof endless.name);
  EXPECT_EQ(page.UpdateAt(0, endless), 0);
  EXPECT_EQ(page.Fill("", "", 1), kRefused) << "a page without a book is not filled";
}

}  // namespace
}  // namespace quillkit
