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

using testing::ElementsAre;
using testing::IsEmpty;

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

// What a scanner without an address does.
enum class Unbound { kCalls, kRefuses };

struct Method {
  std::string call;  // as the journal shows it; of several the first
  Unbound unbound;
  std::function<Status(CScanner&, Arguments&)> run;
};

std::ostream& operator<<(std::ostream& out, const Method& each) {
  return out << each.call;
}

using A = Arguments;
using S = CScanner;

// A method that asks for an agent and for nothing else.
Method Calls(const std::string& call, std::function<Status(S&, A&)> run) {
  return {call, Unbound::kCalls, std::move(run)};
}

// One that asks for a bound scanner.
Method Refuses(const std::string& call, std::function<Status(S&, A&)> run) {
  return {call, Unbound::kRefuses, std::move(run)};
}

// What every book does with one entry. `access` gives the way to it, and `entry` is an array of the
// arguments.
template <class Access, class Entry>
std::vector<Method> EntryMethods(const std::string& book, Access access, Entry entry) {
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

// What every kind of distribution list does beside that; `book` is the list Team.
template <class List, class Enumerate, class Entry>
std::vector<Method> ListMethods(const std::string& book, List list, Enumerate enumerate,
                                Entry entry) {
  return {
      Calls("IMSPReadAB " + book + " - 2 1",
            [=](S& s, A& a) { return (s.*list)("Team").ReadAll(a.*entry, &a.count); }),
      Calls("IMSPCreateAB " + book, [=](S& s, A&) { return (s.*list)("Team").CreateBook(); }),
      Calls("IMSPDeleteAB " + book, [=](S& s, A&) { return (s.*list)("Team").DeleteBook(); }),
      Calls("IMSPListAB " + book.substr(0, book.find(':') + 1) + " [|*|0] 2 1",
            [=](S& s, A& a) { return (s.*enumerate)(a.books, &a.count); }),
  };
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

// --- The tests ---

class ScannerCall : public ApplianceTest, public testing::WithParamInterface<Method> {
 protected:
  ScannerCall() {
    LogIn();
    TheAgent.SetError(kEarlier);
    SimulatorSetLies(kLieFailedCount);
    SimulatorFail(nullptr, 1, kAnswer);
  }

  void Expect(CScanner& scanner, bool calls) {
    EXPECT_EQ(GetParam().run(scanner, with_), calls ? kAnswer : kRefused);
    EXPECT_EQ(TheAgent.LastError(), calls ? kAnswer : kEarlier);
    if (calls) {
      EXPECT_THAT(TakeCalls(), ElementsAre(GetParam().call));
    } else {
      EXPECT_THAT(TakeCalls(), IsEmpty());
    }
  }

  const std::uint32_t address_ = 0x0100007F;
  Arguments with_;
};

TEST_P(ScannerCall, GivesTheStatusOfItsCall) {
  CScanner scanner;
  scanner.Init("", &address_, "", "", &TheAgent);
  Expect(scanner, true);
}

TEST_P(ScannerCall, IsNotMadeWithoutAnAgent) {
  CScanner scanner;
  scanner.SetAddress(&address_);
  Expect(scanner, false);
}

TEST_P(ScannerCall, NeedsAnAddressWhereItAsksForOne) {
  CScanner scanner;
  scanner.SetAgent(&TheAgent);
  Expect(scanner, GetParam().unbound == Unbound::kCalls);
}

std::vector<Method> EveryMethod() {
  std::vector<Method> all;
  const auto add = [&all](const std::vector<Method>& more) {
    all.insert(all.end(), more.begin(), more.end());
  };
  add(BookMethods());
  add(EntryMethods(
      "1:EMAILAB", [](S& s) { return s.EmailEntries(); }, &A::email));
  add(EntryMethods(
      "16:PRIVATEAB", [](S& s) { return s.PrivateEntries(); }, &A::email));
  add(EntryMethods(
      "2:FAXAB", [](S& s) { return s.FaxEntries(); }, &A::fax));
  add(EntryMethods(
      "4:USERSAB", [](S& s) { return s.UserEntries(); }, &A::user));
  add(EntryMethods(
      "8:PRINTERSAB", [](S& s) { return s.PrinterEntries(); }, &A::printer));
  add(EntryMethods(
      "2048:MODELAB", [](S& s) { return s.ModelEntries(); }, &A::model));
  add(EntryMethods(
      "64:Team", [](S& s) { return s.PublicList("Team"); }, &A::email));
  add(EntryMethods(
      "128:Team", [](S& s) { return s.PrivateList("Team"); }, &A::email));
  add(EntryMethods(
      "768:Team", [](S& s) { return s.FaxList("Team"); }, &A::fax));
  add(ListMethods("64:Team", &S::PublicList, &S::ListPublicLists, &A::email));
  add(ListMethods("128:Team", &S::PrivateList, &S::ListPrivateLists, &A::email));
  add(ListMethods("768:Team", &S::FaxList, &S::ListFaxLists, &A::fax));
  add(SizesAndServices());
  return all;
}

INSTANTIATE_TEST_SUITE_P(Methods, ScannerCall, testing::ValuesIn(EveryMethod()));

}  // namespace
}  // namespace quillkit
