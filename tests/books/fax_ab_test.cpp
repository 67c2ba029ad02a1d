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

using testing::ElementsAre;
using testing::IsEmpty;

const std::string kReadFax = "IMSPReadAB 2:FAXAB [||0] 2048 1";

CFaxEntry MakeFax(std::string_view name, std::string_view number) {
  CFaxEntry entry;
  entry.SetName(name);
  entry.SetNumber(number);
  return entry;
}

class FaxBookTest : public ApplianceTest {
 protected:
  FaxBookTest() : box(LogIn()) {
    for (const char* name : {"abc", "abd", "b"}) Put(MakeFax(name, "1"));
    book.Attach(box, 1);
    SimulatorClearJournal();
  }

  static void Put(const CFaxEntry& entry) {
    SimulatorPutEntry(BookKind::kFax, "", nullptr, &entry);
  }
  static void PutMember(const char* list, const CFaxEntry& member) {
    SimulatorPutEntry(BookKind::kFaxList, list, nullptr, &member);
  }

  std::string Held() {
    std::string names;
    for (std::int32_t i = 0; i < book.EntryCount(); ++i) {
      names.append(book.EntryAt(i)->name.View()).append(" ");
    }
    return names;
  }

  CScanner* const box;
  CFaxAB book;
};

struct Change {
  const char* name;
  std::int32_t (*run)(CFaxAB& book, CFaxEntry* entry);
  const char* call;
  std::int32_t result;
  std::int32_t refused;
  bool reloads;
  const char* held;
};

const Change kChanges[] = {
    {"AddEntry", [](CFaxAB& b, CFaxEntry* e) { return b.AddEntry(e, 0); },
     "IMSPCreateEntry 2:FAXAB aa", 1, 0, false, "abc abd b "},
    {"AddEntryAndReload", [](CFaxAB& b, CFaxEntry* e) { return b.AddEntry(e, 1); },
     "IMSPCreateEntry 2:FAXAB aa", 1, 0, true, "aa abc abd b "},
    {"FastAddEntry", [](CFaxAB& b, CFaxEntry* e) { return b.FastAddEntry(e); },
     "IMSPCreateEntry 2:FAXAB aa", 4, -1, false, "abc abd b aa "},
    {"RenameEntry", [](CFaxAB& b, CFaxEntry* e) { return b.RenameEntry("abd", e, 0); },
     "IMSPModifyEntry 2:FAXAB abd aa", 1, 0, false, "abc abd b "},
    {"FastRenameEntry", [](CFaxAB& b, CFaxEntry* e) { return b.FastRenameEntry("abd", e); },
     "IMSPModifyEntry 2:FAXAB abd aa", 1, 0, false, "abc aa b "},
    {"DeleteEntryAndReload",
     [](CFaxAB& b, CFaxEntry* e) {
       e->SetName("b");
       return b.DeleteEntry(e, 1);
     },
     "IMSPDeleteEntry 2:FAXAB b", 1, 0, true, "abc abd "},
    {"FastDeleteEntry",
     [](CFaxAB& b, CFaxEntry* e) {
       e->SetName("b");
       return b.FastDeleteEntry(e);
     },
     "IMSPDeleteEntry 2:FAXAB b", 2, -1, false, "abc abd "},
    {"ReadEntryAndReload",
     [](CFaxAB& b, CFaxEntry* e) {
       e->SetName("abc");
       return b.ReadEntry(e, 1);
     },
     "IMSPReadEntryProperties 2:FAXAB abc", 1, 0, true, "abc abd b "},
    {"FastModifyEntry",
     [](CFaxAB& b, CFaxEntry* e) {
       e->SetName("abc");
       const int result = b.FastModifyEntry(e);
       return result == 1 && b.EntryAt(0)->number == "2" ? 1 : 0;
     },
     "IMSPModifyEntry 2:FAXAB abc abc", 1, 0, false, "abc abd b "},
};

class FaxChangeTest : public FaxBookTest, public testing::WithParamInterface<Change> {};

