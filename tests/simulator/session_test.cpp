// The session: who may log in, the rights of each user, and when the session ends; the services
// without a book; and the log.

#include <cstdio>

#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

const std::string kOpen = "Login ADMINISTRATOR quill";

class SessionTest : public ServerTest {
 protected:
  SessionTest() {
    CUserEntry user;
    user.SetName("Eve");
    user.SetPassword("apple");
    SimulatorPutEntry(BookKind::kUsers, nullptr, nullptr, &user);
  }
};

TEST_F(SessionTest, KeepsTheOpenSessionWhenALoginIsRefused) {
  Expect(kNoError, {"Login TOOLKIT KELP"});
  Expect(kWrongUser, {"Login ADMINISTRATOR Quill", "Login administrator quill"});
  EXPECT_STREQ(SimulatorSessionUser(), "TOOLKIT");
  Expect(kNoError, {"Login GUEST ''"});
  EXPECT_STREQ(SimulatorSessionUser(), "GUEST");
}

TEST_F(SessionTest, TruncatesTheIdentityToTheCallersBuffer) {
  SimulatorSetIdentity("ABCDEF", 6);
  LoginRecord login;
  login.user.Assign("GUEST");
  char buffer[] = "##########";
  EXPECT_EQ(IMSPLogin(&login, buffer, 6), kNoError);
  EXPECT_STREQ(buffer, "ABCDEF####");
  EXPECT_EQ(IMSPLogin(&login, buffer, 10), kNoError);
  EXPECT_EQ(std::string(buffer, 10), std::string("ABCDEF\0###", 10));
}

TEST_F(SessionTest, GivesEachUserItsRights) {
  const struct {
    const char* login;
    Status read, change, own, enrol, batch;
  } cases[] = {{"ADMINISTRATOR quill", kNoError, kNoError, kNoError, kNoError, kBadCommand},
               {"TOOLKIT KELP", kNoError, kNoError, kNoError, kNoError, kBadCommand},
               {"Eve apple", kNoError, kAccessDenied, kNoError, kAccessDenied, kBadCommand},
               {"GUEST ''", kAccessDenied, kAccessDenied, kAccessDenied, kNoError, kAccessDenied}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.login);
    Expect(kNoError, {std::string("Login ") + each.login});
    for (const char* book : {"1:", "2:", "4:", "8:", "256:", "1024:", "2048:"}) {
      Expect(each.read, {std::string("SizeofAB ") + book});
      Expect(each.change, {std::string("ClearAB ") + book + " Nobody"});
    }
    Expect(each.own, {"SizeofAB 16:", "ClearAB 16: Nobody", "CreateAB 128:Mine"});
    Expect(each.enrol, {std::string("CreateEntry 4:USERSAB new-") + each.login});
    Expect(each.batch, {"BatchConfiguration no/such/file"});
    Expect(each.change, {"IOCtl 7 DBCHECK......."});
  }
}

TEST_F(SessionTest, OnlyTheAdministratorChangesIdentityAndChangesBack) {
  Expect(kNoError, {"Login TOOLKIT KELP"});
  Expect(kAccessDenied, {"ChangeIdentity Eve"});
  Expect(kNoError, {kOpen});
  Expect(kWrongUser, {"ChangeIdentity Nobody"});
  Expect(kNoError, {"ChangeIdentity Eve", "SizeofAB 1:"});
  EXPECT_STREQ(SimulatorSessionUser(), "Eve");
  Expect(kAccessDenied, {"ClearAB 1: Nobody"});
  Expect(kNoError, {"ChangeIdentity ADMINISTRATOR", "ClearAB 1: Nobody"});
}

TEST_F(SessionTest, RefusesCallsWithoutASessionOrTheLibrary) {
  const auto calls = {"Logout", "Abort", "IOCtl 2", "SizeofAB 1:", "Import", "Wakeup"};
  for (const char* call : calls) Expect(kNotLoggedIn, {call});
  Expect(kNoError, {kOpen, "Terminate"});
  for (const char* call : calls) Expect(kNotInitialised, {call});
  Expect(kNotInitialised, {kOpen, "Terminate"});
  IMSPInit();
  Expect(kNotLoggedIn, {"Wakeup"});
  EXPECT_EQ(Size(BookKind::kUsers), 4) << "the books are kept without a session";
}

TEST_F(SessionTest, EndsASessionThatSentNoKeepAliveForAPeriod) {
  SimulatorSetWakeupPeriod(5000);
  LogInAsAdministrator();
  SimulatorAdvanceClock(4000);
  Expect(kNoError, {"Wakeup"});
  SimulatorAdvanceClock(4000);
  SimulatorFail("IMSPWakeup", 1, kBadCommand);
  Expect(kBadCommand, {"Wakeup"});  // a fault is not a keep-alive
  SimulatorAdvanceClock(1000);
  EXPECT_STREQ(SimulatorSessionUser(), "");
  Expect(kNotLoggedIn, {"Wakeup"});
}

