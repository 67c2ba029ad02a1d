// The public e-mail book: opening it, what it passes to its view, its lists, and a second handle.

#include <functional>
#include <memory>

#include "books/email_ab_handle.h"
#include "tests/books/books_fixture.h"
#include "views/entry_view.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// The names of the entries that each operation of the navigation returns, "-" for null.
template <class Book>
std::vector<std::string> Tour(Book& book) {
  std::vector<std::string> names;
  for (const std::function<CEmailEntry*()>& step : std::vector<std::function<CEmailEntry*()>>{
           [&] { return book.First(); }, [&] { return book.Next(); }, [&] { return book.Prev(); },
           [&] { return book.Last(); }, [&] { return book.GetAt(1); },
           [&] { return book.FindPrefix("Bo"); }, [&] { return book.FindNextPrefix(); },
           [&] { return book.Find("Bo", 0); }, [&] { return book.FindNext(0); },
           [&] { return book.FindPrev(0); }, [&] { return book.FindLetter('B'); }}) {
    const CEmailEntry* entry = step();
    names.emplace_back(entry != nullptr ? entry->Name() : "-");
  }
  return names;
}

const std::vector<std::string> kNothing(11, "-");

class EmailBookTest : public BooksTest {
 public:
  EmailBookTest() {
    PutNames(BookKind::kEmail, "", {"Ann", "Bob", "Bo"});
    PutNames(BookKind::kPublicList, "Board", {"Ann", "Zoe"});
    PutNames(BookKind::kPublicList, "Choir", {"Bob"});
  }

  CEmailAB& book = email;
};

TEST_F(EmailBookTest, TheViewModeSelectsTheViewAndOnlyASlidingViewHasAPageSize) {
  EXPECT_NE(dynamic_cast<CSlidingEntryView*>(book.View()), nullptr);
  EXPECT_EQ(book.SetPageSize(8), 8);
  EXPECT_EQ(book.SetPageSize(0), -1);
  EXPECT_EQ(book.GetPageSize(), 16);
  EXPECT_EQ(CEmailAB().SetPageSize(8), 8);
  EXPECT_EQ(book.Attach(box, 1), 1);
  EXPECT_NE(dynamic_cast<CLetterEntryView*>(book.View()), nullptr);
  EXPECT_EQ(book.SetPageSize(8), -1);
  EXPECT_EQ(book.Attach(box, -3), 1);
  EXPECT_NE(dynamic_cast<CFullEntryView*>(book.View()), nullptr);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(book.Attach(box, 2), 0);
  const CEntryView* view = book.View();
  EXPECT_EQ(book.Attach(nullptr, 0), 0);
  EXPECT_EQ(book.View(), view);
}

TEST_F(EmailBookTest, PassesNavigationAndChangesToTheView) {
  EXPECT_THAT(Tour(book),
              ElementsAre("Ann", "Bo", "Ann", "Bob", "Bo", "Bo", "Bob", "Bo", "Bob", "Bo", "Bo"));
  EXPECT_EQ(book.FirstLetter(), 'A');
  EXPECT_EQ(book.NextLetter('A'), 'B');
  EXPECT_EQ(book.LetterStart('B'), 1);
  char letter = '?';
  EXPECT_EQ(book.LetterOfIndex(2, &letter), 1);
  CEmailEntry entry = MakeEntry("Bo", "new");
  EXPECT_EQ(book.Modify(&entry, 1), kNoError);
  EXPECT_STREQ(book.Find("Bo", 0)->Address(), "new");
}

TEST_F(EmailBookTest, AFailedReadThatDeliversNothingLeavesBlankEntriesInTheSpan) {
  book.First();
  SimulatorSetDefects(kDefectFailedCount);
  SimulatorFail("IMSPReadAB", 0, kFault);
  EXPECT_EQ(book.Find("Bo", 1), nullptr);
  ASSERT_NE(book.Next(), nullptr);
  EXPECT_TRUE(book.Prev()->IsBlank());
  EXPECT_TRUE(book.Next()->IsBlank());
}

TEST_F(EmailBookTest, OnlyViewModeTwoChangesEntriesInPlace) {
  for (const std::int32_t mode : {0, 1, 2, 7}) {
    SCOPED_TRACE(testing::Message() << "view mode " << mode);
    book.Attach(box, mode);
    const bool isEditable = mode == 2;
    CEmailEntry entry = MakeEntry("Cy");
    EXPECT_EQ(book.AddLocal(&entry), isEditable ? 4 : -1);
    EXPECT_EQ(book.ModifyLocal(&entry), isEditable ? 1 : 0);
    EXPECT_EQ(book.ModifyLocalByKey("Cy", &entry), isEditable ? 1 : 0);
    EXPECT_EQ(book.RemoveLocal(&entry), isEditable ? 3 : -1);
  }
}

