// Every way from a scanner to the server: the one call that each method ends in, and what it
// answers on a scanner without an address or without an agent.

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using Names = std::vector<std::string>;

constexpr Status kEarlier = 17;
constexpr Status kAnswer = 11;

// What the methods take.
struct Arguments {
  KeyRange range{"Ann", "A*"};
  CEmailEntry email[2];
  CFaxEntry fax[2];
  CUserEntry user[2];
  PrinterRecord printer[2];
  PrinterModelRecord model[2];
  CMenuItem item[2];
  EntryKey rows[2];
  ABIdent books[2];
  PageBoundary table[2];
  IOCtlRecord control;
  std::uint32_t count = 2;
  std::string text;

  Arguments() {
    email->SetName("Ann");
    fax->SetName("Ann");
    user->SetName("Ann");
    printer->printerName.Assign("Ann");
    model->modelName.Assign("Ann");
    item->SetName("Ann");
  }
};

struct Method {
  const char* call;   // as the journal shows it; of several the first
  bool needsAddress;  // whether a scanner without an address refuses
  std::function<Status(CScanner&, Arguments&)> run;
};

std::ostream& operator<<(std::ostream& out, const Method& each) {
  return out << each.call;
}

using A = Arguments;
using S = CScanner;

// A method that asks for an agent and for nothing else.
Method Calls(const char* call, std::function<Status(S&, A&)> run) {
  return {call, false, std::move(run)};
}

// One that asks for a bound scanner.
Method Refuses(const char* call, std::function<Status(S&, A&)> run) {
  return {call, true, std::move(run)};
}

// Every operation on a book, and every book in one of them.
std::vector<Method> BookMethods() {
  return {
      Calls("IMSPReadAB 1:EMAILAB [Ann|A*|0] 2 0",
            [](S& s, A& a) { return s.EmailEntries().Read(&a.range, a.email, &a.count, 0); }),
      Calls("IMSPListABEntries 1:EMAILAB [Ann|A*|0] 2 1",
            [](S& s, A& a) { return s.EmailEntries().List(&a.range, a.rows, &a.count, 1); }),
      Calls("IMSPListABEntries 8:PRINTERSAB [|*|0] 2 1",
            [](S& s, A& a) { return s.PrinterEntries().ListNames(a.rows, &a.count); }),
      Calls("IMSPReadPageBoundaries 1:EMAILAB 2",
            [](S& s, A& a) { return s.ReadPageBoundaries(a.table, &a.count); }),
      Calls("IMSPCreateEntry 16:PRIVATEAB Ann",
            [](S& s, A& a) { return s.PrivateEntries().Create(a.email); }),
      Calls("IMSPReadEntryProperties 2:FAXAB Ann",
            [](S& s, A& a) { return s.FaxEntries().ReadOne(a.fax); }),
      Calls("IMSPModifyEntry 4:USERSAB Ann Ann",
            [](S& s, A& a) { return s.UserEntries().Modify(a.user); }),
      Calls("IMSPModifyEntry 8:PRINTERSAB Old Ann",
            [](S& s, A& a) { return s.PrinterEntries().Rename("Old", a.printer); }),
      Calls("IMSPDeleteEntry 2048:MODELAB Ann",
            [](S& s, A& a) { return s.ModelEntries().Delete(a.model[0]); }),
      Calls("IMSPDeleteEntry 1:EMAILAB Old",
            [](S& s, A&) { return s.EmailEntries().Delete("Old"); }),
      Calls("IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR",
            [](S& s, A& a) { return s.ReadAdminTag(&a.count); }),
      Calls("IMSPIOCtl 2 0", [](S& s, A& a) { return s.ServerCall(&a.control); }),
  };
}

std::vector<Method> KeyMethods() {
  return {
      Calls("IMSPListABEntries 256: [|*|0] 2 1",
            [](S& s, A& a) { return s.ListKeys(a.rows, &a.count); }),
      Calls("IMSPCreateEntry 256:TOPAB Ann", [](S& s, A& a) { return s.CreateKeyEntry(a.item); }),
      Calls("IMSPModifyEntry 256:TOPAB Old Ann",
            [](S& s, A& a) { return s.ModifyKeyEntry("Old", a.item); }),
      Calls("IMSPReadAB 512:Scan [Ann|A*|0] 2 1",
            [](S& s, A& a) { return s.ReadKeyItems("Scan", &a.range, a.item, &a.count, 1); }),
      Calls("IMSPCreateEntry 512:Scan Ann",
            [](S& s, A& a) { return s.CreateKeyItem("Scan", a.item); }),
      Calls("IMSPModifyEntry 512:Scan Ann Ann",
            [](S& s, A& a) { return s.ModifyKeyItem("Scan", a.item); }),
      Calls("IMSPModifyEntry 512:Scan Old Ann",
            [](S& s, A& a) { return s.RenameKeyItem("Scan", "Old", a.item); }),
      Calls("IMSPDeleteEntry 512:Scan Ann",
            [](S& s, A& a) { return s.DeleteKeyItem("Scan", a.item[0]); }),
      Calls("IMSPDeleteAB 512:Scan", [](S& s, A&) { return s.DeleteKeyBook("Scan"); }),
  };
}

