// What a scanner is, what it does when it is not bound, and who writes its tag.

#include "appliance/scanner.h"

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr std::uint32_t kAddress = 0x0100007F;
constexpr std::uint32_t kNowhere = 0;

TEST(Scanner, IsNothingUntilItIsBound) {
  CScanner scanner;
  EXPECT_EQ(scanner.Init("a", &kAddress, "b", "c", nullptr), 0);
  EXPECT_EQ(scanner.Init("a", &kNowhere, "b", "c", &TheAgent), 0);
  EXPECT_EQ(scanner.Init("a", nullptr, "b", "c", &TheAgent), 0);
  EXPECT_EQ(scanner.Name(), "");
  CUserEntry entry;
  EXPECT_EQ(scanner.EnrolUser(&entry), kRefused);
  EXPECT_EQ(scanner.LogCount(), 0U);
  EXPECT_EQ(scanner.LogRecordAt(0), nullptr);

  EXPECT_EQ(scanner.Init("a", &kAddress, "b", "c", &TheAgent), 1);
  CScanner other;
  EXPECT_TRUE(scanner != other);
  other.SetAddress(&kAddress);
  EXPECT_TRUE(scanner == other) << "the appliance of its address";

  for (const bool bound : {true, false}) {
    if (!bound) scanner.SetAddress(&kNowhere);
    std::string texts[] = {"-", "-", "-"};
    std::uint32_t address = 5;
    scanner.GetName(texts[0]);
    scanner.GetModel(texts[1]);
    scanner.GetVersion(texts[2]);
    scanner.GetAddress(&address);
    EXPECT_EQ(texts[0] + texts[1] + texts[2], bound ? "abc" : "---");
    EXPECT_EQ(address, bound ? kAddress : 5);
    EXPECT_EQ(scanner.Agent(), bound ? &TheAgent : nullptr);
    EXPECT_EQ(scanner.Name() + scanner.Model() + scanner.Version(), "abc");
  }
}

using ScannerServices = ApplianceTest;

TEST_F(ScannerServices, ClearingOfAnUnboundScannerReadsAsSuccess) {
  CScanner* const box = LogIn();
  TheAgent.SetError(17);
  box->SetAddress(&kNowhere);
  EXPECT_EQ(box->ClearEmailBook(), kNoError);
  EXPECT_EQ(TheAgent.LastError(), 17);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(ScannerServices, TheAdministratorAloneWritesTheTag) {
  CScanner* const box = LogIn();
  const std::uint32_t tag = 77;
  const std::string read = "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR";
  EXPECT_EQ(box->WriteAdminTag(&tag), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre(read, "IMSPModifyEntry 4:USERSAB ADMINISTRATOR ADMINISTRATOR"));
  CUserEntry stored;
  SimulatorFindEntry(BookKind::kUsers, "", nullptr, "ADMINISTRATOR", &stored);
  EXPECT_EQ(stored.password.View(), kPassword) << "the rest of the entry stays";

  std::uint32_t found = 0;
  EXPECT_EQ(box->ReadAdminTag(&found), kNoError);
  EXPECT_EQ(found, 77U);
  SimulatorFail("IMSPReadEntryProperties", 0, 6);
  found = 5;
  EXPECT_EQ(box->ReadAdminTag(&found), 6);
  EXPECT_EQ(found, 5U);
  TakeCalls();
  EXPECT_EQ(box->WriteAdminTag(&tag), 6);
  EXPECT_THAT(TakeCalls(), ElementsAre(read));

  SimulatorClearFaults();
  CScanner* const another = LogToQuillbox(kHost, "TOOLKIT", "KELP", "", 0);
  ASSERT_NE(another, nullptr);
  TakeCalls();
  EXPECT_EQ(another->WriteAdminTag(&tag), kRefused);
  TheAgent.Logout(0);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPLogout"));
  EXPECT_EQ(another->WriteAdminTag(&tag), kRefused);
  EXPECT_EQ(CScanner().WriteAdminTag(&tag), kRefused);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace quillkit