TEST_F(EmailBookTest, ReadsItsFirstAndLastEntryWithoutMovingTheView) {
  CEmailEntry entry;
  book.First();
  Start();
  EXPECT_EQ(book.ReadFirstEntry(&entry), kNoError);
  EXPECT_STREQ(entry.Name(), "Ann");
  EXPECT_EQ(book.ReadLastEntry(&entry), kNoError);
  EXPECT_STREQ(entry.Name(), "Bob");
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPReadPageBoundaries 1:EMAILAB 128",
                          "IMSPReadAB 1:EMAILAB [|A*|0] 1 1", "IMSPReadAB 1:EMAILAB [|B*|1] 1 1"));
  EXPECT_STREQ(book.Next()->Name(), "Bo");
  for (int i = 1; i <= 130; ++i) {
    PutNames(BookKind::kEmail, "", {std::string(1, static_cast<char>(i)) + "x"});
  }
  book.Attach(box, 0);
  EXPECT_EQ(book.ReadLastEntry(&entry), kNoError);
  EXPECT_STREQ(entry.Name(), "\x80x") << "the census lists 128 letters at most";
  box->ClearEmailBook();
  EXPECT_EQ(book.ReadFirstEntry(&entry), kDataNotFound) << "the letter is still in the census";
  book.Attach(box, 0);
  EXPECT_EQ(book.ReadFirstEntry(&entry), kDataNotFound) << "the census has no letters";
}

