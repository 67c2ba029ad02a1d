// The fax book: its entries in memory, its iteration and searches, and its stream form.

#include "tests/books/books_fixture.h"
#include "tests/support/stream_form.h"

namespace quillkit {
namespace {

class FaxBookTest : public BooksTest {
 public:
  FaxBookTest() {
    PutNames(BookKind::kFax, "", {"abc", "abd", "b"});
    book.Attach(box, 1);
    Start();
  }

  // The names of the entries in memory, each followed by a space.
  std::string Names() {
    std::string names;
    for (std::int32_t i = 0; i < book.EntryCount(); ++i) {
      names.append(book.EntryAt(i)->name.View()).append(" ");
    }
    return names;
  }

  CFaxAB& book = fax;
};

TEST_F(FaxBookTest, ReadsEntriesOnlyIfALoadIsRequested) {
  CFaxEntry late = MakeFax("late");
  EXPECT_EQ(book.FastRenameEntry("abd", &late), 1);
  EXPECT_EQ(book.RemoveEntryAt(0, 0), 1);
  EXPECT_EQ(book.RemoveEntryAt(2, 1), 0);
  EXPECT_EQ(book.Attach(box, 0), 1);
  EXPECT_EQ(book.Attach(nullptr, 1), 0);
  EXPECT_EQ(Names(), "late b ");
  EXPECT_EQ(TakeCalls().size(), 1U) << "only the rename calls the server";
}

TEST_F(FaxBookTest, IterationMovesPastItsEndsAndBack) {
  EXPECT_EQ(book.FirstEntry(), book.EntryAt(0));
  for (const std::int32_t next : {1, 2, 3, 4}) EXPECT_EQ(book.NextEntry(), book.EntryAt(next));
  for (const std::int32_t previous : {3, 2}) EXPECT_EQ(book.PrevEntry(), book.EntryAt(previous));
  EXPECT_EQ(book.FirstEntry(), book.EntryAt(0));
}

TEST_F(FaxBookTest, ASearchComparesWholeNamesInModeOneOnly) {
  EXPECT_EQ(book.FindFirstEntry("ab", 1), -1);
  EXPECT_EQ(book.FindFirstEntry("ab", 2), 0);
  EXPECT_EQ(book.FindNextEntry(1), -1);
  EXPECT_EQ(book.FindNextEntry(2), 1);
  EXPECT_EQ(book.FindEntryIndex("abd"), 1);
  EXPECT_EQ(book.FindEntryIndex("absent"), -1);
  EXPECT_EQ(book.FindNextEntry(0), 1) << "the search starts at index 1";
}

TEST(FaxEntryList, ABinarySearchFindsEveryEntryOfASortedList) {
  CFaxEntryList sorted;
  EXPECT_EQ(sorted.BinaryLookup("a", 0, 1), -1);
  for (const char* name : {"a", "c", "e", "gh"}) sorted.Append(MakeFax(name));
  for (std::int32_t i = 0; i < sorted.Count(); ++i) {
    EXPECT_EQ(sorted.BinaryLookup(sorted.At(i)->name.View(), 0, 1), i);
  }
  EXPECT_EQ(sorted.BinaryLookup("d", 0, 1), -1);
  EXPECT_EQ(sorted.BinaryLookup("gh", 3, 1), 3);
  EXPECT_EQ(sorted.BinaryLookup("a", -3, 1), 0);
  EXPECT_EQ(sorted.Lookup("a", -1, 1), -1);
  EXPECT_EQ(sorted.BinaryLookup("g", 0, 1), -1);
  EXPECT_EQ(sorted.BinaryLookup("g", 0, 2), 3);
}

TEST_F(FaxBookTest, StoresAsManyEntriesAsTheIterationHasPassed) {
  Put(BookKind::kFaxList, "Team", MakeFax("m", "12"));
  book.LoadLists(1);
  for (const std::int32_t passed : {2, 7}) {
    SCOPED_TRACE(testing::Message() << passed << " entries passed");
    book.FirstEntry();
    for (std::int32_t i = 0; i < passed; ++i) book.NextEntry();
    CFaxAB loaded;
    Load(loaded, Stored(book));
    ASSERT_EQ(loaded.EntryCount(), passed);
    EXPECT_EQ(loaded.EntryAt(1)->name, "abd");
    EXPECT_EQ(loaded.EntryAt(passed - 1)->IsBlank(), passed > 3)
        << "only entries after the third are blank";
    ASSERT_EQ(loaded.ListCount(), 1);
    EXPECT_EQ(loaded.ListAt(0)->GetAt(0)->number, "12");
  }
}

TEST_F(FaxBookTest, LoadsADamagedStreamWithinBounds) {
  using namespace std::literals;
  constexpr struct {
    std::string_view bytes;
    bool fails;
    const char* names;
    std::string_view stored;  // the position of the iteration, as it is stored afterwards
  } kCases[] = {
      {"\2\0\0\0\1a\1b\0"sv, true, "", "\0\0\0\0"sv},
      {"\2\0\0\0\1a\1b\0\1c\0"sv, true, "a c ", "\2\0\0\0"sv},
      {"\0\0\0\x80\0\0\0\0"sv, false, "abc abd b ", "\0\0\0\x80"sv},
  };
  for (const auto& each : kCases) {
    SCOPED_TRACE(testing::PrintToString(each.bytes));
    book.LoadEntries();
    EXPECT_EQ(Load(book, each.bytes).Failed(), each.fails);
    EXPECT_EQ(Names(), each.names);
    EXPECT_TRUE(Stored(book).starts_with(each.stored));
  }
  EXPECT_EQ(book.PrevEntry(), nullptr) << "the iteration does not move below its lowest position";
}

}  // namespace
}  // namespace quillkit
