// The agent's forwarding operations, and its services besides the session: database commands, the
// log, checks and texts.

#include <gtest/gtest.h>

#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

class AgentServices : public ApplianceTest {
 protected:
  AgentServices() {
    LogIn();
    TheAgent.SetError(kEarlier);
  }
};

// --- Forwarding ---

TEST_F(AgentServices, ForwardsACallAndRecordsItsStatus) {
  using A = CAgent;
  const std::pair<const char*, Status (*)(A&)> operations[] = {
      {"IMSPWakeup", [](A& agent) { return agent.IMSPWakeup(); }},
      {"IMSPAbort", [](A& agent) { return agent.IMSPAbort(); }},
      {"IMSPCheckString text 9", [](A& agent) { return agent.IMSPCheckString("text", 9); }},
      {"IMSPExport 1 2", [](A& agent) { return agent.IMSPExport(1, 2); }},
      {"IMSPGetExportFile 1 2 3", [](A& agent) { return agent.IMSPGetExportFile(1, 2, 3); }},
      {"IMSPImport 1 2 3", [](A& agent) { return agent.IMSPImport(1, 2, 3); }},
      {"IMSPImpExpState 1 2", [](A& agent) { return agent.IMSPImpExpState(1, 2); }},
      {"IMSPImpExpAbort", [](A& agent) { return agent.IMSPImpExpAbort(); }},
      {"IMSPChangeIdentity TOOLKIT", [](A& agent) { return agent.ChangeIdentity("TOOLKIT"); }},
      // Truncated, the name could be that of another user.
      {"IMSPChangeIdentity \"\"",
       [](A& agent) { return agent.ChangeIdentity(std::string(32, 'n')); }},
  };
  SimulatorFail(nullptr, 0, kFault);
  for (const auto& [call, run] : operations) {
    SCOPED_TRACE(call);
    TheAgent.SetError(kEarlier);
    EXPECT_EQ(run(TheAgent), kFault);
    EXPECT_EQ(TheAgent.LastError(), kFault);
    EXPECT_THAT(TakeCalls(), testing::ElementsAre(call));
  }
}

// --- Database commands ---

TEST_F(AgentServices, SendsADatabaseCommandOfAtMost399Characters) {
  const struct {
    std::int32_t kind;
    int lengths[2];  // of the texts, -1: null
    int sent;        // the length of the command after "IMSPIOCtl 7 0 ", -1: refused
  } commands[] = {{0, {-1, 0}, -1},  {0, {383, 0}, 398}, {0, {383, 1}, -1},  {0, {384, -1}, 399},
                  {0, {384, 0}, -1}, {0, {385, -1}, -1}, {0, {0, 383}, 398}, {0, {0, 384}, -1},
                  {3, {2, 2}, 0},    {-1, {-1, -1}, 0}};  // no such kind: an empty command
  SimulatorFail("IMSPIOCtl", 0, kNoError);
  for (const auto& each : commands) {
    const auto& [first, second] = each.lengths;
    SCOPED_TRACE(testing::Message() << "kind " << each.kind << ", " << first << ", " << second);
    const std::string text(400, 't');
    TheAgent.SetError(kEarlier);
    const auto tail = [&](int length) { return length < 0 ? nullptr : text.data() + 400 - length; };
    EXPECT_EQ(TheAgent.DatabaseCommand(each.kind, tail(first), tail(second)),
              each.sent < 0 ? kRefused : kNoError);
    EXPECT_EQ(TheAgent.LastError(), each.sent < 0 ? kEarlier : kNoError);
    const std::vector<std::string> calls = TakeCalls();
    EXPECT_EQ(calls.empty() ? -1 : static_cast<int>(calls[0].size()) - 14, each.sent);
  }
  EXPECT_EQ(TheAgent.BackupDatabase(std::string(385, 'f').c_str(), nullptr), kRefused);
  EXPECT_EQ(TheAgent.LastError(), kRefused) << "BackupDatabase records its local error";
}

// --- The log ---

