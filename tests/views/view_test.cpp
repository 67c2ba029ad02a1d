// The census of a view, views without a book, and views of a faulty server.

#include "tests/views/view_walk.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

TEST_F(ViewWalk, ReturnsValidEntriesOfAFaultyServer) {
  for (std::uint32_t defects = 1; defects < 64 && !HasFailure(); ++defects) {
    SCOPED_TRACE("SimulatorSetDefects " + std::to_string(defects));
    SimulatorSetDefects(defects);
    for (const std::string& firsts : firstBytes) {
      Walk(CSlidingEntryView(1 + static_cast<std::int32_t>(defects % 16)), firsts, 150, defects,
           60);
      Walk(CLetterEntryView(), firsts, 150, defects, 60);
      Walk(CFullEntryView(), firsts, 150, defects, 60);
    }
  }
}

TEST_F(ViewWalk, WithoutABookNothingIsFoundAndNoCallIsMade) {
  const auto results = [](CEntryView&& view) {
    std::string text = std::to_string(view.AttachBook(nullptr));
    CEmailEntry entry = MakeEntry("n1");
    for (const ViewOperation& each : kViewOperations) {
      text += " " + each.run(view, {"n1", &entry, 3, 1, 'n'}).text;
    }
    return text;
  };
  const std::string noEntries = "0 null null null null null null null null null null null";
  EXPECT_EQ(results(CSlidingEntryView(4)), noEntries + " -1 -1 -1 0 0 0 1 1 1 0 3");
  EXPECT_EQ(results(CLetterEntryView()), noEntries + " -1 0 -1 0 0 0 1 1 1 0 0");
  EXPECT_EQ(results(CFullEntryView()), noEntries + " -1 -1 -1 -1 -1 -1 0 0 -1 0 0");
  EXPECT_TRUE(TakeCalls().empty());
}

TEST_F(ViewWalk, ReadsTheCensusOnceUnlessTheReadFails) {
  PutBook("aabd", 4);
  CSlidingEntryView view(2);
  view.AttachBook(&book);
  std::int32_t count = 0;
  EXPECT_EQ(view.GetBoundaries(&count), nullptr);
  EXPECT_EQ(count, 128);
  EXPECT_EQ(view.FirstLetter(), 'a');
  std::string letters;
  for (const char letter : {'a', 'b', 'c', 'd'}) {
    letters += view.NextLetter(letter) + std::to_string(view.LetterStart(letter)) + " ";
  }
  EXPECT_EQ(letters, "b0 d2 d-1 d3 ") << "the next letter and the start of a, b, c and d";
  std::string indexes;
  for (const std::int32_t index : {0, 1, 2, 3, 4, 5}) {
    char letter = '?';
    indexes += std::to_string(view.LetterOfIndex(index, &letter));
    indexes += std::string(1, letter) + " ";
  }
  EXPECT_EQ(indexes, "0a 0a 0a 2b 3d -1? ") << "the start and the letter of indexes 0 to 5";
  EXPECT_NE(view.GetBoundaries(&count), nullptr);
  EXPECT_EQ(count, 3);
  EXPECT_EQ(TakeCalls(), std::vector<std::string>{"IMSPReadPageBoundaries 1:EMAILAB 128"});
  SimulatorFail("IMSPReadPageBoundaries", 1, kAccessDenied);
  EXPECT_EQ(view.LoadBoundaries(1), kAccessDenied);
  EXPECT_EQ(view.GetBoundaries(&count), nullptr);
  PutBook(firstBytes[3], 129);
  EXPECT_EQ(view.LoadBoundaries(0), kMoreData) << "a census has at most 128 rows";
  EXPECT_EQ(view.LoadBoundaries(0), kNoError);
  PutBook("", 0);
  EXPECT_EQ(view.LoadBoundaries(1), kNoError);
  EXPECT_EQ(view.FirstLetter(), '\0');
  EXPECT_EQ(view.NextLetter('a'), '\0');
  EXPECT_EQ(TakeCalls().size(), 1U) << "an empty census is not read again";
}

TEST_F(ViewWalk, TreatsANegativeCountOfALetterAsZero) {
  SimulatorSetDefects(kDefectCensus);  // the counts become 5, -3 and 3
  PutBook("aabd", 4);
  CLetterEntryView view;
  view.AttachBook(&book);
  EXPECT_EQ(view.LetterStart('d'), 5);
  view.First();
  TakeCalls();
  EXPECT_EQ(view.FindLetter('b'), nullptr);
  EXPECT_TRUE(TakeCalls().empty());
  EXPECT_EQ(Result(view.Next()).text, "a1=at:1") << "the page of the letter a is kept";
}

}  // namespace
}  // namespace quillkit
