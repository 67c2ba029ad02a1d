// The page: search in it, the places of a short read, and what a read leaves.

#include "views/entry_page.h"

#include <initializer_list>

#include "books/email_ab.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"
#include "tests/views/generated_book.h"
#include "tests/views/view_probes.h"

namespace quillkit {
namespace {

void FillWith(CEntryPage& page, std::initializer_list<const char*> names) {
  page.Free();
  for (const char* each : names) page.Append(MakeEntry(each, "at"));
}

TEST(EntryPage, LocatesAKeyToThePage) {
  struct Case {
    std::initializer_list<const char*> names;
    const char* key;
    std::int32_t exact;
    int result;
    std::int32_t index;  // -7: as it was
  };
  const Case cases[] = {
      {{}, "a", 1, 0, -7},
      {{"aa", "ab1", "ab2", "ac"}, "ab", 0, 0, 1},
      {{"aa", "ab1", "ab2", "ac"}, "ab", 1, -1, -7},
      {{"aa", "ab1", "ab2"}, "ab", 0, 0, 2},  // the edge goes before what is inside
      {{"b", "c"}, "ab", 0, -1, -7},
      {{"a", "aa"}, "ab", 0, 1, -7},
      {{"aa", "ac"}, "ad", 1, 1, -7},
      {{"aa", "ac"}, "", 1, -1, -7},
      {{"aa", "ac"}, "ab", 2, -1, -7},  // only 1 compares whole names
      {{"a", "z", "\xE4"}, "\x80", 1, -1, -7},
  };
  for (const Case& each : cases) {
    CEntryPage page;
    FillWith(page, each.names);
    std::int32_t index = -7;
    EXPECT_EQ(page.Locate(each.key, &index, each.exact), each.result) << each.key << each.exact;
    EXPECT_EQ(index, each.index) << each.key << each.exact;
  }
}

TEST(EntryPage, WalksPastItsEndsAndBack) {
  CEntryPage page;
  EXPECT_EQ(page.First(), nullptr);
  FillWith(page, {"a", "b"});
  EXPECT_EQ(page.First(), page.At(0));
  EXPECT_EQ(page.Next(), page.At(1));
  EXPECT_EQ(page.Next(), nullptr);
  EXPECT_EQ(page.Next(), nullptr);
  EXPECT_EQ(page.Prev(), nullptr);
  EXPECT_EQ(page.Prev(), page.At(1));
}

TEST(EntryPage, ChangesEntriesInPlace) {
  CEntryPage page;
  FillWith(page, {"a", "b"});
  page.At(1)->flags = 5;
  EXPECT_EQ(page.UpdateAt(1, MakeEntry("c", "there")), 1);
  EXPECT_EQ(Shown(page), "2(a=at:0 c=there:0 )");
  CEmailEntry endless;
  std::memset(static_cast<void*>(&endless.name), 'x', sizeof endless.name);
  EXPECT_EQ(page.UpdateAt(0, endless), 0);
  std::int32_t index = -7;
  EXPECT_EQ(page.LinearFind("a", -5, &index, 1), 1);
  EXPECT_EQ(index, 0);
  EXPECT_EQ(page.LinearFind("a", 1, &index, 1), 0);
  EXPECT_EQ(page.FindName("c"), 1);
}

TEST_F(ApplianceTest, APageHasToBeAttachedAnewWhenItWasReadEmpty) {
  CEmailAB book;
  book.Attach(LogIn(), 0);
  PutBook(GeneratedBook(BookStyle::kOneLetter, 20));
  CEntryPage page;
  page.Attach(4, book.Entries());
  EXPECT_EQ(page.Count(), 4);
  EXPECT_EQ(page.Fill("n2", "", 1), kDataNotFound);
  EXPECT_TRUE(page.IsEmpty());
  EXPECT_EQ(TakeCalls().size(), 1U);
  EXPECT_EQ(page.Fill("", "", 1), kRefused);
  EXPECT_TRUE(TakeCalls().empty());
  page.Attach(4, book.Entries());
  EXPECT_EQ(page.Fill("n1003", "", 0), kNoError);
  EXPECT_EQ(page.Count(), 3);
  EXPECT_EQ(page.Skip(), 1);
  EXPECT_STREQ(page.At(0)->Name(), "n1000");
}

}  // namespace
}  // namespace quillkit