TEST_F(AgentServices, HoldsTheDeliveredLogRecordsOfAUser) {
  LogRecord record{"Ann"};
  for (const char letter : {'a', 'b', 'c'}) {
    record.bytes[32] = letter;
    SimulatorPutEntry(BookKind::kLog, "", nullptr, &record);
  }
  const std::string read = "IMSPReadAB 1024:LOGAB [|Ann|0] ";
  const struct {
    const char* user;
    std::string lastCall;
    std::uint32_t count;
    std::string third;  // the third record, "none" if it does not exist
    std::uint32_t defects = 0;
    std::uint32_t inflation = 0;
    const char* failing = nullptr;
  } reads[] = {
      {"Ann", read + "3 1", 3, "c", kDefectDeliveredCount},
      {"Ben", "IMSPSizeofAB 1024:LOGAB Ben", 3, "c", 0, 0, "IMSPSizeofAB"},
      {"Zoe", "IMSPSizeofAB 1024:LOGAB Zoe", 0, "none"},
      {"Ann", read + "3 1", 3, "", kDefectFailedCount, 0, "IMSPReadAB"},
      {"Ann", read + "1000000 1", 3, "c", 0, 4'000'000'000},
      {"Ann", read + "10 1", 3, "c", kDefectSize | kDefectScribble},
  };
  const auto third = [] {
    const LogRecord* const found = TheAgent.LogRecordAt(2);
    return std::string(found != nullptr ? found->bytes + 32 : "none");
  };
  for (const auto& each : reads) {
    SCOPED_TRACE(testing::Message() << each.lastCall << ", defects " << each.defects);
    SimulatorSetDefects(each.defects);
    SimulatorInflateSizes(each.inflation);
    if (each.failing != nullptr) SimulatorFail(each.failing, 1, kFault);
    EXPECT_EQ(TheAgent.ReadLog(each.user), each.failing != nullptr ? kFault : kNoError);
    EXPECT_EQ(TakeCalls().back(), each.lastCall);
    EXPECT_EQ(TheAgent.LogCount(), each.count);
    EXPECT_EQ(third(), each.third);
    EXPECT_EQ(TheAgent.LogRecordAt(-1), nullptr);
    EXPECT_EQ(TheAgent.LogRecordAt(static_cast<int>(each.count)), nullptr);
  }
  SimulatorFail("IMSPClearAB", 1, kFault);
  EXPECT_EQ(TheAgent.ClearLog("Ann"), kFault);
  EXPECT_EQ(third(), "c");
  TheAgent.DeleteScanners();
  EXPECT_EQ(third(), "none");
  EXPECT_EQ(TheAgent.LogCount(), 3U) << "only ReadLog and ClearLog change the count";
  TheAgent.ReadLog("Ann");
  EXPECT_EQ(TheAgent.ClearLog("Ann"), kNoError);
  EXPECT_EQ(TheAgent.LogCount(), 0U);
}

// --- Texts ---

TEST_F(AgentServices, ChecksATextBeforeAndAfterTheServerCheck) {
  const struct {
    std::string text;
    std::int32_t limit;
    Status result;
    bool asksTheServer;
  } cases[] = {{"abc", 4, kNoError, true},    {"abc", 3, -1, false},     {"", 0, -1, false},
               {"a", -1, -1, false},          {"a*b\x80", 9, -2, false}, {"a\"b", 9, -2, true},
               {"\x80 b", 9, kNoError, true},  // the first character may be an 8-bit one
               {"ab\xFF", 9, -3, true}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.text);
    TheAgent.SetError(kEarlier);
    EXPECT_EQ(TheAgent.ValidateString(each.text, each.limit), each.result);
    EXPECT_EQ(TakeCalls().size(), each.asksTheServer ? 1U : 0U);
    EXPECT_EQ(TheAgent.LastError() != kEarlier, each.asksTheServer);
  }
}

TEST_F(AgentServices, CopiesAtMost399CharactersOfTheServersText) {
  const std::string longText(1000, 'x');
  const struct {
    const char* served;
    Status status;
    std::string copied;
  } replies[] = {{"hello", kNoError, "hello"},
                 {longText.c_str(), kNoError, longText.substr(0, 399)},
                 {nullptr, kNoError, ""},
                 {"hello", kFault, ""}};
  for (const auto& each : replies) {
    char text[400] = "before";
    SimulatorSetServerText(each.served);
    if (each.status != kNoError) SimulatorFail("IMSPIOCtl", 1, each.status);
    EXPECT_EQ(TheAgent.ServerText(text), each.status);
    EXPECT_EQ(text, each.copied);
  }
}

TEST_F(AgentServices, ReturnsTheTextOfTheLastError) {
  std::string text = "before";
  TheAgent.SetError(2);
  TheAgent.ErrorText(text);
  EXPECT_EQ(text, "Invalid User or Password");
}

}  // namespace
}  // namespace quillkit
