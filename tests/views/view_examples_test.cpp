// What the ends of a book and of a span look like, example by example.

#include <string>

#include "books/email_ab.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"
#include "tests/views/generated_book.h"
#include "tests/views/view_probes.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ViewExampleTest : public ApplianceTest {
 protected:
  ViewExampleTest() { book.Attach(LogIn(), 0); }

  // Opens the view on a book of so many entries, n1000 and on.
  void Open(CEntryView& view, std::size_t size) {
    PutBook(GeneratedBook(BookStyle::kOneLetter, size));
    view.AttachBook(&book);
    TakeCalls();
  }

  // Opens the view on a book of these names.
  void Open(CEntryView& view, std::initializer_list<const char*> names) {
    Entries entries;
    for (const char* each : names) entries.push_back(MakeEntry(each, "at"));
    PutBook(entries);
    view.AttachBook(&book);
    TakeCalls();
  }

  static std::string Name(const CEmailEntry* entry) {
    return entry != nullptr ? entry->Name() : "-";
  }

  CEmailAB book;
};

TEST_F(ViewExampleTest, SlidingLosesTheSpanBehindTheLastEntry) {
  SlidingProbe view(16);
  Open(view, 40);
  EXPECT_EQ(Name(view.First()), "n1000");
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPReadAB 1:EMAILAB [||0] 16 1", "IMSPReadAB 1:EMAILAB [n1015||0] 16 1",
                          "IMSPReadAB 1:EMAILAB [n1031||0] 16 1"));
  for (int i = 1; i < 39; ++i) view.Next();
  EXPECT_EQ(Name(view.Next()), "n1039");
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(view.Next(), nullptr);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadAB 1:EMAILAB [n1039||0] 16 1"));
  EXPECT_EQ(view.State(), "low 0 0() 0() 0()");
  EXPECT_EQ(view.Next(), nullptr);
  EXPECT_EQ(view.Prev(), nullptr);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(ViewExampleTest, SlidingRunsOffAShortBookWithoutACall) {
  SlidingProbe view(16);
  Open(view, 20);
  view.First();
  EXPECT_EQ(TakeCalls().size(), 3U);
  for (int i = 1; i < 20; ++i) EXPECT_NE(view.Next(), nullptr);
  EXPECT_EQ(view.Next(), nullptr);
  EXPECT_EQ(view.Prev(), nullptr);
  EXPECT_EQ(view.Next(), nullptr);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(Name(view.Find("n1007", 0)), "n1007");
  EXPECT_THAT(TakeCalls(), IsEmpty());

  Open(view, 10);
  view.First();
  EXPECT_EQ(TakeCalls().size(), 2U);
}

TEST_F(ViewExampleTest, SlidingReadsBackBeforeItsFirstEntry) {
  SlidingProbe view(16);
  Open(view, 64);
  view.First();
  for (int i = 0; i < 48; ++i) view.Next();
  TakeCalls();
  EXPECT_EQ(Name(view.Prev()), "n1047");
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadAB 1:EMAILAB [n1048||0] 16 0",
                                       "IMSPReadAB 1:EMAILAB [n1032||0] 16 0",
                                       "IMSPReadAB 1:EMAILAB [n1016||0] 16 0"));
  view.First();
  EXPECT_EQ(view.Prev(), nullptr);
  EXPECT_EQ(view.State(), "mid 0 0() 0() 0()");
}

TEST_F(ViewExampleTest, SlidingJumpsToAnIndex) {
  SlidingProbe view(2);
  Open(view, 9);
  EXPECT_EQ(Name(view.GetAt(4)), "n1004");
  EXPECT_THAT(
      TakeCalls(),
      ElementsAre("IMSPSizeofAB 1:EMAILAB -", "IMSPReadPageBoundaries 1:EMAILAB 128",
                  "IMSPReadAB 1:EMAILAB [|n*|4] 1 1", "IMSPReadAB 1:EMAILAB [n1004||0] 2 1",
                  "IMSPReadAB 1:EMAILAB [n1005||0] 2 0", "IMSPReadAB 1:EMAILAB [n1006||0] 2 1"));
  EXPECT_EQ(Name(view.Last()), "n1008");
  EXPECT_THAT(
      TakeCalls(),
      ElementsAre("IMSPSizeofAB 1:EMAILAB -", "IMSPSizeofAB 1:EMAILAB -",
                  "IMSPReadAB 1:EMAILAB [|n*|8] 1 1", "IMSPReadAB 1:EMAILAB [n1008||0] 2 1",
                  "IMSPReadAB 1:EMAILAB [n1008||0] 2 0", "IMSPReadAB 1:EMAILAB [n1007||0] 2 1"));
  EXPECT_THAT(view.State(), testing::StartsWith("mid 0 "));
  EXPECT_EQ(view.GetAt(9), nullptr);
  EXPECT_EQ(view.GetAt(-1), nullptr);

  SlidingProbe single(16);
  Open(single, 1);
  EXPECT_EQ(Name(single.GetAt(0)), "n1000");
  EXPECT_THAT(single.State(), testing::StartsWith("low 0 1("));
}

