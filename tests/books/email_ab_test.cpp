// The public e-mail book: opening it, its entries on the server, and what it passes to its view.

#include "books/email_ab.h"

#include "tests/books/email_fixture.h"
#include "views/entry_view.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST_F(EmailBookTest, ReadsTheCensusWithoutAScanner) {
  CEmailAB loose;
  PageBoundary table[2];
  std::uint32_t rows = 2;
  EXPECT_EQ(loose.ReadBoundaries(table, &rows), kNoError);
  EXPECT_EQ(loose.ReadBoundaries(nullptr, &rows), kRefused);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadPageBoundaries 1:EMAILAB 2"));
}

TEST_F(EmailBookTest, RefusesTextsThatAreTooLong) {
  EXPECT_EQ(book.CreateMemberAddress("Board", std::string(32, 'n'), "at"), kRefused);
  EXPECT_EQ(book.CreateMemberAddress("Board", "n", std::string(256, 'a')), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(EmailBookTest, IsFullAtTwoHundredThousand) {
  CEmailEntry entry = MakeEntry("Cy");
  SimulatorInflateSizes(199'997);
  EXPECT_EQ(book.AddEntry(&entry), kBookFull);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 1:EMAILAB -"));
  EXPECT_EQ(TheAgent.LastError(), kNoError);
  SimulatorInflateSizes(199'996);
  EXPECT_EQ(book.AddEntry(&entry), kNoError);
}

TEST_F(EmailBookTest, OpensTheViewAndTheListsAsAsked) {
  const Calls members = {"IMSPListAB 64: [|*|0] 512 1", "IMSPSizeofAB 64:Board -",
                         "IMSPReadAB 64:Board - 2 1", "IMSPSizeofAB 64:Choir -",
                         "IMSPReadAB 64:Choir - 1 1"};
  struct Case {
    std::int32_t viewMode, loadMode;
    int result;
    std::int32_t pageSize, lists;
    Calls calls;
  };
  const Case cases[] = {
      {0, 0, 1, 1, 2, members}, {1, 0, 1, 0, 2, members},
      {1, 1, 1, 0, 2, members}, {0, 2, 1, 1, 0, {}},
      {0, 3, 0, 0, 0, {}},      {7, 2, 1, 0, 0, {"IMSPReadAB 1:EMAILAB [||0] 512 1"}},
  };
  for (const Case& each : cases) {
    CEmailAB other;
    EXPECT_EQ(other.Attach(box, each.viewMode, each.loadMode), each.result);
    EXPECT_EQ(TakeCalls(), each.calls) << each.viewMode << each.loadMode;
    EXPECT_EQ(other.GetPageSize(), each.pageSize);
    EXPECT_EQ(other.ListCount(), each.lists);
    EXPECT_EQ(other.View() != nullptr, each.loadMode == 0 || each.loadMode == 2);
    EXPECT_EQ(other.LoadMode(), each.loadMode);
  }
}

TEST_F(EmailBookTest, PicksTheViewByItsMode) {
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
  SimulatorFail("IMSPReadAB", 1, kServerFault);
  EXPECT_EQ(book.Attach(box, 2), 0);
  const CEntryView* view = book.View();
  EXPECT_EQ(book.Attach(nullptr, 0), 0);
  EXPECT_EQ(book.View(), view);
}

TEST_F(EmailBookTest, PassesNavigationToTheView) {
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
  EXPECT_EQ(book.ModifyByKey("Bob", &entry, 0), kNoError);
  EXPECT_EQ(book.Remove(&entry, 1), kNoError);
}

TEST_F(EmailBookTest, AnswersNothingWithoutAView) {
  book.Attach(box, 0, 1);
  Start();
  EXPECT_THAT(Tour(book), testing::Each("-"));
  CEmailEntry entry;
  EXPECT_EQ(book.FirstLetter(), '\0');
  EXPECT_EQ(book.NextLetter('A'), '\0');
  EXPECT_EQ(book.LetterStart('A'), -1);
  EXPECT_EQ(book.ReadLastEntry(&entry), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(EmailBookTest, ChangesEntriesInPlaceInModeTwoAlone) {
  for (const std::int32_t mode : {0, 1, 2, 7}) {
    book.Attach(box, mode);
    Start();
    CEmailEntry entry = MakeEntry("Cy");
    const bool isEditable = mode == 2;
    EXPECT_EQ(book.AddLocal(&entry), isEditable ? 4 : -1);
    EXPECT_EQ(book.ModifyLocal(&entry), isEditable ? 1 : 0);
    EXPECT_EQ(book.ModifyLocalByKey("Cy", &entry), isEditable ? 1 : 0);
    EXPECT_EQ(book.RemoveLocal(&entry), isEditable ? 3 : -1);
    EXPECT_EQ(TakeCalls().size(), isEditable ? 5U : 0U);
  }
}

TEST_F(EmailBookTest, ReadsTheEdgesBesideTheView) {
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
  for (int letter = 1; letter <= 130; ++letter) {
    Put(BookKind::kEmail, "", std::string(1, static_cast<char>(letter)) + "x");
  }
  book.Attach(box, 0);
  EXPECT_EQ(book.ReadLastEntry(&entry), kNoError);
  EXPECT_STREQ(entry.Name(), "\x80x") << "of more letters the 128th is the last";
  box->ClearEmailBook();
  EXPECT_EQ(book.ReadFirstEntry(&entry), kDataNotFound);  // the census is the old one
  book.Attach(box, 0);
  EXPECT_EQ(book.ReadFirstEntry(&entry), kDataNotFound);
}

TEST_F(EmailBookTest, IsClearedForANewViewAndDeletedWithAllThatItHolds) {
  book.LoadLists(0);
  book.Attach(box, 2);
  EXPECT_EQ(book.ClearBook(), kNoError);
  EXPECT_EQ(TakeCalls().back(), "IMSPReadAB 1:EMAILAB [||0] 512 1");
  SimulatorFail("IMSPDeleteAB", 1, kServerFault);
  EXPECT_EQ(book.DeleteBook(), kServerFault);
  EXPECT_EQ(book.ListCount(), 0);
  EXPECT_EQ(book.View(), nullptr);
}

}  // namespace
}  // namespace quillkit
