// Fax lists: what their record and their kind of book make different from e-mail lists.

#include "appliance/scanner.h"
#include "base/archive.h"
#include "books/fax_ab.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

class FaxListTest : public ApplianceTest {
 protected:
  FaxListTest() {
    for (const char* name : {"Ann", "Bob", "Cy"}) {
      CFaxEntry member;
      member.Set(EntryKey(name), "12", "3");
      SimulatorPutEntry(BookKind::kFaxList, "Team", nullptr, &member);
    }
    book.Attach(LogIn(), 0);
    list.Open(&book, "Team");
    TakeCalls();
  }

  CFaxAB book;
  CPubFaxDL list;
};

TEST_F(FaxListTest, IsClearedAndDeletedUnderTheLongTimeout) {
  SimulatorSetTimeout(2000);
  EXPECT_EQ(list.ClearMembers(), kNoError);
  EXPECT_EQ(list.DestroyList(), kNoError);
  EXPECT_EQ(SimulatorBookSize(BookKind::kFaxList, "Team", nullptr), -1);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", "IMSPClearAB 768:Team -",
                          "IMSPIOCtl 1 2000", "IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                          "IMSPDeleteAB 768:Team", "IMSPIOCtl 2 0", "IMSPIOCtl 1 2000"));
}

TEST_F(FaxListTest, IsStoredWithItsMembers) {
  std::string stored;
  Archive sink(&stored);
  list.RemoveAt(2, 0);
  list.Serialize(sink);
  EXPECT_EQ(stored, std::string("\2\0\0\0\4Team\3Ann\00212\0013\3Bob\00212\0013", 27));
  CPubFaxDL loaded;
  Archive source{std::string_view(stored)};
  loaded.Serialize(source);
  ASSERT_EQ(loaded.Count(), 2);
  EXPECT_EQ(loaded.GetAt(1)->number, "12");
}

}  // namespace
}  // namespace quillkit
