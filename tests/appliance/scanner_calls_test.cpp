// Every way from a scanner to the server: the one call that each method ends in, and what it
// answers on a scanner without an address or without an agent.

#include <gtest/gtest.h>

#include <functional>
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
  CEmailEntry email;
  CFaxEntry fax;
  CUserEntry user;
  PrinterRecord printer;
  PrinterModelRecord model;
  CMenuItem item;
  EntryKey rows[2];
  ABIdent books[2];
  PageBoundary table[2];
  IOCtlRecord control;
  std::uint32_t count = 1;
  std::string text;

  Arguments() {
    email.SetName("Ann");
    fax.SetName("Ann");
    user.SetName("Ann");
    printer.printerName.Assign("Ann");
    model.modelName.Assign("Ann");
    item.SetName("Ann");
  }
};

using A = Arguments;
using S = CScanner;

struct Method {
  const char* call;  // as the journal shows it; of several the first
  std::function<Status(S&, A&)> run;
};

// Every operation on a book and every book in one of them; in the rename of a list the kind alone
// tells what is meant. They ask for an agent and for nothing else. What a soft key calls stands
// with its tests.
const Method kAgentMethods[] = {
    {"IMSPReadAB 1:EMAILAB [Ann|A*|0] 1 0",
     [](S& s, A& a) { return s.EmailEntries().Read(&a.range, &a.email, &a.count, 0); }},
    {"IMSPListABEntries 1:EMAILAB [Ann|A*|0] 1 1",
     [](S& s, A& a) { return s.EmailEntries().List(&a.range, a.rows, &a.count, 1); }},
    {"IMSPListABEntries 8:PRINTERSAB [|*|0] 1 1",
     [](S& s, A& a) { return s.PrinterEntries().ListNames(a.rows, &a.count); }},
    {"IMSPReadPageBoundaries 1:EMAILAB 1",
     [](S& s, A& a) { return s.ReadPageBoundaries(a.table, &a.count); }},
    {"IMSPCreateEntry 16:PRIVATEAB Ann",
     [](S& s, A& a) { return s.PrivateEntries().Create(&a.email); }},
    {"IMSPReadEntryProperties 2:FAXAB Ann",
     [](S& s, A& a) { return s.FaxEntries().ReadOne(&a.fax); }},
    {"IMSPModifyEntry 4:USERSAB Ann Ann",
     [](S& s, A& a) { return s.UserEntries().Modify(&a.user); }},
    {"IMSPModifyEntry 8:PRINTERSAB Old Ann",
     [](S& s, A& a) { return s.PrinterEntries().Rename("Old", &a.printer); }},
    {"IMSPDeleteEntry 2048:MODELAB Ann",
     [](S& s, A& a) { return s.ModelEntries().Delete(a.model); }},
    {"IMSPDeleteEntry 1:EMAILAB Old", [](S& s, A&) { return s.EmailEntries().Delete("Old"); }},
    {"IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR",
     [](S& s, A& a) { return s.ReadAdminTag(&a.count); }},
    {"IMSPIOCtl 2 0", [](S& s, A& a) { return s.ServerCall(&a.control); }},
    {"IMSPListABEntries 256: [|*|0] 1 1", [](S& s, A& a) { return s.ListKeys(a.rows, &a.count); }},
    {"IMSPModifyEntry 256:TOPAB Old Ann",
     [](S& s, A& a) { return s.ModifyKeyEntry("Old", &a.item); }},
    {"IMSPModifyEntry 512:Scan Old Ann",
     [](S& s, A& a) { return s.RenameKeyItem("Scan", "Old", &a.item); }},
    {"IMSPCreateAB 64:Team", [](S& s, A&) { return s.PublicList("Team").CreateBook(); }},
    {"IMSPDeleteAB 128:Team", [](S& s, A&) { return s.PrivateList("Team").DeleteBook(); }},
    {"IMSPReadAB 768:Team - 1 1",
     [](S& s, A& a) { return s.FaxList("Team").ReadAll(&a.fax, &a.count); }},
    {"IMSPModifyEntry 64:Team Ann Ann",
     [](S& s, A& a) { return s.PublicList("Team").ModifyEach(&a.email, &a.count); }},
    {"IMSPListAB 64: [|*|0] 1 1", [](S& s, A& a) { return s.ListPublicLists(a.books, &a.count); }},
    {"IMSPListAB 128: [|*|0] 1 1",
     [](S& s, A& a) { return s.ListPrivateLists(a.books, &a.count); }},
    {"IMSPListAB 768: [|*|0] 1 1", [](S& s, A& a) { return s.ListFaxLists(a.books, &a.count); }},
    {"IMSPModifyEntry 64:PRIVATEAB Old New",
     [](S& s, A&) { return s.RenamePublicList("Old", "New"); }},
    {"IMSPModifyEntry 128:PRIVATEAB Old New",
     [](S& s, A&) { return s.RenamePrivateList("Old", "New"); }},
    {"IMSPSizeofAB 1024:LOGAB Ann", [](S& s, A&) { return s.ReadLog("Ann"); }},
    {"IMSPIOCtl 2 0", [](S& s, A&) { return s.ClearLog("Ann"); }},
    {"IMSPIOCtl 2 0", [](S& s, A&) { return s.ClearLogExceptSystem(); }},
    {"IMSPIOCtl 2 0", [](S& s, A& a) { return s.SetServerTimeout(1, &a.count); }},
};

