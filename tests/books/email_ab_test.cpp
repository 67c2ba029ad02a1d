// The public e-mail book: opening it, its entries on the server, and what it passes to its view.

#include "books/email_ab.h"

#include <functional>
#include <memory>

#include "tests/books/email_fixture.h"
#include "views/entry_view.h"
#include "views/full_entry_view.h"
#include "views/letter_entry_view.h"
#include "views/sliding_entry_view.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

struct ServerOperation {
  const char* name;
  std::function<Status(const CEmailAB&)> run;
  Calls calls;
};

std::vector<ServerOperation> ServerOperations() {
  using B = CEmailAB;
  static std::uint32_t count;
  static CEmailEntry entry;
  static CEmailEntry records[2];
  static EntryKey rows[2];
  static KeyRange range("Ann", "");
  static IOCtlRecord request;
  count = 2;
  request = {};
  const auto named = [](const char* name) { return entry = MakeEntry(name), &entry; };
  std::vector<ServerOperation> all;
  const auto add = [&all](const char* name, auto run, Calls calls) {
    all.push_back({name, run, std::move(calls)});
  };
  add("EntryCount", [](const B& b) { return b.EntryCount(&count); }, {"IMSPSizeofAB 1:EMAILAB -"});
  add("ServerListCount", [](const B& b) { return b.ServerListCount(&count); },
      {"IMSPListAB 64: - - 1"});
  add("ServerListSize", [](const B& b) { return b.ServerListSize("Board", &count); },
      {"IMSPSizeofAB 64:Board -"});
  add("ReadEntries",
      [](const B& b) { return count = 2, b.ReadEntries(&range, records, &count, 1); },
      {"IMSPReadAB 1:EMAILAB [Ann||0] 2 1"});
  add("ListEntries", [](const B& b) { return count = 2, b.ListEntries(&range, rows, &count, 1); },
      {"IMSPListABEntries 1:EMAILAB [Ann||0] 2 1"});
  add("AddEntry", [=](const B& b) { return b.AddEntry(named("Cy")); },
      {"IMSPSizeofAB 1:EMAILAB -", "IMSPCreateEntry 1:EMAILAB Cy"});
  add("ModifyEntry", [=](const B& b) { return b.ModifyEntry(named("Ann")); },
      {"IMSPModifyEntry 1:EMAILAB Ann Ann"});
  add("RenameEntry", [=](const B& b) { return b.RenameEntry("Bob", named("Bert")); },
      {"IMSPModifyEntry 1:EMAILAB Bob Bert"});
  add("DeleteEntry", [=](const B& b) { return b.DeleteEntry(named("Bo")); },
      {"IMSPDeleteEntry 1:EMAILAB Bo"});
  add("ReadMembers", [](const B& b) { return count = 2, b.ReadMembers("Choir", records, &count); },
      {"IMSPReadAB 64:Choir - 2 1"});
  add("ReadMember", [=](const B& b) { return b.ReadMember("Board", named("Ann")); },
      {"IMSPReadEntryProperties 64:Board Ann"});
  add("CreateMember", [=](const B& b) { return b.CreateMember("Board", named("Cy")); },
      {"IMSPCreateEntry 64:Board Cy"});
  add("CreateMemberAddress", [](const B& b) { return b.CreateMemberAddress("Choir", "Cy", "at"); },
      {"IMSPCreateEntry 64:Choir Cy"});
  add("ModifyList",
      [](const B& b) {
        records[0] = MakeEntry("Ann");
        records[1] = MakeEntry("Zoe");
        return count = 2, b.ModifyList("Board", records, &count);
      },
      {"IMSPModifyEntry 64:Board Ann Ann", "IMSPModifyEntry 64:Board Zoe Zoe"});
  add("ModifyMember", [=](const B& b) { return b.ModifyMember("Board", named("Ann")); },
      {"IMSPModifyEntry 64:Board Ann Ann"});
  add("RenameMember", [=](const B& b) { return b.RenameMember("Board", "Zoe", named("Zed")); },
      {"IMSPModifyEntry 64:Board Zoe Zed"});
  add("DeleteMember", [=](const B& b) { return b.DeleteMember("Board", named("Ann")); },
      {"IMSPDeleteEntry 64:Board Ann"});
  add("DeleteServerList", [](const B& b) { return b.DeleteServerList("Choir"); },
      {"IMSPDeleteAB 64:Choir"});
  add("SetServerTimeout", [](const B& b) { return b.SetServerTimeout(9, &count); },
      {"IMSPIOCtl 2 0", "IMSPIOCtl 1 9000"});
  add("ServerCall", [](const B& b) { return b.ServerCall(&request); }, {"IMSPIOCtl 2 0"});
  return all;
}

TEST_F(EmailBookTest, EachServerOperationGivesWhatTheServerGives) {
  for (const ServerOperation& each : ServerOperations()) {
    Start();
    EXPECT_EQ(each.run(book), kNoError) << each.name;
    EXPECT_EQ(TakeCalls(), each.calls) << each.name;
    EXPECT_EQ(TheAgent.LastError(), kNoError) << each.name;
  }
}

