// The script language: what a line does, and where a script ends.

#include "tests/simulator/server_fixture.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {
namespace {

class BatchTest : public ServerTest {
 protected:
  BatchTest() {
    CUserEntry user;
    user.SetName("Eve");
    SimulatorPutEntry(BookKind::kUsers, nullptr, nullptr, &user);
  }

  Status Run(std::string_view script) const {
    return IMSPBatchConfiguration(folder.Write("script", script).c_str());
  }

  template <class Record>
  static Record Find(BookKind kind, const char* name) {
    Record record;
    EXPECT_EQ(SimulatorFindEntry(kind, nullptr, "Eve", name, &record), 1) << name;
    return record;
  }

  const ScratchFolder folder;
};

TEST_F(BatchTest, SetsAnEntryOrClearsABookWithEachLine) {
  LogInAsAdministrator();
  EXPECT_EQ(Run("SE emailab \"Ann\" \"old\"\r\n\n"
                R"(SE faxab "Bob, Ltd" "+1 555" ""
  SE	printersab  "Copy" "By the stairs" "Laser" 
SE usersab "Cid" "pear" "10.0.0.1" "Sales" 1 0 0 1
SE emailab "Ann" "ann@a.example"
SE usersab "Dan" "" "" "" 1 1 2 3)"),
            kNoError);
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kEmail, "Ann").address, "ann@a.example");
  EXPECT_EQ(Find<CFaxEntry>(BookKind::kFax, "Bob, Ltd").number, "+1 555");
  EXPECT_EQ(Find<PrinterRecord>(BookKind::kPrinters, "Copy").printerModel, "Laser");
  EXPECT_EQ(Find<CUserEntry>(BookKind::kUsers, "Cid").fourth, "Sales");
  const auto user = Find<CUserEntry>(BookKind::kUsers, "Dan");
  EXPECT_EQ(user.flags, 0x11U);
  EXPECT_EQ(user.nibbles, 0x23U);

  EXPECT_EQ(Run("CA emailab\nCA usersab\n"), kNoError);
  EXPECT_EQ(Size(BookKind::kEmail), 0);
  EXPECT_EQ(Size(BookKind::kUsers), 3);
  SimulatorSetLimit("email", 1);
  EXPECT_EQ(Run("SE emailab \"A\" \"1\"\nSE emailab \"A\" \"2\"\nSE emailab \"B\" \"\"\n"),
            kBookFull);
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kEmail, "A").address, "2");
  EXPECT_EQ(IMSPBatchConfiguration(folder.Path().string().c_str()), kBadCommand)
      << "a folder cannot be read as a script";
}

TEST_F(BatchTest, EndsTheScriptAtALineThatIsNoCommandOrDoesNotFit) {
  const std::string entry = R"(SE emailab "A" ")";
  const std::string user = R"(SE usersab "A" "b" "c" "d" 1 0 0)";
  const struct {
    Status status;
    std::vector<std::string> lines;
  } cases[] = {
      {kNoError, {entry + std::string(255, 'a') + '"'}},
      {kBadCommand,
       {"CA %s", "CA EMAILAB", "XX emailab", R"(SE topab "A" "b")", R"(SE emailab "A")",
        entry + 'b', R"(SE emailab "A"x" "b")", entry + R"(b" "c")",
        entry + std::string("a\0b\"", 4), user, user + " x"}},
      {kInvalidField,
       {user + " 16", R"(SE emailab "" "b")", entry + std::string(256, 'a') + '"',
        R"(SE usersab "A" "0123456789012345" "c" "d" 1 0 0 1)", std::string(1'000'000, 'x')}},
  };
  for (const auto& [status, lines] : cases) {
    for (const std::string& line : lines) {
      SCOPED_TRACE(line.substr(0, 100));
      SimulatorReset();
      LogInAsAdministrator();
      EXPECT_EQ(Run(entry + "before\"\n" + line + "\nSE emailab \"After\" \"b\"\n"), status);
      EXPECT_EQ(Size(BookKind::kEmail), status == kNoError ? 2 : 1);
      EXPECT_EQ(Size(BookKind::kUsers), 3);
    }
  }
}

TEST_F(BatchTest, ReadsPairsOfNameAndAddressForTheUsersPrivateBook) {
  const struct {
    std::string last;
    Status status;
  } cases[] = {
      {"", kNoError},
      {"Odd", kBadCommand},
      {std::string(32, 'n') + "\na\n", kInvalidField},
      {"Dan\n" + std::string(256, 'a') + "\n", kInvalidField},
      {"Dan\n" + std::string(10'000, 'a') + "\n", kInvalidField},
  };
  Expect(kNoError, {"Login Eve ''"});
  for (const auto& each : cases) {
    SCOPED_TRACE(each.last.substr(0, 100));
    EXPECT_EQ(Run("Ann\nann@a.example\n\n  \nBob\r\n\r\nCA emailab\nthe \"address\"\n" + each.last),
              each.status);
    EXPECT_EQ(Size(BookKind::kPrivateEmail, "", "Eve"), 3);
  }
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kPrivateEmail, "Ann").address, "ann@a.example");
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kPrivateEmail, "Bob").address, "");
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kPrivateEmail, "CA emailab").address, "the \"address\"");
}

}  // namespace
}  // namespace quillkit
