// What the agent offers beside the session: time-outs, database commands, the log, checks, texts.

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

constexpr Status kEarlier = 11;
constexpr Status kFault = 6;

class AgentServices : public ApplianceTest {
 protected:
  AgentServices() {
    LogIn();
    TheAgent.SetError(kEarlier);
  }
};

TEST_F(AgentServices, ATimeoutIsToldInWholeSeconds) {
  SimulatorSetTimeout(1999);
  std::uint32_t old = 7;
  EXPECT_EQ(TheAgent.SetServerTimeout(0, &old), kNoError);
  EXPECT_EQ(old, 1U);
  EXPECT_EQ(SimulatorTimeout(), 0U);
  EXPECT_EQ(TheAgent.SetServerTimeout(5, &old), kNoError);
  EXPECT_EQ(old, 0U);
  EXPECT_EQ(SimulatorTimeout(), 5000U);

  old = 7;
  SimulatorFail("IMSPIOCtl", 1, kFault);
  EXPECT_EQ(TheAgent.SetServerTimeout(9, &old), kFault);
  EXPECT_EQ(old, 7U);
  SimulatorFail("IMSPIOCtl", 2, kFault);
  EXPECT_EQ(TheAgent.SetServerTimeout(9, &old), kFault);
  EXPECT_EQ(old, 5U);
}

// --- Database commands ---

struct Command {
  std::int32_t kind;
  int first;  // lengths of the texts, -1 for none
  int second;
  bool fits;
};

TEST_F(AgentServices, ADatabaseCommandGoesOutWholeOrNotAtAll) {
  const Command commands[] = {{2, -1, -1, true},   {0, 0, 0, true},      {1, 3, 4, true},
                              {0, -1, 0, false},   {0, 384, -1, true},   {0, 384, 0, false},
                              {0, 385, -1, false}, {0, 5000, -1, false}, {0, 383, 0, true},
                              {0, 383, 1, false},  {0, 0, 383, true},    {0, 0, 5000, false},
                              {3, 2, 2, true},     {-1, -1, -1, true}};
  for (const Command& with : commands) {
    SCOPED_TRACE(testing::Message() << with.kind << ' ' << with.first << ' ' << with.second);
    const std::string first(static_cast<std::size_t>(std::max(with.first, 0)), 'f');
    const std::string second(static_cast<std::size_t>(std::max(with.second, 0)), 's');
    TheAgent.SetError(kEarlier);
    SimulatorFail("IMSPIOCtl", 1, kNoError);
    EXPECT_EQ(TheAgent.DatabaseCommand(with.kind, with.first < 0 ? nullptr : first.c_str(),
                                       with.second < 0 ? nullptr : second.c_str()),
              with.fits ? kNoError : kRefused);
    EXPECT_EQ(TheAgent.LastError(), with.fits ? kNoError : kEarlier);
    // A kind that there is not leaves 14 bytes of nothing, and the text ends before it begins.
    const char* const words[] = {"DBBACKUP......", "DBRESTORE.....", "DBCHECK......."};
    std::string call = "IMSPIOCtl 7 0 ";
    if (with.kind >= 0 && with.kind < 3) {
      call += words[with.kind] + first + (with.first < 0 ? "" : ",") + second;
    }
    EXPECT_EQ(TakeCalls(), std::vector<std::string>(with.fits ? 1 : 0, call));
  }
}

TEST_F(AgentServices, ACommandThatDoesNotFitIsTheOneLocalCodeInTheLastError) {
  const std::string tooLong(385, 'f');
  EXPECT_EQ(TheAgent.BackupDatabase(tooLong.c_str(), nullptr), kRefused);
  EXPECT_EQ(TheAgent.LastError(), kRefused);
  EXPECT_EQ(SimulatorTimeout(), 3'600'000U);
}

// --- The log ---

class AgentLog : public AgentServices {
 protected:
  // A further user with `count` log records.
  static void PutLog(const char* user, int count) {
    LogRecord record;
    std::string_view(user).copy(record.bytes, sizeof record.bytes - 1);
    for (int i = 0; i < count; ++i) {
      SimulatorPutEntry(BookKind::kLog, "", nullptr, &record);
    }
  }
};

TEST_F(AgentLog, ReadsTheRecordsOfAUserInOneBlock) {
  PutLog("Ann", 3);
  PutLog("Ben", 1);
  TakeCalls();
  EXPECT_EQ(TheAgent.ReadLog("Ann"), kNoError);
  EXPECT_THAT(TakeCalls(),
              ElementsAre("IMSPSizeofAB 1024:LOGAB Ann", "IMSPReadAB 1024:LOGAB [|Ann|0] 3 1"));
  ASSERT_EQ(TheAgent.LogCount(), 3U);
  EXPECT_EQ(TheAgent.LogRecordAt(2), TheAgent.LogRecordAt(0) + 2);
  EXPECT_THAT(TheAgent.LogRecordAt(2)->bytes, StartsWith("Ann"));
  EXPECT_EQ(TheAgent.LogRecordAt(-1), nullptr);
  EXPECT_EQ(TheAgent.LogRecordAt(3), nullptr);

  // A query that fails leaves what was read.
  SimulatorFail("IMSPSizeofAB", 1, kFault);
  EXPECT_EQ(TheAgent.ReadLog("Ben"), kFault);
  EXPECT_EQ(TheAgent.LogCount(), 3U);

  TakeCalls();
  EXPECT_EQ(TheAgent.ReadLog("Nobody"), kNoError);
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPSizeofAB 1024:LOGAB Nobody"));
  EXPECT_EQ(TheAgent.LogCount(), 0U);
  EXPECT_EQ(TheAgent.LogRecordAt(0), nullptr);
}