// In a rename the kind alone tells what is meant.
std::vector<Method> ListMethods() {
  return {
      Calls("IMSPCreateAB 64:Team", [](S& s, A&) { return s.PublicList("Team").CreateBook(); }),
      Calls("IMSPDeleteAB 128:Team", [](S& s, A&) { return s.PrivateList("Team").DeleteBook(); }),
      Calls("IMSPReadAB 768:Team - 2 1",
            [](S& s, A& a) { return s.FaxList("Team").ReadAll(a.fax, &a.count); }),
      Calls("IMSPModifyEntry 64:Team Ann Ann",
            [](S& s, A& a) { return s.PublicList("Team").ModifyEach(a.email, &a.count); }),
      Calls("IMSPListAB 64: [|*|0] 2 1",
            [](S& s, A& a) { return s.ListPublicLists(a.books, &a.count); }),
      Calls("IMSPListAB 128: [|*|0] 2 1",
            [](S& s, A& a) { return s.ListPrivateLists(a.books, &a.count); }),
      Calls("IMSPListAB 768: [|*|0] 2 1",
            [](S& s, A& a) { return s.ListFaxLists(a.books, &a.count); }),
      Calls("IMSPModifyEntry 64:PRIVATEAB Old New",
            [](S& s, A&) { return s.RenamePublicList("Old", "New"); }),
      Calls("IMSPModifyEntry 128:PRIVATEAB Old New",
            [](S& s, A&) { return s.RenamePrivateList("Old", "New"); }),
  };
}

std::vector<Method> SizesAndServices() {
  return {
      Refuses("IMSPSizeofAB 1:EMAILAB -", [](S& s, A& a) { return s.SizeofEmail(&a.count); }),
      Refuses("IMSPSizeofAB 2:FAXAB -", [](S& s, A& a) { return s.SizeofFax(&a.count); }),
      Refuses("IMSPSizeofAB 4:USERSAB -", [](S& s, A& a) { return s.SizeofUsers(&a.count); }),
      Refuses("IMSPSizeofAB 8:PRINTERSAB -", [](S& s, A& a) { return s.SizeofPrinters(&a.count); }),
      Refuses("IMSPSizeofAB 256:TOPAB -", [](S& s, A& a) { return s.SizeofTop(&a.count); }),
      Refuses("IMSPSizeofAB 512:Scan -", [](S& s, A& a) { return s.SizeofKey("Scan", &a.count); }),
      Refuses("IMSPSizeofAB 64:Team -",
              [](S& s, A& a) { return s.SizeofPublicList("Team", &a.count); }),
      Refuses("IMSPSizeofAB 128:Team -",
              [](S& s, A& a) { return s.SizeofPrivateList("Team", &a.count); }),
      Refuses("IMSPSizeofAB 768:Team -",
              [](S& s, A& a) { return s.SizeofFaxList("Team", &a.count); }),
      Refuses("IMSPListAB 64: - - 1", [](S& s, A& a) { return s.CountPublicLists(&a.count); }),
      Refuses("IMSPListAB 768: - - 1", [](S& s, A& a) { return s.CountFaxLists(&a.count); }),
      Refuses("IMSPIOCtl 2 0", [](S& s, A&) { return s.BackupDatabase("a", "b"); }),
      Refuses("IMSPIOCtl 2 0", [](S& s, A&) { return s.RestoreDatabase("a", "b"); }),
      Refuses("IMSPIOCtl 2 0", [](S& s, A&) { return s.RunBatch("path"); }),
      Refuses("IMSPLogin 127.0.0.1 TOOLKIT KELP",
              [](S& s, A& a) { return s.ProbeIdentity(a.text); }),
      Calls("IMSPSizeofAB 1024:LOGAB Ann", [](S& s, A&) { return s.ReadLog("Ann"); }),
      Calls("IMSPIOCtl 2 0", [](S& s, A&) { return s.ClearLog("Ann"); }),
      Calls("IMSPIOCtl 2 0", [](S& s, A&) { return s.ClearLogExceptSystem(); }),
      Calls("IMSPIOCtl 2 0", [](S& s, A& a) { return s.SetServerTimeout(1, &a.count); }),
  };
}

// --- The tests ---

class ScannerCall : public ApplianceTest, public testing::WithParamInterface<Method> {
 protected:
  void Expect(CScanner& scanner, bool calls) {
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
    EXPECT_EQ(GetParam().run(scanner, with_), calls ? kAnswer : kRefused);
    EXPECT_EQ(TheAgent.LastError(), calls ? kAnswer : kEarlier);
    EXPECT_EQ(TakeCalls(), calls ? Names{GetParam().call} : Names{});
  }

  Arguments with_;
};

TEST_P(ScannerCall, GivesTheStatusOfItsCallWhereItCanBeMade) {
  LogIn();
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail(nullptr, 0, kAnswer);
  const std::uint32_t address = 0x0100007F;
  CScanner scanner;
  scanner.SetAddress(&address);
  Expect(scanner, false);
  scanner.SetAgent(&TheAgent);
  Expect(scanner, true);
  const std::uint32_t none = 0;
  scanner.SetAddress(&none);
  Expect(scanner, !GetParam().needsAddress);
}

INSTANTIATE_TEST_SUITE_P(Books, ScannerCall, testing::ValuesIn(BookMethods()));
INSTANTIATE_TEST_SUITE_P(Keys, ScannerCall, testing::ValuesIn(KeyMethods()));
INSTANTIATE_TEST_SUITE_P(Lists, ScannerCall, testing::ValuesIn(ListMethods()));
INSTANTIATE_TEST_SUITE_P(Services, ScannerCall, testing::ValuesIn(SizesAndServices()));

}  // namespace
}  // namespace quillkit
