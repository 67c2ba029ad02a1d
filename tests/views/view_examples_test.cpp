// What walks do not come by: the census, when a view enters and leaves its book, and what it makes
// of a size, a census or a read that cannot be.

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

const std::string kReadCensus = "IMSPReadPageBoundaries 1:EMAILAB 128";

// Tells by [ and ] what is bracketed.
class CountingBook : public CEmailAB {
 public:
  void BeginAccess() override { brackets += "["; }
  void EndAccess() override { brackets += "]"; }

  std::string TakeBrackets() { return std::exchange(brackets, {}); }

 private:
  std::string brackets;
};

class ViewExampleTest : public ApplianceTest {
 protected:
  ViewExampleTest() { book.Attach(LogIn(), 0); }

  static Entries BookOf(std::initializer_list<const char*> names) {
    Entries entries;
    for (const char* each : names) entries.push_back(MakeEntry(each));
    return entries;
  }

  void Open(CEntryView& view, const Entries& entries) {
    PutBook(entries);
    view.AttachBook(&book);
    TakeCalls();
  }

  static std::string Name(const CEmailEntry* entry) {
    return entry != nullptr ? entry->Name() : "-";
  }

  CountingBook book;
};

TEST_F(ViewExampleTest, SlidingLooksForANameAtItsPlaceAlone) {
  SlidingProbe view(2);
  Open(view, BookOf({"a1", "b1", "c1", "d1"}));
  view.First();
  CEmailEntry entry = MakeEntry("c1");
  EXPECT_EQ(view.ModifyByKey("a2", &entry, 0), kNoError);
  EXPECT_EQ(view.Find("a2", 0), nullptr) << "which stands where c1 stood";
}

TEST_F(ViewExampleTest, TheCensusIsReadOnce) {
  SlidingProbe empty(16);
  EXPECT_EQ(empty.LoadBoundaries(0), kRefused);
  Open(empty, {});
  EXPECT_EQ(empty.FirstLetter(), '\0');
  EXPECT_EQ(empty.NextLetter('a'), '\0');
  EXPECT_THAT(TakeCalls(), ElementsAre(kReadCensus));

  SlidingProbe view(16);
  Open(view, BookOf({"a1", "a2", "b1", "d1"}));
  std::int32_t count = 0;
  EXPECT_EQ(view.GetBoundaries(&count), nullptr);
  EXPECT_EQ(count, 128);
  EXPECT_EQ(view.FirstLetter(), 'a');
  EXPECT_EQ(view.NextLetter('a'), 'b');
  EXPECT_EQ(view.NextLetter('c'), 'd') << "the last one for a letter that the book lacks";
  EXPECT_EQ(view.NextLetter('d'), 'd');
  EXPECT_EQ(view.LetterStart('d'), 3);
  EXPECT_EQ(view.LetterStart('c'), -1);
  constexpr struct {
    std::int32_t start;
    char letter;
  } kOfIndex[] = {{0, 'a'}, {0, 'a'}, {0, 'a'}, {2, 'b'}, {3, 'd'}, {-1, '?'}};
  for (std::int32_t i = 0; i < std::ssize(kOfIndex); ++i) {
    char letter = '?';
    EXPECT_EQ(view.LetterOfIndex(i, &letter), kOfIndex[i].start) << i;
    EXPECT_EQ(letter, kOfIndex[i].letter) << i;
  }
  EXPECT_THAT(TakeCalls(), ElementsAre(kReadCensus));

  SimulatorFail("IMSPReadPageBoundaries", 1, 11);
  EXPECT_EQ(view.LoadBoundaries(1), 11);
  EXPECT_EQ(view.GetBoundaries(&count), nullptr);
  PutBook(GeneratedBook(BookStyle::kManyFirstBytes, 150));
  EXPECT_EQ(view.LoadBoundaries(0), kMoreData);
  EXPECT_EQ(view.LoadBoundaries(0), kNoError);
}

TEST_F(ViewExampleTest, EveryLoadIsOnePairOfBrackets) {
  SlidingProbe sliding(2);
  Open(sliding, GeneratedBook(BookStyle::kOneLetter, 9));
  sliding.First();
  EXPECT_EQ(book.TakeBrackets(), "[]");
  sliding.Next();
  EXPECT_EQ(book.TakeBrackets(), "");
  sliding.GetAt(8);
  sliding.Find("n1000", 1);
  sliding.FindLetter('x');
  EXPECT_EQ(book.TakeBrackets(), "[][][]");

  LetterProbe letters;
  Open(letters, BookOf({"a1", "b1", "c1"}));
  letters.First();
  letters.Next();
  letters.FindLetter('c');
  letters.Last();
  letters.Find("a1", 1);
  letters.GetAt(2);
  EXPECT_EQ(book.TakeBrackets(), "[][][][][][]");
  SimulatorFail("IMSPReadAB", 1, 11);
  EXPECT_EQ(letters.FindLetter('b'), nullptr);
  EXPECT_EQ(book.TakeBrackets(), "[]");
}

TEST_F(ViewExampleTest, AnIndexThatTheCensusDoesNotReach) {
  SlidingProbe sliding(2);
  Open(sliding, BookOf({"a1", "b1", "c1"}));
  EXPECT_EQ(Name(sliding.GetAt(1)), "b1");
  SimulatorInflateSizes(5);
  TakeCalls();
  EXPECT_EQ(Name(sliding.GetAt(7)), "b1") << "the record on which it stands";
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 1:EMAILAB -"));
  EXPECT_EQ(sliding.GetAt(8), nullptr);

  LetterProbe letters;
  letters.AttachBook(&book);
  letters.First();
  book.TakeBrackets();
  EXPECT_EQ(letters.GetAt(8), nullptr);
  EXPECT_EQ(letters.GetAt(7), nullptr);
  EXPECT_EQ(book.TakeBrackets(), "[") << "which is not ended";
}

}  // namespace
}  // namespace quillkit
