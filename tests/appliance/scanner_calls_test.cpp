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
  std::string call;   // as the journal shows it; of several the first
  bool needsAddress;  // whether a scanner without an address refuses
  std::function<Status(CScanner&, Arguments&)> run;
};

std::ostream& operator<<(std::ostream& out, const Method& each) {
  return out << each.call;
}

using A = Arguments;
using S = CScanner;

// A method that asks for an agent and for nothing else.
Method Calls(const std::string& call, std::function<Status(S&, A&)> run) {
  return {call, false, std::move(run)};
}

// One that asks for a bound scanner.
Method Refuses(const std::string& call, std::function<Status(S&, A&)> run) {
  return {call, true, std::move(run)};
}

// What every book does with one entry. `open` gives the way to it, and `entry` is an array of the
// arguments.
template <class Open, class Entry, class... Name>
std::vector<Method> EntryMethods(const std::string& book, Open open, Entry entry, Name... name) {
  const auto access = [=](S& s) { return (s.*open)(name...); };
  return {
      Calls("IMSPCreateEntry " + book + " Ann",
            [=](S& s, A& a) { return access(s).Create(a.*entry); }),
      Calls("IMSPReadEntryProperties " + book + " Ann",
            [=](S& s, A& a) { return access(s).ReadOne(a.*entry); }),
      Calls("IMSPModifyEntry " + book + " Ann Ann",
            [=](S& s, A& a) { return access(s).Modify(a.*entry); }),
      Calls("IMSPModifyEntry " + book + " Old Ann",
            [=](S& s, A& a) { return access(s).Rename("Old", a.*entry); }),
      Calls("IMSPDeleteEntry " + book + " Ann",
            [=](S& s, A& a) { return access(s).Delete((a.*entry)[0]); }),
      Calls("IMSPDeleteEntry " + book + " Old", [=](S& s, A&) { return access(s).Delete("Old"); }),
  };
}

// What every kind of distribution list does; `book` is the list Team.
template <class List, class Enumerate, class Entry>
std::vector<Method> ListMethods(const std::string& book, List list, Enumerate enumerate,
                                Entry entry) {
  std::vector<Method> methods = EntryMethods(book, list, entry, "Team");
  const auto add = [&](const std::string& call, std::function<Status(S&, A&)> run) {
    methods.push_back(Calls(call, std::move(run)));
  };
  add("IMSPReadAB " + book + " - 2 1",
      [=](S& s, A& a) { return (s.*list)("Team").ReadAll(a.*entry, &a.count); });
  add("IMSPCreateAB " + book, [=](S& s, A&) { return (s.*list)("Team").CreateBook(); });
  add("IMSPDeleteAB " + book, [=](S& s, A&) { return (s.*list)("Team").DeleteBook(); });
  add("IMSPListAB " + book.substr(0, book.find(':') + 1) + " [|*|0] 2 1",
      [=](S& s, A& a) { return (s.*enumerate)(a.books, &a.count); });
  return methods;
}

std::vector<Method> BookMethods() {
  return {
      Calls("IMSPReadAB 1:EMAILAB [Ann|A*|0] 2 0",
            [](S& s, A& a) { return s.EmailEntries().Read(&a.range, a.email, &a.count, 0); }),
      Calls("IMSPListABEntries 1:EMAILAB [Ann|A*|0] 2 1",
            [](S& s, A& a) { return s.EmailEntries().List(&a.range, a.rows, &a.count, 1); }),
      Calls("IMSPReadPageBoundaries 1:EMAILAB 2",
            [](S& s, A& a) { return s.ReadPageBoundaries(a.table, &a.count); }),
      Calls("IMSPIOCtl 2 0", [](S& s, A& a) { return s.ServerCall(&a.control); }),
      Calls("IMSPReadAB 16:PRIVATEAB [Ann|A*|0] 2 1",
            [](S& s, A& a) { return s.PrivateEntries().Read(&a.range, a.email, &a.count, 1); }),
      Calls("IMSPReadAB 2:FAXAB [Ann|A*|0] 2 1",
            [](S& s, A& a) { return s.FaxEntries().Read(&a.range, a.fax, &a.count, 1); }),
      Calls("IMSPReadAB 4:USERSAB [Ann|A*|0] 2 1",
            [](S& s, A& a) { return s.UserEntries().Read(&a.range, a.user, &a.count, 1); }),
      Calls("IMSPReadEntryProperties 4:USERSAB ADMINISTRATOR",
            [](S& s, A& a) { return s.ReadAdminTag(&a.count); }),
      Calls("IMSPListABEntries 8:PRINTERSAB [|*|0] 2 1",
            [](S& s, A& a) { return s.PrinterEntries().ListNames(a.rows, &a.count); }),
      Calls("IMSPListABEntries 2048:MODELAB [|*|0] 2 1",
            [](S& s, A& a) { return s.ModelEntries().ListNames(a.rows, &a.count); }),
      // Soft keys
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
      // Lists; in a rename the kind alone tells which is meant
      Calls("IMSPModifyEntry 64:Team Ann Ann",
            [](S& s, A& a) { return s.PublicList("Team").ModifyEach(a.email, &a.count); }),
      Calls("IMSPModifyEntry 768:Team Ann Ann",
            [](S& s, A& a) { return s.FaxList("Team").ModifyEach(a.fax, &a.count); }),
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

std::vector<Method> EveryMethod() {
  std::vector<Method> all;
  for (const std::vector<Method>& each :
       {BookMethods(), EntryMethods("1:EMAILAB", &S::EmailEntries, &A::email),
        EntryMethods("16:PRIVATEAB", &S::PrivateEntries, &A::email),
        EntryMethods("2:FAXAB", &S::FaxEntries, &A::fax),
        EntryMethods("4:USERSAB", &S::UserEntries, &A::user),
        EntryMethods("8:PRINTERSAB", &S::PrinterEntries, &A::printer),
        EntryMethods("2048:MODELAB", &S::ModelEntries, &A::model),
        ListMethods("64:Team", &S::PublicList, &S::ListPublicLists, &A::email),
        ListMethods("128:Team", &S::PrivateList, &S::ListPrivateLists, &A::email),
        ListMethods("768:Team", &S::FaxList, &S::ListFaxLists, &A::fax), SizesAndServices()}) {
    all.insert(all.end(), each.begin(), each.end());
  }
  return all;
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

INSTANTIATE_TEST_SUITE_P(Methods, ScannerCall, testing::ValuesIn(EveryMethod()));

}  // namespace
}  // namespace quillkit