TEST_F(EmailBookTest, EachServerOperationNeedsAScanner) {
  CEmailAB loose;
  for (const ServerOperation& each : ServerOperations()) {
    EXPECT_EQ(each.run(loose), kRefused) << each.name;
  }
  EXPECT_EQ(loose.ClearBook(), kRefused);
  EXPECT_EQ(loose.DeleteBook(), kRefused);
  EXPECT_EQ(loose.DeleteAllLists(), kRefused);
  EXPECT_EQ(loose.LoadLists(1), kRefused);
  CPubEmailDL list;
  EXPECT_EQ(loose.AddList(&list), -1);
  EXPECT_FALSE(loose.AddListReload(list, 1));
  EXPECT_EQ(loose.DeleteList("Board"), -1);
  EXPECT_EQ(loose.CopyListLocal(list, "Copy"), -1);
  CEmailEntry entry;
  EXPECT_EQ(loose.ReadFirstEntry(&entry), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(TheAgent.LastError(), kEarlierError);
  PageBoundary table[2];
  std::uint32_t rows = 2;
  EXPECT_EQ(loose.ReadBoundaries(table, &rows), kNoError);
  EXPECT_EQ(rows, 2U);
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
  SimulatorInflateSizes(500'000);
  SimulatorFail("IMSPSizeofAB", 1, kServerFault);
  EXPECT_EQ(book.DeleteEntry(&entry), kNoError);
  EXPECT_EQ(book.AddEntry(&entry), kNoError);  // a failed count is no count
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
  CEmailAB other;
  EXPECT_EQ(other.Attach(nullptr, 1, 0), 0);
  EXPECT_EQ(other.ViewMode(), 1);
  SimulatorFail("IMSPListAB", 1, kServerFault);
  EXPECT_EQ(other.Attach(box, 0, 0), 0);
  EXPECT_NE(other.View(), nullptr);
}

TEST_F(EmailBookTest, PicksTheViewByItsMode) {
  EXPECT_NE(dynamic_cast<CSlidingEntryView*>(book.View()), nullptr);
  EXPECT_EQ(book.GetPageSize(), 16);
  EXPECT_EQ(book.Attach(box, 1), 1);
  EXPECT_NE(dynamic_cast<CLetterEntryView*>(book.View()), nullptr);
  EXPECT_EQ(book.Attach(box, -3), 1);
  EXPECT_NE(dynamic_cast<CFullEntryView*>(book.View()), nullptr);
  SimulatorFail("IMSPReadAB", 1, kServerFault);
  EXPECT_EQ(book.Attach(box, 2), 0);
  const CEntryView* view = book.View();
  EXPECT_EQ(book.Attach(nullptr, 0), 0);
  EXPECT_EQ(book.View(), view);
}

TEST_F(EmailBookTest, SetsThePageSizeOfASlidingViewAlone) {
  EXPECT_EQ(book.SetPageSize(8), 8);
  EXPECT_EQ(book.SetPageSize(0), -1);
  EXPECT_EQ(book.GetPageSize(), 16);
  book.Attach(box, 1);
  EXPECT_EQ(book.SetPageSize(8), -1);
  CEmailAB bare;
  EXPECT_EQ(bare.SetPageSize(8), 8);
  EXPECT_EQ(bare.GetPageSize(), 16);
}

TEST_F(EmailBookTest, PassesNavigationToTheView) {
  EXPECT_STREQ(book.First()->Name(), "Ann");
  EXPECT_STREQ(book.Next()->Name(), "Bo");
  EXPECT_STREQ(book.Prev()->Name(), "Ann");
  EXPECT_STREQ(book.Last()->Name(), "Bob");
  EXPECT_STREQ(book.GetAt(1)->Name(), "Bo");
  EXPECT_STREQ(book.FindPrefix("Bo")->Name(), "Bo");
  EXPECT_STREQ(book.FindNextPrefix()->Name(), "Bob");
  EXPECT_STREQ(book.Find("Bo", 0)->Name(), "Bo");
  EXPECT_STREQ(book.FindNext(0)->Name(), "Bob");
  EXPECT_STREQ(book.FindPrev(0)->Name(), "Bo");
  EXPECT_STREQ(book.FindLetter('B')->Name(), "Bo");
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
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), 2);
}

