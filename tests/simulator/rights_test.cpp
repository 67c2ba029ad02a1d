// Who may do what with which book.

#include "simulator/status_codes.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

class RightsTest : public ServerTest {
 protected:
  RightsTest() {
    CUserEntry user;
    user.SetName("Eve");
    user.SetPassword("apple");
    SimulatorPutEntry(BookKind::kUsers, nullptr, nullptr, &user);
    PutEmail("Ann");
  }

  // What reading a book and changing it give.
  static std::pair<Status, Status> Try(BookKind kind) {
    ABIdent book(kind, "");
    std::uint32_t count = 0;
    const Status read = IMSPSizeofAB(&book, nullptr, &count);
    return {read, IMSPClearAB(&book, nullptr)};
  }

  static Status CreateUser(std::string_view name) {
    ABIdent book(BookKind::kUsers, kUsersBook);
    CUserEntry user;
    user.SetName(name);
    return IMSPCreateEntry(&book, &user);
  }
};

TEST_F(RightsTest, PublicBooksAndTheDatabaseAreChangedByTwo) {
  const struct {
    const char* user;
    const char* password;
    Status read;
    Status change;
  } cases[] = {{"ADMINISTRATOR", "quill", kNoError, kNoError},
               {"TOOLKIT", "KELP", kNoError, kNoError},
               {"Eve", "apple", kNoError, kAccessDenied},
               {"GUEST", "", kAccessDenied, kAccessDenied}};
  for (const auto& each : cases) {
    SCOPED_TRACE(each.user);
    ASSERT_EQ(LogIn(each.user, each.password), kNoError);
    char command[] = "DBCHECK.......";
    IOCtlRecord record{IOCtlCode::kDatabaseCommand, 0, command};
    EXPECT_EQ(IMSPIOCtl(&record), each.change);
    for (const BookKind kind : {BookKind::kEmail, BookKind::kFax, BookKind::kPrinters,
                                BookKind::kTop, BookKind::kModels, BookKind::kLog}) {
      EXPECT_EQ(Try(kind), std::pair(each.read, each.change)) << static_cast<unsigned>(kind);
    }
  }
}

TEST_F(RightsTest, GuestMayEnrolUsersAndNothingElse) {
  ASSERT_EQ(LogIn("GUEST", ""), kNoError);
  EXPECT_EQ(CreateUser("Zoe"), kNoError);
  EXPECT_EQ(Try(BookKind::kPrivateEmail), std::pair(kAccessDenied, kAccessDenied));
  ABIdent list(BookKind::kPrivateList, "Mine");
  EXPECT_EQ(IMSPCreateAB(&list), kAccessDenied);
  ABIdent users(BookKind::kUsers, kUsersBook);
  EntryKey key("Zoe");
  EXPECT_EQ(IMSPDeleteEntry(&users, &key), kAccessDenied);
  EXPECT_EQ(IMSPBatchConfiguration("any"), kAccessDenied);
}

TEST_F(RightsTest, UserHasPrivateBooksOfItsOwn) {
  ASSERT_EQ(LogIn("Eve", "apple"), kNoError);
  ABIdent list(BookKind::kPrivateList, "Mine");
  EXPECT_EQ(IMSPCreateAB(&list), kNoError);
  EXPECT_EQ(CreateUser("Zoe"), kAccessDenied);
  LogInAsAdministrator();
  EXPECT_EQ(IMSPDeleteAB(&list), kNoSuchBook);
}

TEST_F(RightsTest, AdministratorActsAsOthersAndBack) {
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

}  // namespace
}  // namespace quillkit
