// The public e-mail lists that the e-mail book holds, and the second handle on a book.

#include <memory>

#include "books/email_ab_handle.h"
#include "tests/books/email_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::unique_ptr<CPubEmailDL> MakeList(std::string_view name) {
  auto list = std::make_unique<CPubEmailDL>();
  list->SetName(name);
  return list;
}

TEST_F(EmailBookTest, LoadsTheListsOfTheServer) {
  EXPECT_EQ(book.LoadLists(1), kNoError);
  EXPECT_EQ(ListNames(book), "Board Choir ");
  EXPECT_EQ(MemberNames(*book.ListAt(0)), "Ann Zoe ");
  EXPECT_EQ(book.ListAt(0)->Book(), &book);
  EXPECT_EQ(book.ListAt(2), nullptr);
  Start();
  EXPECT_EQ(book.LoadLists(0), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPListAB 64: [|*|0] 512 1"));
  EXPECT_EQ(book.ListAt(1)->Name(), "Choir");
  EXPECT_EQ(book.ListAt(1)->Count(), 0);
  EXPECT_EQ(book.ListAt(1)->Book(), nullptr);
  SimulatorFail("IMSPListAB", 1, kServerFault);
  EXPECT_EQ(book.LoadLists(0), kServerFault);
  EXPECT_EQ(book.ListCount(), 0);

  book.LoadLists(0);
  PutList("Unseen", {"Ann"});
  EXPECT_EQ(book.DeleteAllLists(), kNoError);
  EXPECT_EQ(book.ListCount(), 0);
  EXPECT_EQ(ServerSize("Board"), -1);
  EXPECT_EQ(ServerSize("Unseen"), 1) << "what is not held stays";
  EXPECT_TRUE(book.DeleteListReload("Unseen", 0));
  EXPECT_EQ(book.LoadLists(1), kNoError) << "there are none";
}

TEST_F(EmailBookTest, DeletesThroughAScannerWithoutAnAddress) {
  book.LoadLists(0);
  const std::uint32_t nowhere = 0;
  box->SetAddress(&nowhere);
  EXPECT_EQ(book.DeleteAllLists(), kNoError);
  EXPECT_EQ(ServerSize("Board"), -1);
  EXPECT_EQ(book.DeleteBook(), kNoError);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), 0);
}

TEST_F(EmailBookTest, HoldsTheFirstFiveHundredAndTwelve) {
  for (int i = 0; i < 511; ++i) PutList(("List" + std::to_string(1000 + i)).c_str(), {"Ann"});
  EXPECT_EQ(book.LoadLists(0), kMoreData);
  EXPECT_EQ(book.ListCount(), 512);
  CEmailAB other;
  EXPECT_EQ(other.Attach(box, 0, 0), 0);
  EXPECT_EQ(other.ListCount(), 512);
  EXPECT_NE(other.View(), nullptr);
  SimulatorSetLies(kLieDeliveredCount | kLieUnterminated);
  EXPECT_EQ(book.LoadLists(1), kMoreData);
  EXPECT_EQ(book.ListCount(), 512);
}

TEST_F(EmailBookTest, CopiesTheMembersThatWereDelivered) {
  SimulatorSetLies(kLieUntold);  // one of two
  ASSERT_EQ(book.CopyListLocal(*MakeList("Board"), "Copy"), 1);
  EXPECT_EQ(MemberNames(*book.ListAt(0)), "Ann ");
  EXPECT_EQ(ServerSize("Copy"), 1);
}

TEST_F(EmailBookTest, AddsNoListToAFullServer) {
  const auto list = MakeList("Dance");
  SimulatorInflateSizes(510);
  EXPECT_EQ(book.AddList(list.get()), -1);
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  TheAgent.SetError(kEarlierError);
  EXPECT_FALSE(book.AddListReload(*list, 1));
  EXPECT_EQ(TheAgent.LastError(), kBookFull);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPListAB 64: - - 1", "IMSPListAB 64: - - 1"));
  SimulatorInflateSizes(509);
  EXPECT_TRUE(book.AddListReload(*list, 1));
  EXPECT_EQ(ListNames(book), "Board Choir Dance ");
}

