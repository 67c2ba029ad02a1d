// The services that are about no book: time-outs, database commands, texts; and the control of
// time.

#include "bridge/status.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

class ServicesTest : public ServerTest {
 protected:
  ServicesTest() { LogInAsAdministrator(); }

  static Status Command(std::string text) {
    IOCtlRecord record{IOCtlCode::kDatabaseCommand, 0, text.data()};
    return IMSPIOCtl(&record);
  }

  static std::int32_t EmailSize() { return SimulatorBookSize(BookKind::kEmail, nullptr, nullptr); }
};

TEST_F(ServicesTest, TimeoutIsTheSessions) {
  IOCtlRecord record{IOCtlCode::kSetTimeout, 3'600'000, nullptr};
  EXPECT_EQ(IMSPIOCtl(&record), kNoError);
  EXPECT_EQ(SimulatorTimeout(), 3'600'000U);
  LogInAsAdministrator();
  record.code = IOCtlCode::kGetTimeout;
  EXPECT_EQ(IMSPIOCtl(&record), kNoError);
  EXPECT_EQ(record.value, 30'000U);
  record.code = static_cast<IOCtlCode>(99);
  EXPECT_EQ(IMSPIOCtl(&record), kBadCommand);
}

TEST_F(ServicesTest, CallThatTakesTooLongDoesNothing) {
  SimulatorSetLatency(20);
  PutEmail("Ann");
  ABIdent book(BookKind::kEmail, kEmailBook);
  SimulatorSetTimeout(1);
  EXPECT_EQ(IMSPClearAB(&book, nullptr), kTimeoutExpired);
  EXPECT_EQ(EmailSize(), 1);
  SimulatorSetTimeout(20);
  EXPECT_EQ(IMSPClearAB(&book, nullptr), kNoError);
  EXPECT_EQ(EmailSize(), 0);
}

TEST_F(ServicesTest, RestorePutsBackTheBooksOfItsBackup) {
  PutEmail("Ann");
  EXPECT_EQ(Command("DBBACKUP......one,x"), kNoError);
  for (const char* name : {"Cid", "Dan"}) {
    PutEmail(name);
    EXPECT_EQ(Command("DBRESTORE.....one,y"), kNoError);
    EXPECT_EQ(EmailSize(), 1) << "the copy is not what is worked on";
  }
  EXPECT_EQ(Command("DBRESTORE.....three,"), kDataNotFound);
  EXPECT_EQ(Command("DBCHECK......."), kNoError);
  for (const std::string& text : {std::string(), std::string("DBCHECK"),
                                  std::string("dbcheck......."), std::string(1000, 'x')}) {
    EXPECT_EQ(Command(text), kBadCommand) << text;
  }
}

TEST_F(ServicesTest, TextsAreCheckedForLengthAndCharacters) {
  const struct {
    const char* text;
    std::int32_t limit;
    Status status;
  } cases[] = {
      {"", 0, kNoError},       {"abc", 3, kNoError},       {"abc", 2, kInvalidField},
      {"", -1, kInvalidField}, {"a*\xE9", 9, kNoError},    {"a\"b", 9, kInvalidField},
      {"\x80", 9, kNoError},   {"a\tb", 9, kInvalidField}, {"a\x7F", 9, kInvalidField},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(IMSPCheckString(each.text, each.limit), each.status) << each.text;
  }
}

}  // namespace
}  // namespace quillkit