TEST_F(ViewExampleTest, SlidingFindsInTheSpanOrOnTheServer) {
  SlidingProbe view(16);
  Open(view, 40);
  view.First();
  TakeCalls();
  EXPECT_EQ(Name(view.Find("n1020", 0)), "n1020");
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(Name(view.Find("n1020", 1)), "n1020");
  EXPECT_EQ(TakeCalls().size(), 3U);
  EXPECT_EQ(view.FindLetter('q'), nullptr);
  EXPECT_EQ(view.State(), "low -1 0() 0() 0()");
  EXPECT_EQ(view.Next(), nullptr);
}

TEST_F(ViewExampleTest, SlidingTakesAnEntryOutLocally) {
  SlidingProbe view(16);
  Open(view, 20);
  CEmailEntry entry = MakeEntry("n1005", "");
  EXPECT_EQ(view.Remove(&entry, 0), kNoError);
  EXPECT_EQ(Name(view.Prev()), "n1004");
  EXPECT_EQ(Name(view.Next()), "n1006");
  entry = MakeEntry("n1000", "");  // alone in the page in which it is found
  EXPECT_EQ(view.Remove(&entry, 0), kNoError);
  EXPECT_EQ(view.Next(), nullptr);
  entry = MakeEntry("n2000", "");
  EXPECT_EQ(view.Remove(&entry, 0), kDataNotFound);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), 20);
  EXPECT_EQ(view.Remove(&entry, 2), kDataNotFound);  // the server's answer
  EXPECT_EQ(view.Add(&entry, 1), kRefused);
}

TEST_F(ViewExampleTest, LetterStepsFromLetterToLetter) {
  LetterProbe view;
  Open(view, {"a1", "a2", "b1", "c1", "c2"});
  EXPECT_EQ(view.Last(), nullptr);
  EXPECT_EQ(view.Next(), nullptr);
  EXPECT_EQ(view.GetAt(0), nullptr);
  EXPECT_EQ(Name(view.First()), "a1");
  TakeCalls();
  EXPECT_EQ(view.Prev(), nullptr);
  EXPECT_EQ(Name(view.Next()), "a2");
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(Name(view.Next()), "b1");
  EXPECT_EQ(Name(view.Next()), "c1");
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPReadAB 1:EMAILAB [|b*|0] 1 1", "IMSPReadAB 1:EMAILAB [|c*|0] 2 1"));
  EXPECT_EQ(Name(view.Next()), "c2");
  EXPECT_EQ(view.Next(), nullptr);
  EXPECT_THAT(view.State(), testing::StartsWith("row 3 cursor 0 2("));
  EXPECT_EQ(Name(view.Next()), "c2");
  EXPECT_EQ(view.Next(), nullptr);
  TakeCalls();
  EXPECT_EQ(Name(view.Prev()), "c2");  // back across the end
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadAB 1:EMAILAB [|c*|0] 2 1"));
  EXPECT_EQ(Name(view.GetAt(2)), "b1");
  EXPECT_THAT(view.State(), testing::StartsWith("row 1 cursor 0 1("));
  EXPECT_EQ(Name(view.Last()), "c2");
  EXPECT_EQ(Name(view.Next()), "c1");  // from the letter before Last
}

TEST_F(ViewExampleTest, LetterNeverRemoves) {
  LetterProbe view;
  Open(view, {"a1", "a2", "b1"});
  view.First();
  for (const char* name : {"a1", "b1", "x"}) {
    CEmailEntry entry = MakeEntry(name, "");
    EXPECT_EQ(view.Remove(&entry, 1), kRefused) << name;
  }
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), 3);
}

TEST_F(ViewExampleTest, LetterShowsAChangeWhenItIsReadAgain) {
  LetterProbe view;
  Open(view, {"a1", "b1"});
  view.First();
  CEmailEntry entry = MakeEntry("a1", "new");
  EXPECT_EQ(view.Modify(&entry, 1), kNoError);
  EXPECT_STREQ(view.Find("a1", 0)->Address(), "at");
  EXPECT_STREQ(view.Find("a1", 1)->Address(), "new");
}

