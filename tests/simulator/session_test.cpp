// The session: who is let in, what each may do, what may be done without one, and when it ends.

#include "bridge/status.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

class SessionTest : public ServerTest {
 protected:
  SessionTest() {
    CUserEntry user;
    user.SetName("Eve");
    user.SetPassword("apple");
    SimulatorPutEntry(BookKind::kUsers, nullptr, nullptr, &user);
  }

  // What reading a book and changing it give.
  static std::pair<Status, Status> Try(BookKind kind) {
    ABIdent book(kind, "");
    std::uint32_t count = 0;
    const Status read = IMSPSizeofAB(&book, nullptr, &count);
    return {read, IMSPClearAB(&book, "Nobody")};
  }

  static Status CreateUser(std::string_view name) {
    ABIdent book(BookKind::kUsers, kUsersBook);
    CUserEntry user;
    user.SetName(name);
    return IMSPCreateEntry(&book, &user);
  }
};

TEST_F(SessionTest, RefusedLoginLeavesTheOpenSession) {
  ASSERT_EQ(LogIn("TOOLKIT", "KELP"), kNoError);
  EXPECT_EQ(LogIn("ADMINISTRATOR", "Quill"), kWrongUser);
  EXPECT_EQ(LogIn("administrator", "quill"), kWrongUser);
  EXPECT_STREQ(SimulatorSessionUser(), "TOOLKIT");
  EXPECT_EQ(LogIn("GUEST", ""), kNoError);
  EXPECT_STREQ(SimulatorSessionUser(), "GUEST");
}

TEST_F(SessionTest, IdentityIsCutAtTheCallersBuffer) {
  SimulatorSetIdentity("ABCDEF", 6);
  LoginRecord login = MakeLogin("TOOLKIT", "KELP");
  char buffer[] = "##########";
  EXPECT_EQ(IMSPLogin(&login, buffer, 6), kNoError);
  EXPECT_STREQ(buffer, "ABCDEF####");
  EXPECT_EQ(IMSPLogin(&login, buffer, 10), kNoError);
  EXPECT_EQ(std::string(buffer, 10), std::string("ABCDEF\0###", 10));
}

// The private books are each user's own: all create a list of the same name.
TEST_F(SessionTest, EachUserHasItsRights) {
  const struct {
    const char* user;
    const char* password;
    Status read;
    Status change;
    Status ownBooks;
    Status enrol;
    Status batch;
  } cases[] = {{"ADMINISTRATOR", "quill", kNoError, kNoError, kNoError, kNoError, kBadCommand},
               {"TOOLKIT", "KELP", kNoError, kNoError, kNoError, kNoError, kBadCommand},
               {"Eve", "apple", kNoError, kAccessDenied, kNoError, kAccessDenied, kBadCommand},
               {"GUEST", "", kAccessDenied, kAccessDenied, kAccessDenied, kNoError, kAccessDenied}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.user);
    ASSERT_EQ(LogIn(each.user, each.password), kNoError);
    for (const BookKind kind :
         {BookKind::kEmail, BookKind::kFax, BookKind::kUsers, BookKind::kPrinters, BookKind::kTop,
          BookKind::kModels, BookKind::kLog}) {
      EXPECT_EQ(Try(kind), std::pair(each.read, each.change)) << static_cast<unsigned>(kind);
    }
    EXPECT_EQ(Try(BookKind::kPrivateEmail), std::pair(each.ownBooks, each.ownBooks));
    ABIdent list(BookKind::kPrivateList, "Mine");
    EXPECT_EQ(IMSPCreateAB(&list), each.ownBooks);
    EXPECT_EQ(CreateUser(each.user + std::string("'s")), each.enrol);
    EXPECT_EQ(IMSPBatchConfiguration("no/such/file"), each.batch);
    char command[] = "DBCHECK.......";
    IOCtlRecord record{IOCtlCode::kDatabaseCommand, 0, command};
    EXPECT_EQ(IMSPIOCtl(&record), each.change);
  }
}

TEST_F(SessionTest, AdministratorActsAsOthersAndBack) {
  const auto actAs = [](EntryKey key) { return IMSPChangeIdentity(&key); };
  ASSERT_EQ(LogIn("TOOLKIT", "KELP"), kNoError);
  EXPECT_EQ(actAs(EntryKey("Eve")), kAccessDenied);
  LogInAsAdministrator();
  EXPECT_EQ(actAs(EntryKey("Nobody")), kWrongUser);
  EXPECT_EQ(actAs(EntryKey("Eve")), kNoError);
  EXPECT_STREQ(SimulatorSessionUser(), "Eve");
  EXPECT_EQ(Try(BookKind::kEmail), std::pair(kNoError, kAccessDenied));
  EXPECT_EQ(actAs(EntryKey("ADMINISTRATOR")), kNoError);
  EXPECT_EQ(Try(BookKind::kEmail), std::pair(kNoError, kNoError));
}

TEST_F(SessionTest, OtherCallsNeedASession) {
  ABIdent lists(BookKind::kPublicList, "");
  IOCtlRecord control;
  std::uint32_t count = 0;
  const auto callAll = [&] {
    return std::vector<Status>{IMSPLogout(), IMSPAbort(), IMSPIOCtl(&control),
                               IMSPListAB(&lists, nullptr, nullptr, &count, 1),
                               IMSPImport(0, 0, 0)};
  };
  EXPECT_THAT(callAll(), testing::Each(kNotLoggedIn));
  LogInAsAdministrator();
  ASSERT_EQ(IMSPTerminate(), kNoError);
  EXPECT_THAT(callAll(), testing::Each(kNotInitialised));
  EXPECT_EQ(LogIn("ADMINISTRATOR", "quill"), kNotInitialised);
  EXPECT_EQ(IMSPTerminate(), kNotInitialised);
  IMSPInit();
  EXPECT_EQ(IMSPWakeup(), kNotLoggedIn);
  EXPECT_EQ(SimulatorBookSize(BookKind::kUsers, "", nullptr), 4) << "the books stay";
}

TEST_F(SessionTest, SilentSessionIsDropped) {
  SimulatorSetWakeupPeriod(5000);
  LogInAsAdministrator();
  SimulatorAdvanceClock(4000);
  EXPECT_EQ(IMSPWakeup(), kNoError);
  SimulatorAdvanceClock(4000);
  SimulatorFail("IMSPWakeup", 1, kBadCommand);
  EXPECT_EQ(IMSPWakeup(), kBadCommand) << "a faulted call is no sign of life";
  SimulatorAdvanceClock(1000);
  EXPECT_STREQ(SimulatorSessionUser(), "");
  EXPECT_EQ(IMSPWakeup(), kNotLoggedIn);
}

}  // namespace
}  // namespace quillkit
