// The five books that a scanner owns: stored, released, opened and deleted.

#include "books/printer_ab.h"
#include "softkeys/top_level_ab.h"
#include "tests/books/books_fixture.h"

namespace quillkit {
namespace {

// Sets a flag when it is destroyed.
template <class Book>
class Watched : public Book {
 public:
  explicit Watched(bool* flag) : isGone(flag) {}
  ~Watched() override { *isGone = true; }

 private:
  bool* isGone;
};

class ScannerSlotTest : public BooksTest {
 public:
  template <class Book>
  void Check(int (CScanner::*set)(Book*), Book* (CScanner::*get)() const,
             Book* (CScanner::*detach)()) {
    SCOPED_TRACE(Book::kClass.name);
    bool isGone = false;
    CScanner& scanner = *box;
    auto* book = new Watched<Book>(&isGone);
    EXPECT_EQ((scanner.*set)(book), 1);
    EXPECT_EQ((scanner.*detach)(), book);
    EXPECT_EQ((scanner.*get)(), nullptr);
    EXPECT_EQ((scanner.*detach)(), nullptr);
    EXPECT_EQ((scanner.*set)(book), 1);
    EXPECT_EQ((scanner.*set)(book), 1) << "the book that the scanner owns already is accepted";
    scanner.SetAgent(nullptr);
    EXPECT_EQ((scanner.*get)(), nullptr);
    EXPECT_EQ((scanner.*detach)(), nullptr);
    EXPECT_EQ((scanner.*set)(nullptr), 0);
    scanner.SetAgent(&TheAgent);
    EXPECT_EQ((scanner.*get)(), book);
    EXPECT_FALSE(isGone);
    EXPECT_EQ((scanner.*set)(nullptr), 1);
    EXPECT_TRUE(isGone);
  }
};

TEST_F(ScannerSlotTest, EachSlotOwnsItsBookAndNullCreatesANewOne) {
  Check(&CScanner::SetEmailBook, &CScanner::EmailBook, &CScanner::DetachEmailBook);
  Check(&CScanner::SetUsersBook, &CScanner::UsersBook, &CScanner::DetachUsersBook);
  Check(&CScanner::SetFaxBook, &CScanner::FaxBook, &CScanner::DetachFaxBook);
  Check(&CScanner::SetPrintersBook, &CScanner::PrintersBook, &CScanner::DetachPrintersBook);
  Check(&CScanner::SetTopBook, &CScanner::TopBook, &CScanner::DetachTopBook);
  EXPECT_EQ(box->UsersBook()->Count(), 3);
  EXPECT_EQ(box->EmailBook()->GetPageSize(), 16);
}

TEST_F(ScannerSlotTest, ANewBookThatCannotBeReadStaysInItsSlot) {
  SimulatorFail(nullptr, 0, kFault);
  EXPECT_EQ(box->SetEmailBook(nullptr), 1) << "setting the e-mail book reads nothing";
  EXPECT_EQ(box->SetUsersBook(nullptr), 0);
  EXPECT_EQ(box->SetFaxBook(nullptr), 0);
  EXPECT_EQ(box->SetPrintersBook(nullptr), 1);
  EXPECT_EQ(TakeCalls().size(), 4U)
      << "one read each of accounts, fax entries, models and printers";
  EXPECT_EQ(box->UsersBook()->Scanner(), box);
  EXPECT_NE(box->FaxBook(), nullptr);
  EXPECT_NE(box->PrintersBook(), nullptr);
}

}  // namespace
}  // namespace quillkit
