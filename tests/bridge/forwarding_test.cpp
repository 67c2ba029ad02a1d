// Every forwarding operation: the call it makes, what it records, and what it does with no server
// library behind it.

#include <gtest/gtest.h>

#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kEarlier = 11;
constexpr Status kAnswer = 18;

// What the calls take; large enough for each.
struct Arguments {
  ABIdent book{BookKind::kFax, kFaxBook};
  KeyRange range{"Ann", "B*", 7};
  EntryKey key{"Ann"};
  CFaxEntry record;
  CFaxEntry records[3];
  EntryKey rows[3];
  ABIdent books[3];
  PageBoundary table[3];
  std::uint32_t count = 3;
  LoginRecord login;
  char identity[256] = {};
  IOCtlRecord control;
};

struct Forwarding {
  const char* entry;
  const char* arguments;  // as the journal shows them
  std::function<Status(CAgent&, Arguments&)> call;
};

std::ostream& operator<<(std::ostream& out, const Forwarding& each) {
  return out << each.entry << ' ' << each.arguments;
}

std::vector<Forwarding> Forwardings() {
  using A = Arguments;
  return {
      {"IMSPInit", "", [](CAgent& agent, A&) { return agent.IMSPInit(); }},
      {"IMSPTerminate", "", [](CAgent& agent, A&) { return agent.IMSPTerminate(); }},
      {"IMSPLogin", " 127.0.0.1 Ann pw",
       [](CAgent& agent, A& with) { return agent.IMSPLogin(&with.login, with.identity, 256); }},
      {"IMSPWakeup", "", [](CAgent& agent, A&) { return agent.IMSPWakeup(); }},
      {"IMSPAbort", "", [](CAgent& agent, A&) { return agent.IMSPAbort(); }},
      {"IMSPIOCtl", " 2 5", [](CAgent& agent, A& with) { return agent.IMSPIOCtl(&with.control); }},
      {"IMSPCheckString", " text 9",
       [](CAgent& agent, A&) { return agent.IMSPCheckString("text", 9); }},
      {"IMSPBatchConfiguration", " a/path",
       [](CAgent& agent, A&) { return agent.IMSPBatchConfiguration("a/path"); }},
      {"IMSPChangeIdentity", " Ann",
       [](CAgent& agent, A& with) { return agent.IMSPChangeIdentity(&with.key); }},
      {"IMSPCreateAB", " 2:FAXAB",
       [](CAgent& agent, A& with) { return agent.IMSPCreateAB(&with.book); }},
      {"IMSPDeleteAB", " 2:FAXAB",
       [](CAgent& agent, A& with) { return agent.IMSPDeleteAB(&with.book); }},
      {"IMSPClearAB", " 2:FAXAB -",
       [](CAgent& agent, A& with) { return agent.IMSPClearAB(&with.book); }},
      {"IMSPClearAB", " 2:FAXAB A*",
       [](CAgent& agent, A& with) { return agent.IMSPClearAB(&with.book, "A*"); }},
      {"IMSPSizeofAB", " 2:FAXAB -",
       [](CAgent& agent, A& with) { return agent.IMSPSizeofAB(&with.book, &with.count); }},
      {"IMSPSizeofAB", " 2:FAXAB A*",
       [](CAgent& agent, A& with) { return agent.IMSPSizeofAB(&with.book, &with.count, "A*"); }},
      {"IMSPReadAB", " 2:FAXAB [Ann|B*|7] 3 0",
       [](CAgent& agent, A& with) {
         return agent.IMSPReadAB(&with.book, &with.range, with.records, &with.count, 0);
       }},
      {"IMSPListABEntries", " 2:FAXAB [Ann|B*|7] 3 1",
       [](CAgent& agent, A& with) {
         return agent.IMSPListABEntries(&with.book, &with.range, with.rows, &with.count, 1);
       }},
      {"IMSPListAB", " 2:FAXAB [Ann|B*|7] 3 1",
       [](CAgent& agent, A& with) {
         return agent.IMSPListAB(&with.book, &with.range, with.books, &with.count, 1);
       }},
      {"IMSPListAB", " 2:FAXAB - - 1",
       [](CAgent& agent, A& with) {
         return agent.IMSPListAB(&with.book, nullptr, nullptr, &with.count, 1);
       }},
      {"IMSPReadPageBoundaries", " 2:FAXAB 3",
       [](CAgent& agent, A& with) {
         return agent.IMSPReadPageBoundaries(&with.book, with.table, &with.count);
       }},
      {"IMSPCreateEntry", " 2:FAXAB Ben",
       [](CAgent& agent, A& with) { return agent.IMSPCreateEntry(&with.book, &with.record); }},
      {"IMSPReadEntryProperties", " 2:FAXAB Ann",
       [](CAgent& agent, A& with) {
         return agent.IMSPReadEntryProperties(&with.book, &with.key, &with.record);
       }},
      {"IMSPModifyEntry", " 2:FAXAB Ann Ben",
       [](CAgent& agent, A& with) {
         return agent.IMSPModifyEntry(&with.book, &with.key, &with.record);
       }},
      {"IMSPDeleteEntry", " 2:FAXAB Ann",
       [](CAgent& agent, A& with) { return agent.IMSPDeleteEntry(&with.book, &with.key); }},
      {"IMSPExport", " 1 2", [](CAgent& agent, A&) { return agent.IMSPExport(1, 2); }},
      {"IMSPGetExportFile", " 1 2 3",
       [](CAgent& agent, A&) { return agent.IMSPGetExportFile(1, 2, 3); }},
      {"IMSPImport", " 1 2 3", [](CAgent& agent, A&) { return agent.IMSPImport(1, 2, 3); }},
      {"IMSPImpExpState", " 1 2", [](CAgent& agent, A&) { return agent.IMSPImpExpState(1, 2); }},
      {"IMSPImpExpAbort", "", [](CAgent& agent, A&) { return agent.IMSPImpExpAbort(); }},
  };
}

