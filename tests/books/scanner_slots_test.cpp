// The five books that a scanner owns: taken over, handed out, opened, and deleted.

#include "appliance/scanner.h"
#include "books/email_ab.h"
#include "books/fax_ab.h"
#include "books/printer_ab.h"
#include "books/user_ab.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "softkeys/top_level_ab.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

// Sets a flag when it is destroyed.
template <class Book>
class Watched : public Book {
 public:
  explicit Watched(bool* flag) : ended(flag) {}
  ~Watched() override { *ended = true; }

 private:
  bool* ended;
};

class ScannerSlotTest : public ApplianceTest {
 protected:
  template <class Book>
  void Check(int (CScanner::*set)(Book*), Book* (CScanner::*get)() const,
             Book* (CScanner::*detach)()) {
    SCOPED_TRACE(Book::kClass.name);
    bool gone = false;
    auto* book = new Watched<Book>(&gone);
    EXPECT_EQ((box->*set)(book), 1);
    EXPECT_EQ((box->*set)(book), 1) << "its own again";
    EXPECT_EQ((box->*detach)(), book);
    EXPECT_EQ((box->*get)(), nullptr);
    EXPECT_EQ((box->*detach)(), nullptr);
    EXPECT_EQ((box->*set)(book), 1);
    box->SetAgent(nullptr);
    EXPECT_EQ((box->*get)(), nullptr);
    EXPECT_EQ((box->*detach)(), nullptr);
    EXPECT_EQ((box->*set)(nullptr), 0);
    box->SetAgent(&TheAgent);
    EXPECT_EQ((box->*get)(), book);
    EXPECT_THAT(TakeCalls(), testing::IsEmpty());
    EXPECT_FALSE(gone);
    EXPECT_EQ((box->*set)(nullptr), 1);
    EXPECT_TRUE(gone);
    TakeCalls();
  }

  CScanner* const box = LogIn();
};

TEST_F(ScannerSlotTest, EachTakesABookOverAndHandsItOut) {
  Check(&CScanner::SetEmailBook, &CScanner::EmailBook, &CScanner::DetachEmailBook);
  Check(&CScanner::SetUsersBook, &CScanner::UsersBook, &CScanner::DetachUsersBook);
  Check(&CScanner::SetFaxBook, &CScanner::FaxBook, &CScanner::DetachFaxBook);
  Check(&CScanner::SetPrintersBook, &CScanner::PrintersBook, &CScanner::DetachPrintersBook);
  Check(&CScanner::SetTopBook, &CScanner::TopBook, &CScanner::DetachTopBook);
  EXPECT_EQ(box->UsersBook()->Count(), 3);
  EXPECT_EQ(box->EmailBook()->GetPageSize(), 16);
}

TEST_F(ScannerSlotTest, ABookThatCannotBeReadStandsInItsSlot) {
  SimulatorFail(nullptr, 0, 6);
  EXPECT_EQ(box->SetEmailBook(nullptr), 1) << "which reads nothing yet";
  EXPECT_EQ(box->SetUsersBook(nullptr), 0);
  EXPECT_EQ(box->SetFaxBook(nullptr), 0);
  EXPECT_EQ(box->SetPrintersBook(nullptr), 1);
  EXPECT_THAT(TakeCalls(), testing::ElementsAre("IMSPReadAB 4:USERSAB [||0] 4096 1",
                                                "IMSPReadAB 2:FAXAB [||0] 2048 1",
                                                "IMSPListABEntries 2048:MODELAB [|*|0] 16 1",
                                                "IMSPListABEntries 8:PRINTERSAB [|*|0] 256 1"));
  EXPECT_EQ(box->UsersBook()->Scanner(), box);
  EXPECT_EQ(box->UsersBook()->Count(), 0);
  EXPECT_NE(box->FaxBook(), nullptr);
  EXPECT_EQ(box->PrintersBook()->PrinterCount(), 0);
}

}  // namespace
}  // namespace quillkit