TEST_F(EmailBookTest, SearchesItsLists) {
  for (const char* name : {"ab", "abc", "abd"}) PutList(name, {"Ann"});
  book.LoadLists(0);  // Board Choir ab abc abd
  const auto first = [this](std::string_view pattern, std::int32_t exact) {
    EXPECT_EQ(book.FindFirstList(pattern, exact), 0);
    return book.FoundList() != nullptr ? book.FoundList()->Name() : "-";
  };
  const auto next = [this] {
    EXPECT_EQ(book.FindNextList(0), 0);
    return book.FoundList() != nullptr ? book.FoundList()->Name() : "-";
  };
  EXPECT_EQ(next(), "-") << "before any search";
  EXPECT_EQ(first("ab", 1), "ab");
  EXPECT_EQ(next(), "abc");
  EXPECT_EQ(first("x", 0), "-");
  EXPECT_EQ(next(), "-");
  EXPECT_EQ(first("abc", 0), "abc");
  EXPECT_EQ(next(), "-");
  first("ab", 0);
  EXPECT_EQ(book.RemoveListAt(3), 1);
  EXPECT_EQ(next(), "abd");
  first("ab", 0);
  EXPECT_EQ(book.RemoveListAt(2), 1);
  EXPECT_EQ(book.FoundList(), nullptr) << "the walk stood on it";
  EXPECT_EQ(book.FindList("abd")->Name(), "abd");
  EXPECT_EQ(book.FindList("ab"), nullptr);
}

TEST_F(EmailBookTest, ChangesItsListsLocally) {
  book.LoadLists(0);
  Start();
  const std::unique_ptr<CPubEmailDL> old(book.ListAt(1));
  auto* list = new CPubEmailDL;
  EXPECT_EQ(book.SetListAt(2, list), -1);
  EXPECT_EQ(book.SetListAt(-1, list), -1);
  EXPECT_EQ(book.SetListAt(1, nullptr), -1);
  EXPECT_EQ(book.SetListAt(1, list), 0);
  EXPECT_EQ(book.ListAt(1), list);
  EXPECT_EQ(old->Name(), "Choir");
  EXPECT_EQ(book.RemoveListAt(2), 0);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(EmailBookTest, HasASecondHandle) {
  constexpr struct {
    std::int32_t mode;
    int result;
    bool entries, lists;
  } kCases[] = {{0, 1, true, true}, {1, 1, false, true}, {2, 1, true, false}, {3, 0, false, false}};
  for (const auto& each : kCases) {
    SCOPED_TRACE(each.mode);
    CEmailABHandle handle;
    EXPECT_THAT(Tour(handle), testing::Each("-"));
    EXPECT_EQ(handle.Attach(nullptr, each.mode), 0);
    EXPECT_EQ(handle.Attach(&book, each.mode), each.result);
    EXPECT_EQ(handle.Mode(), each.mode);
    EXPECT_EQ(Tour(handle), each.entries ? Tour(book) : Calls(11, "-"));
    Start();
    std::uint32_t count = 0;
    EXPECT_EQ(handle.EntryCount(&count), each.entries ? kNoError : kRefused);
    EXPECT_EQ(handle.ServerListCount(&count), each.lists ? kNoError : kRefused);
    EXPECT_EQ(handle.ServerListSize("Board", &count), each.lists ? kNoError : kRefused);
    EXPECT_EQ(TakeCalls().size(), (each.entries ? 1U : 0U) + (each.lists ? 2U : 0U));
    EXPECT_EQ(handle.FindList("Board") != nullptr, each.lists);
    EXPECT_EQ(handle.FindFirstList("C", 0), 0);
    EXPECT_EQ(handle.Book()->FoundList() != nullptr, each.lists);
    EXPECT_EQ(handle.FindNextList(0), 0);
    EXPECT_EQ(handle.Book()->FoundList(), nullptr);
  }
}

TEST_F(EmailBookTest, AHandleHasItsOwnPosition) {
  CEmailABHandle handle;
  ASSERT_EQ(handle.Attach(&book, 2), 1);
  EXPECT_STREQ(book.First()->Name(), "Ann");
  EXPECT_STREQ(handle.Last()->Name(), "Bob");
  EXPECT_STREQ(book.Next()->Name(), "Bo");
  EXPECT_STREQ(handle.Prev()->Name(), "Bo");
  EXPECT_EQ(handle.Attach(handle.Book(), 0), 1);  // the book that goes
  EXPECT_EQ(handle.Book()->Scanner(), box);
  EXPECT_STREQ(handle.First()->Name(), "Ann");
  EXPECT_NE(handle.FindList("Board"), nullptr);
}

}  // namespace
}  // namespace quillkit