TEST_F(AgentLog, RecordsGoWithTheServersAndWithTheScanners) {
  PutLog("Ann", 2);
  TheAgent.ReadLog("Ann");
  SimulatorFail("IMSPClearAB", 1, kFault);
  EXPECT_EQ(TheAgent.ClearLog("Ann"), kFault);
  EXPECT_NE(TheAgent.LogRecordAt(1), nullptr);
  EXPECT_EQ(TheAgent.ClearLog("Ann"), kNoError);
  EXPECT_EQ(TheAgent.LogCount(), 0U);

  PutLog("Ann", 2);
  TheAgent.ReadLog("Ann");
  TheAgent.DeleteScanners();
  EXPECT_EQ(TheAgent.LogCount(), 2U) << "the count stays";
  EXPECT_EQ(TheAgent.LogRecordAt(0), nullptr);
}

TEST_F(AgentLog, TheCountIsWhatWasDelivered) {
  PutLog("Ann", 3);
  SimulatorSetLies(kLieSize | kLieScribble);  // the size is told as 10
  EXPECT_EQ(TheAgent.ReadLog("Ann"), kNoError);
  EXPECT_EQ(TheAgent.LogCount(), 3U);

  SimulatorSetLies(0);
  SimulatorInflateSizes(4'000'000'000);
  TakeCalls();
  EXPECT_EQ(TheAgent.ReadLog("Ann"), kNoError);
  EXPECT_EQ(TheAgent.LogCount(), 3U);
  EXPECT_THAT(TakeCalls().back(), testing::EndsWith(" 1000000 1"));
  SimulatorInflateSizes(0);

  SimulatorSetLies(kLieDeliveredCount);
  EXPECT_EQ(TheAgent.ReadLog("Ann"), kNoError);
  EXPECT_EQ(TheAgent.LogCount(), 3U);

  SimulatorSetLies(kLieFailedCount);
  SimulatorFail("IMSPReadAB", 1, kFault);
  EXPECT_EQ(TheAgent.ReadLog("Ann"), kFault);
  ASSERT_EQ(TheAgent.LogCount(), 3U) << "as the server left it";
  EXPECT_EQ(TheAgent.LogRecordAt(2)->bytes[0], '\0');
}

// --- Texts ---

TEST_F(AgentServices, ATextIsCheckedHereFirstAndThenByTheServer) {
  const struct {
    std::string text;
    std::int32_t limit;
    Status result;
    bool asksTheServer;
  } cases[] = {{"abc", 4, kNoError, true},    {"abc", 3, -1, false},     {"", 0, -1, false},
               {"a", -1, -1, false},          {"a*b\x80", 9, -2, false}, {"a\"b", 9, -2, true},
               {"\x80 b", 9, kNoError, true},  // the first character may be any
               {"ab\xFF", 9, -3, true}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.text);
    TheAgent.SetError(kEarlier);
    EXPECT_EQ(TheAgent.ValidateString(each.text, each.limit), each.result);
    EXPECT_EQ(TakeCalls().size(), each.asksTheServer ? 1U : 0U);
    EXPECT_EQ(TheAgent.LastError() != kEarlier, each.asksTheServer);
  }
}

TEST_F(AgentServices, TheServersTextIsCopiedAsFarAsTheBufferGoes) {
  char text[400];
  SimulatorSetServerText("hello");
  EXPECT_EQ(TheAgent.ServerText(text), kNoError);
  EXPECT_STREQ(text, "hello");

  const std::string longText(1000, 'x');
  SimulatorSetServerText(longText.c_str());
  EXPECT_EQ(TheAgent.ServerText(text), kNoError);
  EXPECT_EQ(text, std::string(399, 'x'));

  SimulatorSetServerText(nullptr);
  EXPECT_EQ(TheAgent.ServerText(text), kNoError);
  EXPECT_STREQ(text, "");

  text[0] = 'x';
  SimulatorFail("IMSPIOCtl", 1, kFault);
  EXPECT_EQ(TheAgent.ServerText(text), kFault);
  EXPECT_STREQ(text, "");
}

TEST_F(AgentServices, ActsAsAnotherUserAndTellsTheTextOfTheLastError) {
  EXPECT_EQ(TheAgent.ChangeIdentity(std::string(kToolkitName)), kNoError);
  EXPECT_STREQ(SimulatorSessionUser(), "TOOLKIT");
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPChangeIdentity TOOLKIT"));
  TheAgent.ChangeIdentity(std::string(32, 'n'));
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPChangeIdentity \"\"")) << "cut, it could be another's";
  std::string text;
  TheAgent.SetError(kEarlier);
  TheAgent.ErrorText(text);
  EXPECT_EQ(text, "Access Denied");
}

}  // namespace
}  // namespace quillkit
