// The fax book: results of its two families against the server's calls, its limits, its walk and
// searches, and its stream form.

#include "books/fax_ab.h"

#include "appliance/scanner.h"
#include "base/archive.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::IsEmpty;

CFaxEntry MakeFax(std::string_view name, std::string_view number = "1") {
  CFaxEntry entry;
  entry.SetName(name);
  entry.SetNumber(number);
  return entry;
}

class FaxBookTest : public ApplianceTest {
 protected:
  FaxBookTest() : box(LogIn()) {
    for (const char* name : {"abc", "abd", "b"}) Put(MakeFax(name));
    book.Attach(box, 1);
    SimulatorClearJournal();
  }

  static void Put(const CFaxEntry& entry) {
    SimulatorPutEntry(BookKind::kFax, "", nullptr, &entry);
  }
  static void PutMember(const char* list, const CFaxEntry& member) {
    SimulatorPutEntry(BookKind::kFaxList, list, nullptr, &member);
  }

  static std::string Held(CFaxAB& of) {
    std::string names;
    for (std::int32_t i = 0; i < of.EntryCount(); ++i) {
      names.append(of.EntryAt(i)->name.View()).append(" ");
    }
    return names;
  }

  CScanner* const box;
  CFaxAB book;
};

// What an operation gives and leaves where the sweep of failures does not tell: the server has an
// entry "late" and a list "Late" that the book does not hold.
struct Outcome {
  const char* name;
  std::int64_t (*run)(CFaxAB& book, CFaxEntry* late, CFaxEntry* fresh);
  Status reload;  // what every read gives
  std::int64_t result;
  std::size_t calls;
  const char* held;
};

#define RUN(expression)                              \
  [](CFaxAB& book, [[maybe_unused]] CFaxEntry* late, \
     [[maybe_unused]] CFaxEntry* fresh) -> std::int64_t { return expression; }

const Outcome kOutcomes[] = {
    {"AddEntry", RUN(book.AddEntry(fresh, 0)), 0, 1, 1, "abc abd b "},
    {"AddEntryReload", RUN(book.AddEntry(fresh, 1)), 0, 1, 2, "abc abd b fresh late "},
    {"FastModifyEntryNotHeld", RUN(book.FastModifyEntry(late)), 0, 0, 1, "abc abd b "},
    {"FastRenameEntry", RUN(book.FastRenameEntry("abd", fresh)), 0, 1, 1, "abc fresh b "},
    {"FastRenameEntryNotHeld", RUN(book.FastRenameEntry("late", fresh)), 0, 0, 1, "abc abd b "},
    {"FastDeleteEntryNotHeld", RUN(book.FastDeleteEntry(late)), 0, -1, 1, "abc abd b "},
    {"LoadEntriesNone", RUN(book.LoadEntries()), 4, 1, 1, ""},
    {"LoadEntriesFails", RUN(book.LoadEntries()), 11, 0, 1, ""},
    {"AttachAlone", RUN(book.Attach(TheAgent.ScannerAt(0), 0)), 0, 1, 0, "abc abd b "},
    {"AttachNothing", RUN(book.Attach(nullptr, 1)), 0, 0, 0, "abc abd b "},
    {"RemoveEntryAt", RUN(book.RemoveEntryAt(0, 0)), 0, 1, 0, "abd b "},
    {"RemoveEntryAtReload", RUN(book.RemoveEntryAt(0, 1)), 0, 1, 1, "abc abd b late "},
    {"RemoveEntryAtNothing", RUN(book.RemoveEntryAt(3, 1)), 0, 0, 0, "abc abd b "},
    {"ClearBook", RUN(book.ClearBook()), 0, 0, 6, ""},
    {"DeleteList", RUN(book.DeleteList("Late", 0)), 0, 1, 1, "abc abd b "},
    {"FastDeleteListNotHeld", RUN(book.FastDeleteList("Late")), 0, 0, 1, "abc abd b "},
    {"EntryAtNothing", RUN(book.EntryAt(3) == nullptr && book.EntryAt(-1) == nullptr), 0, 1, 0,
     "abc abd b "},
};

class FaxOutcomeTest : public FaxBookTest, public testing::WithParamInterface<Outcome> {};

TEST_P(FaxOutcomeTest, IsAsTheTableTells) {
  CFaxEntry late = MakeFax("late");
  CFaxEntry fresh = MakeFax("fresh");
  Put(late);
  PutMember("Late", late);
  if (GetParam().reload != kNoError) SimulatorFail("IMSPReadAB", 0, GetParam().reload);
  EXPECT_EQ(GetParam().run(book, &late, &fresh), GetParam().result);
  EXPECT_EQ(TakeCalls().size(), GetParam().calls);
  EXPECT_EQ(Held(book), GetParam().held);
}