TEST_F(EmailBookTest, AcceptsUpTo200000Entries) {
  CEmailEntry entry = MakeEntry("Cy");
  SimulatorInflateSizes(199'997);
  EXPECT_EQ(book.AddEntry(&entry), kBookFull);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 1:EMAILAB -"));
  EXPECT_EQ(TheAgent.LastError(), kNoError) << "a full book does not set the last error";
  SimulatorInflateSizes(199'996);
  EXPECT_EQ(book.AddEntry(&entry), kNoError);
}

TEST_F(EmailBookTest, RefusesTextsThatAreTooLong) {
  EXPECT_EQ(book.CreateMemberAddress("Board", std::string(32, 'n'), "at"), kRefused);
  EXPECT_EQ(book.CreateMemberAddress("Board", "n", std::string(256, 'a')), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(EmailBookTest, ReadsTheCensusOfTheSessionWithoutAScanner) {
  PageBoundary table[2];
  std::uint32_t rows = 2;
  EXPECT_EQ(CEmailAB().ReadBoundaries(nullptr, &rows), kRefused);
  EXPECT_EQ(CEmailAB().ReadBoundaries(table, &rows), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadPageBoundaries 1:EMAILAB 2"));
}

TEST_F(EmailBookTest, ClearingOpensANewViewAndDeletingDropsTheViewAndTheLists) {
  book.LoadLists(0);
  book.Attach(box, 2);
  EXPECT_EQ(book.ClearBook(), kNoError);
  EXPECT_EQ(book.First(), nullptr);
  SimulatorFail("IMSPDeleteAB", 1, kFault);
  EXPECT_EQ(book.DeleteBook(), kFault);
  EXPECT_EQ(book.ListCount(), 0);
  EXPECT_EQ(book.View(), nullptr);
  EXPECT_EQ(book.DeleteList("Board"), 0) << "the list need not be in memory";
}

TEST_F(EmailBookTest, LoadsListsWithoutMembersIfNoneAreRequested) {
  EXPECT_EQ(book.LoadLists(0), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPListAB 64: [|*|0] 512 1"));
  ASSERT_EQ(book.ListCount(), 2);
  EXPECT_EQ(book.ListAt(1)->Name(), "Choir");
  EXPECT_EQ(book.ListAt(1)->Book(), nullptr);
}

TEST_F(EmailBookTest, FindNextListContinuesAfterTheLastHit) {
  for (const char* name : {"ab", "abc", "abd"}) PutNames(BookKind::kPublicList, name, {"Ann"});
  book.LoadLists(0);  // Board Choir ab abc abd
  const auto found = [this](int result) {
    return result == 0 && book.FoundList() != nullptr ? book.FoundList()->Name() : "-";
  };
  EXPECT_EQ(found(book.FindNextList(0)), "-") << "no list is found before a first search";
  EXPECT_EQ(found(book.FindFirstList("ab", 1)), "ab");
  EXPECT_EQ(found(book.FindNextList(0)), "abc");
  EXPECT_EQ(found(book.FindFirstList("x", 0)), "-");
  EXPECT_EQ(found(book.FindNextList(0)), "-");
  EXPECT_EQ(found(book.FindFirstList("ab", 0)), "ab");
  EXPECT_EQ(book.RemoveListAt(3), 1);
  EXPECT_EQ(found(book.FindNextList(0)), "abd");
  EXPECT_EQ(book.RemoveListAt(3), 1);
  EXPECT_EQ(book.FoundList(), nullptr) << "no list is found after its removal";
  EXPECT_EQ(book.RemoveListAt(3), 0);
  EXPECT_EQ(book.FindList("ab")->Name(), "ab");
  EXPECT_EQ(book.FindList("a"), nullptr);
}

TEST_F(EmailBookTest, ReplacesAListAndReleasesTheOldOne) {
  book.LoadLists(0);
  const std::unique_ptr<CPubEmailDL> old(book.ListAt(1));
  auto* list = new CPubEmailDL;
  EXPECT_EQ(book.SetListAt(2, list), -1);
  EXPECT_EQ(book.SetListAt(-1, list), -1);
  EXPECT_EQ(book.SetListAt(1, nullptr), -1);
  EXPECT_EQ(book.SetListAt(1, list), 0);
  EXPECT_EQ(book.ListAt(1), list);
  EXPECT_EQ(book.ListAt(2), nullptr);
  EXPECT_EQ(old->Name(), "Choir");
}

TEST_F(EmailBookTest, TheLoadModeSelectsWhatIsOpenedAndWhatAHandleAccesses) {
  constexpr struct {
    std::int32_t viewMode, loadMode, result, pageSize, lists;
  } kCases[] = {
      {0, 0, 1, 1, 2}, {1, 0, 1, 0, 2}, {1, 1, 1, 0, 2}, {7, 2, 1, 0, 0}, {0, 3, 0, 0, 0}};
  for (const auto& each : kCases) {
    SCOPED_TRACE(testing::Message() << "view " << each.viewMode << ", load " << each.loadMode);
    const bool hasEntries = each.loadMode % 2 == 0;
    const bool hasLists = each.lists != 0;
    book.Attach(box, each.viewMode);
    CEmailABHandle handle;
    EXPECT_EQ(handle.Attach(nullptr, each.loadMode), 0);
    EXPECT_EQ(Tour(handle), kNothing);
    EXPECT_EQ(handle.Attach(&book, each.loadMode), each.result);
    EXPECT_EQ(handle.Attach(handle.Book(), each.loadMode), each.result)
        << "the handle's own book is accepted";
    EXPECT_EQ(handle.Mode(), each.loadMode);
    handle.Book()->Attach(box, 0);
    EXPECT_EQ(handle.Book()->Attach(box, each.viewMode, each.loadMode), each.result);
    EXPECT_EQ(handle.Book()->LoadMode(), each.loadMode);
    EXPECT_EQ(handle.Book()->View() != nullptr, hasEntries);
    EXPECT_EQ(handle.Book()->GetPageSize(), each.pageSize);
    EXPECT_EQ(Tour(*handle.Book()), hasEntries ? Tour(book) : kNothing);
    EXPECT_EQ(Tour(handle), hasEntries ? Tour(book) : kNothing);
    CEmailEntry entry;
    EXPECT_EQ(handle.Book()->ReadLastEntry(&entry), hasEntries ? kNoError : kRefused);
    EXPECT_EQ(handle.Book()->ListCount(), each.lists);
    EXPECT_EQ(handle.FindList("Board") != nullptr, hasLists);
    std::uint32_t count = 0;
    EXPECT_EQ(handle.EntryCount(&count), hasEntries ? kNoError : kRefused);
    EXPECT_EQ(handle.ServerListCount(&count), hasLists ? kNoError : kRefused);
    EXPECT_EQ(handle.ServerListSize("Board", &count), hasLists ? kNoError : kRefused);
    EXPECT_EQ(handle.FindFirstList("C", 0), 0);
    EXPECT_EQ(handle.Book()->FoundList() != nullptr, hasLists);
    EXPECT_EQ(handle.FindNextList(0), 0);
    EXPECT_EQ(handle.Book()->FoundList(), nullptr);
  }
}

}  // namespace
}  // namespace quillkit