TEST_P(FaxChangeTest, GivesItsResultAndPatchesOrReadsAnew) {
  CFaxEntry entry = MakeFax("aa", "2");
  EXPECT_EQ(GetParam().run(book, &entry), GetParam().result);
  std::vector<std::string> calls = {GetParam().call};
  if (GetParam().reloads) calls.push_back(kReadFax);
  EXPECT_EQ(TakeCalls(), calls);
  EXPECT_EQ(Held(), GetParam().held);
}

TEST_P(FaxChangeTest, ARefusalLeavesWhatIsHeld) {
  SimulatorFail(nullptr, 1, 11);
  CFaxEntry entry = MakeFax("aa", "2");
  EXPECT_EQ(GetParam().run(book, &entry), GetParam().refused);
  EXPECT_THAT(TakeCalls(), ElementsAre(GetParam().call));
  EXPECT_EQ(Held(), "abc abd b ");
  EXPECT_EQ(TheAgent.LastError(), 11);
}

INSTANTIATE_TEST_SUITE_P(Changes, FaxChangeTest, testing::ValuesIn(kChanges),
                         [](const auto& each) { return std::string(each.param.name); });

TEST_F(FaxBookTest, AtTheLimitNothingIsSent) {
  for (int i = 3; i < FaxReadCapacity; ++i) Put(MakeFax("n" + std::to_string(i), "1"));
  ASSERT_EQ(book.LoadEntries(), 1);
  ASSERT_EQ(book.EntryCount(), MaxFaxEntries);
  SimulatorClearJournal();
  CFaxEntry entry = MakeFax("zz", "1");
  EXPECT_EQ(book.AddEntry(&entry, 1), 0);
  EXPECT_EQ(TheAgent.LastError(), 24);
  TheAgent.SetError(0);
  EXPECT_EQ(book.FastAddEntry(&entry), -1);
  EXPECT_EQ(TheAgent.LastError(), 24);
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
}

TEST_F(FaxBookTest, SearchesTellTheWholeNameByTheModeOneAlone) {
  EXPECT_EQ(book.FindFirstEntry("ab", 1), -1);
  EXPECT_EQ(book.FindFirstEntry("ab", 2), 0);
  EXPECT_EQ(book.FindNextEntry(0), 1);
  EXPECT_EQ(book.FindNextEntry(0), -1);
  EXPECT_EQ(book.FindEntryIndex("absent"), -1);
  EXPECT_EQ(book.FindNextEntry(0), 1) << "a miss of FindEntryIndex leaves the cursor at 0";

  CFaxEntryList sorted;
  for (const char* name : {"a", "c", "e", "g"}) sorted.Append(MakeFax(name, "1"));
  for (std::int32_t i = 0; i < sorted.Count(); ++i) {
    EXPECT_EQ(sorted.BinaryLookup(sorted.At(i)->name.View(), 0, 1), i);
  }
  EXPECT_EQ(sorted.BinaryLookup("d", 0, 1), -1);
  EXPECT_EQ(sorted.BinaryLookup("g", 3, 1), 3);
  EXPECT_EQ(CFaxEntryList().BinaryLookup("a", 0, 1), -1);
}