// Those that ask for an address too.
const Method kBoundMethods[] = {
    {"IMSPSizeofAB 1:EMAILAB -", [](S& s, A& a) { return s.SizeofEmail(&a.count); }},
    {"IMSPSizeofAB 2:FAXAB -", [](S& s, A& a) { return s.SizeofFax(&a.count); }},
    {"IMSPSizeofAB 4:USERSAB -", [](S& s, A& a) { return s.SizeofUsers(&a.count); }},
    {"IMSPSizeofAB 8:PRINTERSAB -", [](S& s, A& a) { return s.SizeofPrinters(&a.count); }},
    {"IMSPSizeofAB 256:TOPAB -", [](S& s, A& a) { return s.SizeofTop(&a.count); }},
    {"IMSPSizeofAB 512:Scan -", [](S& s, A& a) { return s.SizeofKey("Scan", &a.count); }},
    {"IMSPSizeofAB 64:Team -", [](S& s, A& a) { return s.SizeofPublicList("Team", &a.count); }},
    {"IMSPSizeofAB 128:Team -", [](S& s, A& a) { return s.SizeofPrivateList("Team", &a.count); }},
    {"IMSPSizeofAB 768:Team -", [](S& s, A& a) { return s.SizeofFaxList("Team", &a.count); }},
    {"IMSPListAB 64: - - 1", [](S& s, A& a) { return s.CountPublicLists(&a.count); }},
    {"IMSPListAB 768: - - 1", [](S& s, A& a) { return s.CountFaxLists(&a.count); }},
    {"IMSPIOCtl 2 0", [](S& s, A&) { return s.BackupDatabase("a", "b"); }},
    {"IMSPIOCtl 2 0", [](S& s, A&) { return s.RestoreDatabase("a", "b"); }},
    {"IMSPIOCtl 2 0", [](S& s, A&) { return s.RunBatch("path"); }},
    {"IMSPLogin 127.0.0.1 TOOLKIT ***", [](S& s, A& a) { return s.ProbeIdentity(a.text); }},
};

class ScannerCall : public ApplianceTest {
 protected:
  // Tries a method on a scanner without an agent, on a bound one, and on one without an address.
  static void Try(const Method& method, bool needsAddress) {
    SCOPED_TRACE(method.call);
    const std::uint32_t address = 0x0100007F;
    const std::uint32_t none = 0;
    CScanner scanner;
    scanner.SetAddress(&address);
    Expect(method, scanner, false);
    scanner.SetAgent(&TheAgent);
    Expect(method, scanner, true);
    scanner.SetAddress(&none);
    Expect(method, scanner, !needsAddress);
  }

 private:
  static void Expect(const Method& method, CScanner& scanner, bool calls) {
    Arguments arguments;
    TheAgent.SetError(kEarlier);
    EXPECT_EQ(method.run(scanner, arguments), calls ? kAnswer : kRefused);
    EXPECT_EQ(TheAgent.LastError(), calls ? kAnswer : kEarlier);
    EXPECT_EQ(TakeCalls(), calls ? Names{method.call} : Names{});
  }
};

TEST_F(ScannerCall, GivesTheStatusOfItsCallWhereItCanBeMade) {
  LogIn();
  SimulatorSetLies(kLieFailedCount);
  SimulatorFail(nullptr, 0, kAnswer);
  for (const Method& each : kAgentMethods) Try(each, false);
  for (const Method& each : kBoundMethods) Try(each, true);
}

}  // namespace
}  // namespace quillkit