TEST_F(ViewExampleTest, FullHoldsFiveHundredAndTwelve) {
  FullProbe view;
  Open(view, 513);
  EXPECT_EQ(view.AttachBook(&book), 0);
  EXPECT_EQ(Name(view.Last()), "n1511");
  TakeCalls();
  CEmailEntry entry = MakeEntry("new", "");
  EXPECT_EQ(view.Add(&entry, 0), kRefused);
  EXPECT_EQ(view.AddLocal(&entry), -1);
  EXPECT_THAT(TakeCalls(), IsEmpty());

  Open(view, 0);
  EXPECT_EQ(view.AttachBook(&book), 1);
  EXPECT_EQ(view.First(), nullptr);
  EXPECT_EQ(view.FindLetter('n'), nullptr);
}

TEST_F(ViewExampleTest, FullMissesWithAnEntryAllTheSame) {
  FullProbe view;
  Open(view, {"a1", "b1", "b2", "c1"});
  EXPECT_EQ(Name(view.FindLetter('x')), "c1");
  EXPECT_EQ(Name(view.Find("x", 1)), "c1");
  EXPECT_THAT(view.State(), testing::StartsWith("cursor -1 "));
  EXPECT_EQ(Name(view.Find("b9", 1)), "b1");
  EXPECT_THAT(view.State(), testing::StartsWith("cursor 1 "));
  EXPECT_EQ(Name(view.Find("b2", 1)), "b2");
  EXPECT_EQ(view.FindNext(0), nullptr);
  EXPECT_EQ(view.FindNextPrefix(), nullptr);
  EXPECT_EQ(Name(view.Next()), "c1");
}

TEST_F(ViewExampleTest, FullMirrorsChanges) {
  FullProbe view;
  Open(view, {"b", "c"});
  CEmailEntry entry = MakeEntry("a", "1");
  EXPECT_EQ(view.AddLocal(&entry), 3);
  EXPECT_EQ(view.State(), "cursor 0 3(b=at:0 c=at:0 a=1:0 )");
  entry = MakeEntry("d", "2");
  EXPECT_EQ(view.ModifyLocalByKey("c", &entry), 1);
  EXPECT_EQ(view.State(), "cursor 0 3(b=at:0 d=2:0 a=1:0 )");
  entry = MakeEntry("e", "3");
  EXPECT_EQ(view.Add(&entry, 0), kNoError);
  EXPECT_EQ(view.RemoveLocal(&entry), -1);  // gone on the server, and never here
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), 3);
  EXPECT_EQ(view.RemoveAt(0), 2);
  EXPECT_EQ(view.RemoveAt(2), -1);
  EXPECT_EQ(view.RemoveAt(1), 1);
  EXPECT_EQ(view.RemoveAt(0), 0);
  EXPECT_EQ(view.Last(), nullptr);
}

TEST_F(ViewExampleTest, TheCensusCountsLetters) {
  SlidingProbe view(16);
  EXPECT_EQ(view.LoadBoundaries(0), kRefused);
  Open(view, {"a1", "a2", "b1", "c1"});
  std::int32_t count = 0;
  EXPECT_EQ(view.GetBoundaries(&count), nullptr);
  EXPECT_EQ(count, 128);
  EXPECT_EQ(view.FirstLetter(), 'a');
  EXPECT_EQ(view.NextLetter('a'), 'b');
  EXPECT_EQ(view.NextLetter('c'), 'c');
  EXPECT_EQ(view.NextLetter('x'), 'c');
  EXPECT_EQ(view.LetterStart('c'), 3);
  EXPECT_EQ(view.LetterStart('x'), -1);
  char letter = '?';
  EXPECT_EQ(view.LetterOfIndex(2, &letter), 0);  // GetAt(2) is b1
  EXPECT_EQ(letter, 'a');
  EXPECT_EQ(view.LetterOfIndex(3, &letter), 2);
  EXPECT_EQ(letter, 'b');
  EXPECT_EQ(view.LetterOfIndex(5, &letter), -1);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPReadPageBoundaries 1:EMAILAB 128"));
  EXPECT_EQ(view.LoadBoundaries(1), kNoError);
  EXPECT_EQ(TakeCalls().size(), 1U);
}

// A census of 128 letters that has more is told as 21 once, and taken from then on.
TEST_F(ViewExampleTest, MoreLettersThanTheCensusHolds) {
  PutBook(GeneratedBook(BookStyle::kManyFirstBytes, 200));
  LetterProbe view;
  view.AttachBook(&book);
  EXPECT_EQ(view.First(), nullptr);
  EXPECT_NE(view.First(), nullptr);
}

}  // namespace
}  // namespace quillkit