TEST_F(EmailBookTest, AnswersNothingWithoutAView) {
  book.Attach(box, 0, 1);
  Start();
  CEmailEntry entry = MakeEntry("Ann");
  char letter = '?';
  for (CEmailEntry* each : {book.First(), book.Last(), book.Next(), book.Prev(), book.GetAt(0),
                            book.Find("Ann", 1), book.FindLetter('A'), book.FindNext(1),
                            book.FindPrev(1), book.FindPrefix("A"), book.FindNextPrefix()}) {
    EXPECT_EQ(each, nullptr);
  }
  EXPECT_EQ(book.Remove(&entry, 1), kRefused);
  EXPECT_EQ(book.Modify(&entry, 1), kRefused);
  EXPECT_EQ(book.ModifyByKey("Ann", &entry, 1), kRefused);
  EXPECT_EQ(book.FirstLetter(), '\0');
  EXPECT_EQ(book.NextLetter('A'), '\0');
  EXPECT_EQ(book.LetterStart('A'), -1);
  EXPECT_EQ(book.LetterOfIndex(0, &letter), -1);
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
  SimulatorFail("IMSPReadAB", 1, kServerFault);
  EXPECT_EQ(book.ReadFirstEntry(&entry), kServerFault);
  EXPECT_STREQ(entry.Name(), "Bob");
  box->ClearEmailBook();
  EXPECT_EQ(book.ReadFirstEntry(&entry), kDataNotFound);  // the census is the old one
  book.Attach(box, 0);
  EXPECT_EQ(book.ReadFirstEntry(&entry), kDataNotFound);
}

TEST_F(EmailBookTest, ClearsTheBookAndOpensTheViewAnew) {
  book.LoadLists(0);
  book.Attach(box, 2);
  Start();
  EXPECT_EQ(book.ClearBook(), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                                       "IMSPClearAB 1:EMAILAB -", "IMSPIOCtl 2 0",
                                       "IMSPIOCtl 1 30000", "IMSPReadAB 1:EMAILAB [||0] 512 1"));
  EXPECT_EQ(book.ListCount(), 2);
  EXPECT_EQ(book.First(), nullptr);
}

TEST_F(EmailBookTest, DeletesTheBookUnderTheLongTimeout) {
  book.LoadLists(0);
  for (const std::int32_t failing : {1, 2}) {
    Start();
    SimulatorFail("IMSPIOCtl", failing, kServerFault);
    EXPECT_EQ(book.DeleteBook(), kServerFault);
    EXPECT_EQ(TakeCalls().size(), static_cast<std::size_t>(failing));
    EXPECT_EQ(book.ListCount(), 2);
    EXPECT_NE(book.View(), nullptr);
  }
  SimulatorSetTimeout(1999);
  SimulatorFail("IMSPDeleteAB", 1, kServerFault);
  EXPECT_EQ(book.DeleteBook(), kServerFault);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                                       "IMSPDeleteAB 1:EMAILAB", "IMSPIOCtl 1 1999"));
  EXPECT_EQ(book.ListCount(), 0);
  EXPECT_EQ(book.View(), nullptr);
  EXPECT_EQ(book.DeleteBook(), kNoError);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, nullptr, nullptr), 0);
}

// Counts its deletions.
class WatchedBook : public CEmailAB {
 public:
  explicit WatchedBook(int* deletions) : deletions_(deletions) {}
  ~WatchedBook() override { ++*deletions_; }

 private:
  int* deletions_;
};

TEST_F(EmailBookTest, BelongsToItsScanner) {
  int deletions = 0;
  EXPECT_EQ(box->EmailBook(), nullptr);
  EXPECT_EQ(box->SetEmailBook(nullptr), 1);
  ASSERT_NE(box->EmailBook(), nullptr);
  EXPECT_EQ(box->EmailBook()->Scanner(), box);
  EXPECT_EQ(box->EmailBook()->GetPageSize(), 16);
  EXPECT_THAT(TakeCalls(), IsEmpty());
  auto* watched = new WatchedBook(&deletions);
  EXPECT_EQ(box->SetEmailBook(watched), 1);
  EXPECT_EQ(box->SetEmailBook(watched), 1);
  EXPECT_EQ(watched->Scanner(), nullptr);
  EXPECT_EQ(box->DetachEmailBook(), watched);
  EXPECT_EQ(box->EmailBook(), nullptr);
  EXPECT_EQ(box->DetachEmailBook(), nullptr);
  EXPECT_EQ(box->SetEmailBook(watched), 1);
  EXPECT_EQ(deletions, 0);
  EXPECT_EQ(box->SetEmailBook(nullptr), 1);
  EXPECT_EQ(deletions, 1);

  CScanner unbound;
  EXPECT_EQ(unbound.SetEmailBook(nullptr), 0);
  EXPECT_EQ(unbound.SetEmailBook(&book), 0);
  EXPECT_EQ(unbound.EmailBook(), nullptr);
  EXPECT_EQ(unbound.DetachEmailBook(), nullptr);
}

TEST(EmailBookClass, IsMadeByName) {
  for (const char* name : {"CEmailAB", "CEmailDL", "CPubEmailDL"}) {
    const std::unique_ptr<RootObject> object(CreateByName(name));
    ASSERT_NE(object, nullptr) << name;
    EXPECT_STREQ(object->GetRuntimeClass()->name, name);
    EXPECT_EQ(object->GetRuntimeClass()->schema, 1U);
  }
  EXPECT_TRUE(CPubEmailDL::kClass.IsA(CEmailDL::kClass));
}

}  // namespace
}  // namespace quillkit
