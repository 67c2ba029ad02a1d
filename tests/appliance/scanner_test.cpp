// What a scanner is, and what it does to the records and the arguments of its calls.

#include "appliance/scanner.h"

#include <gtest/gtest.h>

#include <string>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kEarlier = 17;
constexpr Status kFault = 6;
constexpr std::uint32_t kAddress = 0x0100007F;
constexpr std::uint32_t kNowhere = 0;

TEST(Scanner, ReturnsItsFieldsOnlyWithAnAgentAndAnAddress) {
  CScanner scanner;
  EXPECT_EQ(scanner.Init("a", &kAddress, "b", "c", nullptr), 0);
  EXPECT_EQ(scanner.Init("a", &kNowhere, "b", "c", &TheAgent), 0);
  EXPECT_EQ(scanner.Init("a", nullptr, "b", "c", &TheAgent), 0);
  EXPECT_EQ(scanner.Name(), "");
  EXPECT_EQ(scanner.LogCount(), 0U);
  EXPECT_EQ(scanner.LogRecordAt(0), nullptr);
  CScanner other;
  EXPECT_TRUE(scanner == other) << "the addresses are equal";
  EXPECT_EQ(scanner.Init("a", &kAddress, "b", "c", &TheAgent), 1);
  EXPECT_TRUE(scanner != other);
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

class ScannerServices : public ApplianceTest {
 protected:
  CScanner* box = LogIn();
};

TEST_F(ScannerServices, ClearingABookWithoutAnAddressSucceedsWithoutACall) {
  TheAgent.SetError(kEarlier);
  box->SetAddress(&kNowhere);
  EXPECT_EQ(box->ClearEmailBook(), kNoError);
  EXPECT_EQ(TheAgent.LastError(), kEarlier);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(ScannerServices, OnlyTheAdministratorWritesTheTag) {
  const std::uint32_t tag = 77;
  const std::string read = "IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR";
  EXPECT_EQ(box->WriteAdminTag(&tag), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre(read, "IMSPModifyEntry 4:USERSAB ADMINISTRATOR ADMINISTRATOR"));
  CUserEntry stored;
  SimulatorFindEntry(BookKind::kUsers, "", nullptr, "ADMINISTRATOR", &stored);
  EXPECT_EQ(stored.password.View(), kPassword) << "the other fields stay";
  std::uint32_t found = 0;
  EXPECT_EQ(box->ReadAdminTag(&found), kNoError);
  SimulatorFail("IMSPReadEntryProperties", 0, kFault);
  EXPECT_EQ(box->ReadAdminTag(&found), kFault);
  EXPECT_EQ(found, 77U);
  TakeCalls();
  EXPECT_EQ(box->WriteAdminTag(&tag), kFault);
  EXPECT_THAT(TakeCalls(), ElementsAre(read));

  SimulatorClearFaults();
  box = LogToQuillbox(kHost, "TOOLKIT", "KELP", "", 0);
  TakeCalls();
  EXPECT_EQ(box->WriteAdminTag(&tag), kRefused);
  TheAgent.Logout(0);
  EXPECT_EQ(box->WriteAdminTag(&tag), kRefused);
  EXPECT_EQ(CScanner().WriteAdminTag(&tag), kRefused);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPLogout"));
}

TEST_F(ScannerServices, ModifyEachStopsAtTheFirstFailure) {
  CEmailEntry members[] = {MakeEntry("A"), MakeEntry("B"), MakeEntry("C")};
  const std::uint32_t count = 3;
  SimulatorSetLies(kLieScribble);  // the server overwrites the book of each call
  SimulatorFail("IMSPModifyEntry", 1, kNoError);
  SimulatorFail("IMSPModifyEntry", 2, kFault);
  EXPECT_EQ(box->PublicList("Team").ModifyEach(members, &count), kFault);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPModifyEntry 64:Team A A", "IMSPModifyEntry 64:Team B B"));
}

TEST_F(ScannerServices, TerminatesDeliveredTexts) {
  SimulatorSeed();
  box = LogIn();
  SimulatorSetLies(kLieUnterminated);
  KeyRange all;
  CFaxEntry fax[5];
  std::uint32_t count = 5;
  EXPECT_EQ(box->FaxEntries().Read(&all, fax, &count, 0), kMoreData);
  for (const CFaxEntry& each : fax) EXPECT_TRUE(each.IsValid());
  ABIdent lists[3];
  count = 3;
  EXPECT_EQ(box->ListPublicLists(lists, &count), kNoError);
  for (const ABIdent& each : lists) EXPECT_TRUE(each.name.IsTerminated());
  PrinterModelRecord model;
  model.modelName.Assign("Laserette 9");
  EXPECT_EQ(box->ModelEntries().ReadOne(&model), kNoError);
  EXPECT_TRUE(model.IsValid());
}

}  // namespace
}  // namespace quillkit