INSTANTIATE_TEST_SUITE_P(Outcomes, FaxOutcomeTest, testing::ValuesIn(kOutcomes),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(FaxBookTest, AtTheLimitNothingIsSent) {
  for (int i = 3; i < FaxReadCapacity; ++i) Put(MakeFax("n" + std::to_string(i)));
  ASSERT_EQ(book.LoadEntries(), 1);
  ASSERT_EQ(book.EntryCount(), MaxFaxEntries);
  SimulatorClearJournal();
  CFaxEntry entry = MakeFax("zz");
  EXPECT_EQ(book.AddEntry(&entry, 1), 0);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  TheAgent.SetError(0);
  EXPECT_EQ(book.FastAddEntry(&entry), -1);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  EXPECT_THAT(TakeCalls(), IsEmpty());

  Put(entry);
  EXPECT_EQ(book.LoadEntries(), 0) << "more than fits is a failure, with what fitted";
  EXPECT_EQ(book.EntryCount(), FaxReadCapacity);
}

TEST_F(FaxBookTest, TheWalkRunsPastItsEndsAndComesBackStepByStep) {
  EXPECT_EQ(book.FirstEntry(), book.EntryAt(0));
  book.NextEntry();
  EXPECT_EQ(book.NextEntry(), book.EntryAt(2));
  EXPECT_EQ(book.NextEntry(), nullptr);
  EXPECT_EQ(book.NextEntry(), nullptr);
  EXPECT_EQ(book.PrevEntry(), nullptr);
  EXPECT_EQ(book.PrevEntry(), book.EntryAt(2));
  EXPECT_EQ(book.FirstEntry(), book.EntryAt(0));
  EXPECT_EQ(book.NextEntry(), book.EntryAt(1)) << "from the front again";
}

TEST_F(FaxBookTest, SearchesTellTheWholeNameByTheModeOneAlone) {
  EXPECT_EQ(book.FindFirstEntry("ab", 1), -1);
  EXPECT_EQ(book.FindFirstEntry("ab", 2), 0);
  EXPECT_EQ(book.FindNextEntry(0), 1);
  EXPECT_EQ(book.FindNextEntry(0), -1);
  EXPECT_EQ(book.FindFirstEntry("x", 0), -1);
  EXPECT_EQ(book.FindNextEntry(0), 0) << "with the pattern that hit before";
  EXPECT_EQ(book.FindNextEntry(0), 1);
  EXPECT_EQ(book.FindEntryIndex("absent"), -1);
  EXPECT_EQ(book.FindNextEntry(0), 1) << "a miss of FindEntryIndex leaves the cursor at 0";

  CFaxEntryList sorted;
  for (const char* name : {"a", "c", "e", "g"}) sorted.Append(MakeFax(name));
  for (std::int32_t i = 0; i < sorted.Count(); ++i) {
    EXPECT_EQ(sorted.BinaryLookup(sorted.At(i)->name.View(), 0, 1), i);
  }
  EXPECT_EQ(sorted.BinaryLookup("d", 0, 1), -1);
  EXPECT_EQ(sorted.BinaryLookup("g", 3, 1), 3);
  EXPECT_EQ(CFaxEntryList().BinaryLookup("a", 0, 1), -1);
}

TEST_F(FaxBookTest, TheStreamHoldsAsManyEntriesAsTheWalkHasPassed) {
  PutMember("Team", MakeFax("m", "12"));
  book.LoadLists(1);
  book.FirstEntry();
  for (const std::int32_t passed : {2, 7}) {
    for (int i = 0; i < (passed == 2 ? 2 : 5); ++i) book.NextEntry();
    std::string bytes;
    Archive storing(&bytes);
    book.Serialize(storing);
    CFaxAB loaded;
    Archive loading{std::string_view(bytes)};
    loaded.Serialize(loading);
    EXPECT_FALSE(loading.Failed());
    EXPECT_EQ(loading.Remaining(), 0U);
    ASSERT_EQ(loaded.EntryCount(), passed);
    EXPECT_EQ(loaded.EntryAt(1)->name, "abd");
    EXPECT_EQ(loaded.EntryAt(passed - 1)->IsBlank(), passed > 3);
    ASSERT_EQ(loaded.ListCount(), 1);
    EXPECT_EQ(loaded.ListAt(0)->GetAt(0)->number, "12");
  }
}

TEST_F(FaxBookTest, AHostileStreamIsReadWithinBounds) {
  using namespace std::literals;
  struct Case {
    std::string_view bytes;
    bool fails;
    const char* held;
    std::string_view walk;  // as it is stored again
  };
  const std::string_view none = "\0\0\0\0"sv;
  const Case cases[] = {
      {"\xFF\xFF\xFF\x7F\1a\1b\0"sv, true, "", none},
      {"\2\0\0\0\1a\1b\0"sv, true, "", none},
      {"\2\0\0\0\1a\1b\0\1c\0"sv, true, "a c ", "\2\0\0\0"sv},
      {"\0\0"sv, true, "abc abd b ", none},
      {"\0\0\0\0\0\0\0\0"sv, false, "abc abd b ", none},
      {"\0\0\0\x80\0\0\0\0"sv, false, "abc abd b ", "\0\0\0\x80"sv},
  };
  for (const Case& each : cases) {
    ASSERT_EQ(book.LoadEntries(), 1);
    Archive loading(each.bytes);
    book.Serialize(loading);
    EXPECT_EQ(loading.Failed(), each.fails) << testing::PrintToString(each.bytes);
    EXPECT_EQ(Held(book), each.held) << testing::PrintToString(each.bytes);
    std::string stored;
    Archive storing(&stored);
    book.Serialize(storing);
    EXPECT_EQ(std::string_view(stored).substr(0, 4), each.walk);
  }
  EXPECT_EQ(book.PrevEntry(), nullptr) << "the walk stays in its range";
  EXPECT_EQ(book.NextEntry(), nullptr);
}

}  // namespace
}  // namespace quillkit