class EveryForwarding : public ApplianceTest, public testing::WithParamInterface<Forwarding> {
 protected:
  EveryForwarding() {
    with_.login.address = 0x0100007F;
    with_.login.user.Assign("Ann");
    with_.login.password.Assign("pw");
    with_.control.value = 5;
    with_.record.SetName("Ben");
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  Arguments with_;
};

TEST_P(EveryForwarding, MakesItsCallAndRecordsTheStatus) {
  SimulatorFail(GetParam().entry, 1, kAnswer);
  EXPECT_EQ(GetParam().call(TheAgent, with_), kAnswer);
  EXPECT_EQ(TheAgent.LastError(), kAnswer);
  EXPECT_THAT(TakeCalls(), ElementsAre(std::string(GetParam().entry) + GetParam().arguments));
}

TEST_P(EveryForwarding, WithoutALibraryIsNotInitialised) {
  CAgent agent;
  agent.SetError(kEarlier);
  EXPECT_EQ(GetParam().call(agent, with_), kNotInitialised);
  EXPECT_EQ(agent.LastError(), kNotInitialised);
  EXPECT_EQ(with_.count, 3U);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

INSTANTIATE_TEST_SUITE_P(EntryPoints, EveryForwarding, testing::ValuesIn(Forwardings()));

using ForwardingTest = ApplianceTest;

TEST_F(ForwardingTest, ALogoutIsNotRecorded) {
  for (const Status status : {kNoError, kAnswer}) {
    TheAgent.SetError(kEarlier);
    SimulatorFail("IMSPLogout", 1, status);
    EXPECT_EQ(TheAgent.IMSPLogout(), status);
    EXPECT_EQ(TheAgent.LastError(), kEarlier);
  }
  CAgent agent;
  agent.SetError(kEarlier);
  EXPECT_EQ(agent.IMSPLogout(), kNotInitialised);
  EXPECT_EQ(agent.LastError(), kEarlier);
}

TEST_F(ForwardingTest, ADeliveredCountIsBelievedUpToWhatWasAskedFor) {
  SimulatorSeed();
  LogIn();
  SimulatorSetLies(kLieDeliveredCount);
  ABIdent book(BookKind::kEmail, kEmailBook);
  ABIdent lists(BookKind::kPublicList, {});
  CEmailEntry records[3];
  Arguments with;
  with.range = KeyRange();
  const auto expectThree = [&](Status status) {
    EXPECT_TRUE(status == kNoError || status == kMoreData) << status;
    EXPECT_EQ(std::exchange(with.count, 3), 3U);
  };
  for (const std::int32_t direction : {0, 1}) {
    expectThree(TheAgent.IMSPReadAB(&book, &with.range, records, &with.count, direction));
    expectThree(TheAgent.IMSPListABEntries(&book, &with.range, with.rows, &with.count, direction));
    expectThree(TheAgent.IMSPListAB(&lists, &with.range, with.books, &with.count, direction));
  }
  expectThree(TheAgent.IMSPReadPageBoundaries(&book, with.table, &with.count));
}

}  // namespace
}  // namespace quillkit