TEST_F(FaxBookTest, ListsAreLoadedAddedAndDeleted) {
  PutMember("Team", MakeFax("m", "1"));
  EXPECT_EQ(book.LoadLists(1), 0);
  ASSERT_EQ(book.ListCount(), 1);
  EXPECT_EQ(book.ListAt(0)->Count(), 1);
  EXPECT_TRUE(book.ListAt(0)->IsPublic());

  EXPECT_EQ(book.FastDuplicateList(*book.ListAt(0), "Crew"), 1);
  EXPECT_EQ(book.DuplicateList(*book.ListAt(0), "Gang", 1), 1);
  EXPECT_EQ(book.ListCount(), 3);
  EXPECT_EQ(book.DuplicateList(*book.ListAt(0), "Gang", 0), 0);
  EXPECT_EQ(book.FastDeleteList("Gang"), 2);
  EXPECT_EQ(book.FastDeleteList("Gang"), -1);
  PutMember("Late", MakeFax("m", "1"));
  EXPECT_EQ(book.FastDeleteList("Late"), 2) << "a list that is not held is no failure";

  SimulatorFail("IMSPCreateEntry", 0, 11);
  CPubFaxDL list;
  list.SetName("Partial");
  EXPECT_EQ(book.AddList(list, 0), 1);
  SimulatorClearFaults();
  EXPECT_EQ(book.DeleteAllLists(), 0);
  EXPECT_EQ(book.ListCount(), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kFaxList, "Partial", nullptr), 0)
      << "what is not held stays";
}

TEST_F(FaxBookTest, At512ListsNoneIsAdded) {
  for (std::uint32_t i = 0; i < MaxFaxLists; ++i) {
    PutMember(("list " + std::to_string(i)).c_str(), MakeFax("m", "1"));
  }
  CPubFaxDL list;
  list.SetName("one more");
  EXPECT_EQ(book.AddList(list, 1), 0);
  EXPECT_EQ(TheAgent.LastError(), 24);
  EXPECT_EQ(book.FastAddList(&list), -1);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPListAB 768: - - 1", "IMSPListAB 768: - - 1"));
}

TEST_F(FaxBookTest, TheStreamHoldsAsManyEntriesAsTheWalkHasPassed) {
  book.FirstEntry();
  book.NextEntry();
  book.NextEntry();
  std::string bytes;
  Archive storing(&bytes);
  book.Serialize(storing);

  CFaxAB loaded;
  Archive loading{std::string_view(bytes)};
  loaded.Serialize(loading);
  EXPECT_FALSE(loading.Failed());
  ASSERT_EQ(loaded.EntryCount(), 2);
  EXPECT_EQ(loaded.EntryAt(1)->name, "abd");

  for (int i = 0; i < 5; ++i) book.NextEntry();
  bytes.clear();
  Archive past(&bytes);
  book.Serialize(past);
  CFaxAB blanks;
  Archive reading{std::string_view(bytes)};
  blanks.Serialize(reading);
  ASSERT_EQ(blanks.EntryCount(), 7);
  EXPECT_TRUE(blanks.EntryAt(6)->IsBlank());
}

TEST_F(FaxBookTest, WithoutAScannerNothingIsSent) {
  CFaxAB loose;
  CFaxEntry entry = MakeFax("a", "1");
  std::uint32_t count = 0;
  CPubFaxDL list;
  EXPECT_EQ(loose.Attach(nullptr, 1), 0);
  EXPECT_EQ(loose.LoadEntries(), 0);
  EXPECT_EQ(loose.AddEntry(&entry, 1), 0);
  EXPECT_EQ(loose.FastAddEntry(&entry), -1);
  EXPECT_EQ(loose.FastDeleteEntry(&entry), -1);
  EXPECT_EQ(loose.SizeofBook(&count), -1);
  EXPECT_EQ(loose.ClearBook(), -1);
  EXPECT_EQ(loose.ServerListCount(&count), -1);
  EXPECT_EQ(loose.AddList(list, 1), 0);
  EXPECT_EQ(loose.FindEntryIndex("a"), -1);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(FaxBookTest, TheSlotOfTheScannerOpensAndReplacesABook) {
  EXPECT_EQ(box->SetFaxBook(nullptr), 1);
  EXPECT_EQ(box->FaxBook()->EntryCount(), 3);
  SimulatorFail("IMSPReadAB", 1, 11);
  EXPECT_EQ(box->SetFaxBook(nullptr), 0);
  const std::unique_ptr<CFaxAB> detached(box->DetachFaxBook());
  EXPECT_NE(detached, nullptr);
  EXPECT_EQ(box->FaxBook(), nullptr);
}

}  // namespace
}  // namespace quillkit
