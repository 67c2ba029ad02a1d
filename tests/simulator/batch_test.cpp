// The script language: what a line does, and how far a script gets.

#include <cstdio>
#include <fstream>

#include "bridge/status.h"
#include "tests/simulator/server_fixture.h"

namespace quillkit {
namespace {

std::string Quote(std::string_view text) {
  return '"' + std::string(text) + '"';
}

class BatchTest : public ServerTest {
 protected:
  BatchTest() {
    CUserEntry user;
    user.SetName("Eve");
    SimulatorPutEntry(BookKind::kUsers, nullptr, nullptr, &user);
  }
  ~BatchTest() override { std::remove(path.c_str()); }

  Status Run(std::string_view script) {
    std::ofstream(path, std::ios::binary) << script;
    return IMSPBatchConfiguration(path.c_str());
  }

  template <class Record>
  static Record Find(BookKind kind, const char* name) {
    Record record;
    EXPECT_EQ(SimulatorFindEntry(kind, nullptr, "Eve", name, &record), 1) << name;
    return record;
  }

  static std::int32_t Size(BookKind kind) { return SimulatorBookSize(kind, nullptr, "Eve"); }

 private:
  const std::string path = testing::TempDir() + "quillkit_batch_test.txt";
};

TEST_F(BatchTest, EachLineSetsOneEntryOrClearsABook) {
  LogInAsAdministrator();
  EXPECT_EQ(Run("SE emailab \"Ann\" \"old\"\r\n"
                "\n"
                "SE faxab \"Bob, Ltd\" \"+1 555\" \"\"\n"
                "  SE\tprintersab  \"Copy\" \"By the stairs\" \"Laser\" \n"
                "SE usersab \"Cid\" \"pear\" \"10.0.0.1\" \"Sales\" 1 0 0 1\n"
                "SE usersab \"Dan\" \"\" \"\" \"\" 1 1 2 3"),
            kNoError);
  EXPECT_EQ(Run("SE emailab \"Ann\" \"ann@a.example\""), kNoError) << "it replaces the entry";
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
}

TEST_F(BatchTest, LineThatIsNoCommandEndsTheScript) {
  using namespace std::string_literals;
  const struct {
    std::string line;
    Status status;
  } cases[] = {
      {"SE emailab " + Quote(std::string(31, 'n')) + ' ' + Quote(std::string(255, 'a')), kNoError},
      {"CA %s", kBadCommand},
      {"CA EMAILAB", kBadCommand},
      {"XX emailab", kBadCommand},
      {"SE topab \"A\" \"b\"", kBadCommand},
      {"SE emailab \"A\"", kBadCommand},
      {"SE emailab \"A\" \"b", kBadCommand},
      {"SE emailab \"A\"x\" \"b\"", kBadCommand},
      {"SE emailab \"A\" \"b\" \"c\"", kBadCommand},
      {"SE emailab \"A\0\" \"b\""s, kBadCommand},
      {"SE usersab \"A\" \"b\" \"c\" \"d\" 1 0 0", kBadCommand},
      {"SE usersab \"A\" \"b\" \"c\" \"d\" 1 0 0 x", kBadCommand},
      {"SE usersab \"A\" \"b\" \"c\" \"d\" 1 0 0 16", kInvalidField},
      {"SE emailab \"\" \"b\"", kInvalidField},
      {"SE emailab " + Quote(std::string(32, 'n')) + " \"b\"", kInvalidField},
      {"SE emailab \"A\" " + Quote(std::string(256, 'a')), kInvalidField},
      {"SE usersab \"A\" " + Quote(std::string(16, 'p')) + " \"c\" \"d\" 1 0 0 1", kInvalidField},
      {std::string(1'000'000, 'x'), kInvalidField},
  };
  for (const auto& each : cases) {
    SCOPED_TRACE(each.line.substr(0, 100));
    SimulatorReset();
    LogInAsAdministrator();
    EXPECT_EQ(Run("SE emailab \"Before\" \"b\"\n" + each.line + "\nSE emailab \"Behind\" \"b\"\n"),
              each.status);
    EXPECT_EQ(Size(BookKind::kEmail), each.status == kNoError ? 3 : 1)
        << "what was carried out stays, and no more is";
    EXPECT_EQ(Size(BookKind::kUsers), 3);
  }
  EXPECT_EQ(IMSPBatchConfiguration(testing::TempDir().c_str()), kBadCommand) << "no file";
}

TEST_F(BatchTest, OthersGivePairsForTheirPrivateBook) {
  const std::string good = "Ann\nann@a.example\n\n  \nBob\r\n\r\nCA emailab\nthe \"address\"\n";
  const struct {
    std::string pair;
    Status status;
  } ends[] = {
      {"", kNoError},
      {"Odd", kBadCommand},
      {std::string(32, 'n') + "\na\n", kInvalidField},
      {"Dan\n" + std::string(256, 'a') + "\n", kInvalidField},
      {"Dan\n" + std::string(10'000, 'a') + "\n", kInvalidField},
  };
  ASSERT_EQ(LogIn("Eve", ""), kNoError);
  for (const auto& each : ends) {
    SCOPED_TRACE(each.pair.substr(0, 100));
    EXPECT_EQ(Run(good + each.pair), each.status);
    EXPECT_EQ(Size(BookKind::kPrivateEmail), 3);
  }
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kPrivateEmail, "Ann").address, "ann@a.example");
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kPrivateEmail, "Bob").address, "");
  EXPECT_EQ(Find<CEmailEntry>(BookKind::kPrivateEmail, "CA emailab").address, "the \"address\"");
}

}  // namespace
}  // namespace quillkit