TEST_F(SessionTest, DoesNothingInACallThatTakesLongerThanTheTimeout) {
  LogInAsAdministrator();
  PutEmail("Ann");
  SimulatorSetLatency(20);
  SimulatorSetTimeout(1);
  Expect(kTimeoutExpired, {"ClearAB 1:"});
  EXPECT_EQ(Size(BookKind::kEmail), 1);
  SimulatorSetTimeout(20);
  Expect(kNoError, {"ClearAB 1:"});
  EXPECT_EQ(Size(BookKind::kEmail), 0);
}

TEST_F(SessionTest, RestoresTheBooksOfABackup) {
  LogInAsAdministrator();
  PutEmail("Ann");
  Expect(kNoError, {"IOCtl 7 DBBACKUP......one,x"});
  for (const char* name : {"Cid", "Dan"}) {  // a restored copy may be changed and restored again
    PutEmail(name);
    Expect(kNoError, {"IOCtl 7 DBRESTORE.....one,y"});
    EXPECT_EQ(Size(BookKind::kEmail), 1);
  }
  Expect(kDataNotFound, {"IOCtl 7 DBRESTORE.....three,"});
  Expect(kBadCommand, {"IOCtl 99", "IOCtl 7 ''", "IOCtl 7 DBCHECK", "IOCtl 7 dbcheck.......",
                       "IOCtl 7 " + std::string(1000, 'x')});
}

TEST_F(SessionTest, ChecksTextsForLengthAndCharacters) {
  LogInAsAdministrator();
  Expect(kNoError,
         {"CheckString '' 0", "CheckString abc 3", "CheckString a*\xE9 9", "CheckString \x80 9"});
  Expect(kInvalidField, {"CheckString abc 2", "CheckString '' -1", "CheckString a\"b 9",
                         "CheckString a\x1F 9", "CheckString a\x7F 9"});
}

// The log has records in the order of time, and no names: a filter is a user.
class LogTest : public ServerTest {
 protected:
  LogTest() {
    Expect(kNoError,
           {"Login TOOLKIT KELP", "Login GUEST ''", "Login TOOLKIT KELP", "Logout", kOpen});
  }

  // The first ten records of a user.
  std::vector<std::string> Read(const char* user) {
    KeyRange range("", user);
    LogRecord records[10];
    std::uint32_t count = 10;
    IMSPReadAB(&book, &range, records, &count, 1);
    std::vector<std::string> lines;
    for (std::uint32_t i = 0; i < count; ++i) {
      lines.push_back(std::string(records[i].bytes) + ": " + (records[i].bytes + 32));
    }
    return lines;
  }

  std::uint32_t Count(const char* user) {
    std::uint32_t count = 99;
    EXPECT_EQ(IMSPSizeofAB(&book, user, &count), kNoError);
    return count;
  }

  ABIdent book{BookKind::kLog, kLogBook};
};

TEST_F(LogTest, ReadsAndCountsTheRecordsOfAUser) {
  Expect(kBadCommand, {"BatchConfiguration no/such/file"});
  EXPECT_THAT(Read("*"),
              ElementsAre("TOOLKIT: login", "GUEST: login", "TOOLKIT: login", "TOOLKIT: logout",
                          "ADMINISTRATOR: login", "ADMINISTRATOR: batch 17"));
  EXPECT_THAT(Read("TOOLKIT"), ElementsAre("TOOLKIT: login", "TOOLKIT: login", "TOOLKIT: logout"));
  EXPECT_THAT(Read("Nobody"), testing::IsEmpty());
  EXPECT_EQ(Count(nullptr), 6U);
  EXPECT_EQ(Count("TOOLKIT"), 3U);
  EXPECT_EQ(Count("TOOL*"), 0U);
  Expect(kNotImplemented, {"CreateEntry 1024:LOGAB Ann", "DeleteEntry 1024:LOGAB Ann",
                           "ReadEntryProperties 1024:LOGAB Ann Ann"});
}

TEST_F(LogTest, ClearsTheRecordsOfAUserOfAllOrOfAllButSome) {
  for (const char* filter : {"TOOLKIT", "_!ADMINISTRATOR_!GUEST"}) {
    Expect(kNoError, {std::string("ClearAB 1024:LOGAB ") + filter});
    EXPECT_THAT(Read(""), ElementsAre("GUEST: login", "ADMINISTRATOR: login"));
    Expect(kNoError, {"Login TOOLKIT KELP"});
  }
  Expect(kNoError, {"ClearAB 1024:LOGAB"});
  EXPECT_EQ(Count(nullptr), 0U);
}

TEST_F(LogTest, DropsTheOldestRecordsAndStillFindsThoseOfAUser) {
  constexpr std::uint32_t kCapacity = 65536;
  LogRecord record;
  for (std::uint32_t i = 0; i < kCapacity; ++i) {
    std::snprintf(record.bytes, 32, i % 2 == 0 ? "even" : "odd");
    std::snprintf(record.bytes + 32, 100, "%u", i);
    SimulatorPutEntry(BookKind::kLog, nullptr, nullptr, &record);
  }
  Expect(kNoError, {"Login TOOLKIT KELP"});
  EXPECT_EQ(Count(nullptr), kCapacity);
  EXPECT_EQ(Count("even"), kCapacity / 2 - 1);
  EXPECT_EQ(Read("even").front(), "even: 2");
  EXPECT_THAT(Read("TOOLKIT"), ElementsAre("TOOLKIT: login"));
}

}  // namespace
}  // namespace quillkit
