#include <filesystem>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "bridge/address_entries.h"
#include "bridge/printer_records.h"
#include "bridge/user_entry.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/scratch_folder.h"
#include "tests/support/temporary_folder.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

constexpr std::uint32_t kOneHour = 3'600'000;
constexpr std::uint32_t kConvertedFormats[] = {ImportFormatDelimited, ImportFormatDirectory,
                                               ImportFormatMailServer};

// An option record with as long a map as is wanted.
class Options {
 public:
  explicit Options(std::uint32_t format, std::int32_t targetBook = TargetEmail,
                   const std::vector<std::int32_t>& columnMap = {0, 1})
      : words_(6, 0) {
    words_[2] = static_cast<std::int32_t>(format);
    words_[3] = 12345;  // the import context, which has no effect
    words_[4] = targetBook;
    words_[5] = static_cast<std::int32_t>(columnMap.size());
    words_.insert(words_.end(), columnMap.begin(), columnMap.end());
  }

  Options& SkipHeader() { return words_[0] = 2, *this; }
  Options& ClearFirst() { return words_[1] = -1, *this; }
  Options& ColumnCount(std::int32_t count) { return words_[5] = count, *this; }

  operator const ImportOptions*() const {
    return reinterpret_cast<const ImportOptions*>(words_.data());
  }

 private:
  std::vector<std::int32_t> words_;
};

class ImportAddressBookTest : public ApplianceTest {
 protected:
  ImportAddressBookTest() {
    CUserEntry clerk;
    clerk.SetName("CLERK");
    clerk.SetPassword("pen");
    SimulatorPutEntry(BookKind::kUsers, "", nullptr, &clerk);
  }

  // A file that gives an entry in every format.
  std::string AnyFile() const {
    return files_.Write("any", "Mailbox,a,b,n,SMTP:box1%\ndn:\ncn: Ann\nmail: box\n");
  }

  static CScanner* LogInAs(const char* user, const char* password) {
    CScanner* const box = LogToQuillbox(kHost, user, password, "", 0);
    EXPECT_NE(box, nullptr) << user;
    SimulatorClearJournal();
    return box;
  }

  // The entry of this name in an e-mail book, as "name|address".
  static std::string Email(BookKind kind, const char* user, const char* name) {
    CEmailEntry entry;
    if (SimulatorFindEntry(kind, "", user, name, &entry) == 0) return "none";
    return std::string(entry.Name()) + '|' + entry.Address();
  }

  static void PutEmail(const char* name) {
    CEmailEntry entry;
    entry.SetName(name);
    SimulatorPutEntry(BookKind::kEmail, "", nullptr, &entry);
  }

  const ScratchFolder files_;
  const ScratchFolder temporary_;
  const TemporaryFolder redirected_{temporary_.Path().string()};
};

TEST_F(ImportAddressBookTest, AbsentOptionsComeBeforeTheFile) {
  CScanner* const box = LogIn();
  EXPECT_EQ(ImportAddressBook(box, files_.PathOf("missing").c_str(), nullptr), -3);
  EXPECT_EQ(ImportAddressBook(box, nullptr, nullptr), -3);
  EXPECT_EQ(ImportAddressBook(nullptr, AnyFile().c_str(), nullptr), -3);
  EXPECT_THAT(temporary_.Names(), IsEmpty());
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

// The format and the scanner are not looked at.
TEST_F(ImportAddressBookTest, AMissingFileComesBeforeAllElse) {
  for (const std::uint32_t format : {1U, 16U, 256U, 4096U, 2U}) {
    EXPECT_EQ(ImportAddressBook(nullptr, files_.PathOf("missing").c_str(), Options(format)), -1);
    EXPECT_EQ(ImportAddressBook(nullptr, nullptr, Options(format)), -1);
    EXPECT_EQ(ImportAddressBook(nullptr, "", Options(format)), -1);
  }
  EXPECT_THAT(temporary_.Names(), IsEmpty());
}

TEST_F(ImportAddressBookTest, AnUnknownFormatLeavesAnEmptyTemporaryFile) {
  CScanner* const box = LogIn();
  const std::string path = AnyFile();
  for (const std::uint32_t format : {0U, 2U, 17U, 4097U, 0xFFFFFFFFU}) {
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(format)), -11);
    const std::vector<std::string> names = temporary_.Names();
    ASSERT_THAT(names, ElementsAre(StartsWith("QK7")));
    EXPECT_EQ(std::filesystem::file_size(temporary_.PathOf(names[0])), 0U);
    std::filesystem::remove(temporary_.PathOf(names[0]));
  }
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(ImportAddressBookTest, AFolderIsAPathThatCannotBeRead) {
  CScanner* const box = LogIn();
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(ImportAddressBook(box, files_.Path().string().c_str(), Options(format)), -2);
  }
  EXPECT_THAT(temporary_.Names(), SizeIs(3)) << "one is left behind by each";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

// Results tell whether something matched: an unknown format gets further than a missing file.
TEST_F(ImportAddressBookTest, WildcardsStandInTheLastComponentAlone) {
  std::filesystem::create_directory(files_.Path() / "folder");
  for (const char* name : {"[abc]", "{b}", "~", "$HOME", "#d", "e f", "%41", "folder/inside.txt"}) {
    files_.Write(name, "");
  }
  const struct {
    const char* path;
    std::int32_t result;
  } cases[] = {
      {"[abc]", -11},
      {"a", -1},
      {"{b}", -11},
      {"b", -1},
      {"~", -11},
      {"$HOME", -11},
      {"#d", -11},
      {"e f", -11},
      {"%41", -11},
      {"A", -1},
      {"*", -11},
      {"[*", -11},
      {"[a?c]", -11},
      {"[???]", -11},
      {"*b*]", -11},
      {"{**}", -11},
      {"?", -11},
      {"[?]", -1},
      {"x*", -1},
      {"????????????", -1},
      {"folder", -11},
      {"fold*", -11},
      {"folder/ins*t", -11},
      {"folder/inside.tx?", -11},
      {"fold*/inside.txt", -1},
      {"?older/*", -1},
      {"missing/*", -1},
      {"folder/out*", -1},
  };
  for (const auto& each : cases) {
    EXPECT_EQ(ImportAddressBook(nullptr, files_.PathOf(each.path).c_str(), Options(2)), each.result)
        << each.path;
  }
}

TEST_F(ImportAddressBookTest, ABackslashIsACharacterOfANameWhereItSeparatesNothing) {
  if constexpr (std::filesystem::path::preferred_separator == '\\') {
    GTEST_SKIP() << "here it separates folders";
  }
  files_.Write("a\\b", "");
  EXPECT_EQ(ImportAddressBook(nullptr, files_.PathOf("a\\b").c_str(), Options(2)), -11);
  EXPECT_EQ(ImportAddressBook(nullptr, files_.PathOf("a\\*").c_str(), Options(2)), -11);
  EXPECT_EQ(ImportAddressBook(nullptr, files_.PathOf("\\b").c_str(), Options(2)), -1);
}

// It passes the first test and is then opened as it stands.
TEST_F(ImportAddressBookTest, APatternThatMatchesIsNoFile) {
  CScanner* const box = LogIn();
  AnyFile();
  const std::string pattern = files_.PathOf("a*");
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(ImportAddressBook(box, pattern.c_str(), Options(format)), -2);
  }
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_NE(ImportAddressBook(box, pattern.c_str(), Options(ImportFormatScript)), 0);
  EXPECT_EQ(TakeCalls().back(), "IMSPBatchConfiguration " + pattern);
}

TEST_F(ImportAddressBookTest, NeedsTheTemporaryFolderForAScriptOfItsOwn) {
  const TemporaryFolder missing(temporary_.PathOf("missing"));
  CScanner* const box = LogIn();
  const std::string path = AnyFile();
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(format)), -1);
  }
  EXPECT_EQ(ImportAddressBook(box, files_.Path().string().c_str(), Options(1)), -2)
      << "the file is opened first";
  EXPECT_THAT(TakeCalls(), IsEmpty());
  const std::string script = files_.Write("script", "CA emailab\n");
  EXPECT_EQ(ImportAddressBook(box, script.c_str(), Options(ImportFormatScript)), 0);
}

TEST_F(ImportAddressBookTest, TheServerRunsTheScriptUnderTheLongTimeout) {
  CScanner* const box = LogIn();
  const std::uint32_t timeout = SimulatorTimeout();
  const std::string path = AnyFile();
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(format)), 0);
    const std::string script = "IMSPBatchConfiguration " + temporary_.PathOf("QK7");
    EXPECT_THAT(TakeCalls(),
                ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", StartsWith(script),
                            "IMSPIOCtl 2 0", "IMSPIOCtl 1 " + std::to_string(timeout)));
    EXPECT_EQ(SimulatorTimeout(), timeout);
    EXPECT_THAT(temporary_.Names(), IsEmpty());
  }
}

// The first failure is the result and the last call; only a batch that succeeded is followed by the
// old time-out.
TEST_F(ImportAddressBookTest, AServerFailureIsTheResult) {
  const struct {
    const char* entry;
    std::int32_t occurrence;
    std::size_t calls;
    std::uint32_t timeout;
  } cases[] = {{"IMSPIOCtl", 1, 1, 30'000},
               {"IMSPIOCtl", 2, 2, 30'000},
               {"IMSPBatchConfiguration", 1, 3, kOneHour},
               {"IMSPIOCtl", 3, 4, kOneHour},
               {"IMSPIOCtl", 4, 5, kOneHour}};
  const std::string path = AnyFile();
  for (const auto& each : cases) {
    CScanner* const box = LogIn();
    SimulatorFail(each.entry, each.occurrence, 16);
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(ImportFormatDirectory)), 16);
    EXPECT_EQ(GetLastToolkitError(), 16);
    EXPECT_THAT(TakeCalls(), SizeIs(each.calls));
    EXPECT_EQ(SimulatorTimeout(), each.timeout) << each.entry << ' ' << each.occurrence;
    EXPECT_THAT(temporary_.Names(), IsEmpty());
    SimulatorClearFaults();
    Logout();
  }
}

// The conversion runs all the same.
TEST_F(ImportAddressBookTest, AScannerThatIsNotConnectedComesLast) {
  const std::string path = AnyFile();
  CScanner unbound;
  for (CScanner* const scanner : {&unbound, static_cast<CScanner*>(nullptr)}) {
    for (const std::uint32_t format : kConvertedFormats) {
      EXPECT_EQ(ImportAddressBook(scanner, path.c_str(), Options(format)), -1);
      EXPECT_EQ(ImportAddressBook(scanner, files_.Path().string().c_str(), Options(format)), -2);
    }
    EXPECT_EQ(ImportAddressBook(scanner, path.c_str(), Options(ImportFormatScript)), -1);
  }
  EXPECT_THAT(temporary_.Names(), SizeIs(6)) << "of the folders, none of the files";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(ImportAddressBookTest, LocalResultsAreNotRecorded) {
  CScanner* const box = LogIn();
  SimulatorFail("IMSPIOCtl", 1, 22);
  EXPECT_EQ(ImportAddressBook(box, AnyFile().c_str(), Options(ImportFormatDirectory)), 22);
  ImportAddressBook(box, "", nullptr);
  ImportAddressBook(box, "", Options(1));
  ImportAddressBook(box, AnyFile().c_str(), Options(2));
  ImportAddressBook(nullptr, AnyFile().c_str(), Options(1));
  EXPECT_EQ(GetLastToolkitError(), 22);
}

TEST_F(ImportAddressBookTest, AfterLogoutTheServerAnswers) {
  CScanner* const box = LogIn();
  Logout();
  EXPECT_EQ(ImportAddressBook(box, AnyFile().c_str(), Options(ImportFormatDirectory)), 10);
  EXPECT_THAT(temporary_.Names(), IsEmpty());
}

TEST_F(ImportAddressBookTest, AReadyMadeScriptIsPassedOnAndStays) {
  const struct {
    const char* user;
    const char* password;
    const char* bytes;
  } cases[] = {{"ADMINISTRATOR", "quill", "SE emailab \"Bob\" \"b\"\n"},
               {"TOOLKIT", "KELP", "Bob\nb\n"},
               {"CLERK", "pen", "Bob\nb\n"}};
  PutEmail("Old");
  for (const auto& each : cases) {
    CScanner* const box = LogInAs(each.user, each.password);
    const std::string script = files_.Write("script", each.bytes);
    EXPECT_EQ(ImportAddressBook(box, script.c_str(), Options(ImportFormatScript).ClearFirst()), 0)
        << each.user;
    EXPECT_EQ(TakeCalls()[2], "IMSPBatchConfiguration " + script);
    EXPECT_EQ(ReadBytes(script), each.bytes);
    EXPECT_THAT(temporary_.Names(), IsEmpty());
    Logout();
  }
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Old"), "Old|") << "nothing was cleared";
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Bob"), "Bob|b");
}

TEST_F(ImportAddressBookTest, FillsTheBooks) {
  CScanner* const box = LogIn();
  const std::string path =
      files_.Write("rows", "number,name,third,fourth\n12,\"Lee, Ann\",x,y\n34,Bob,z\n");
  const auto import = [&](std::int32_t targetBook, const std::vector<std::int32_t>& columnMap) {
    return ImportAddressBook(box, path.c_str(),
                             Options(ImportFormatDelimited, targetBook, columnMap).SkipHeader());
  };
  EXPECT_EQ(import(TargetEmail, {1, 0}), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), 2);
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Lee, Ann"), "Lee, Ann|12");

  EXPECT_EQ(import(TargetFax, {1, 0, 2}), 0);
  CFaxEntry fax;
  ASSERT_EQ(SimulatorFindEntry(BookKind::kFax, "", nullptr, "Bob", &fax), 1);
  EXPECT_STREQ(fax.Number(), "34");
  EXPECT_STREQ(fax.Third(), "z");

  EXPECT_EQ(import(TargetPrinters, {1, 2, -1}), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kPrinters, "", nullptr), 2);

  EXPECT_EQ(import(TargetUsers, {1, 0, 2, 3}), 0);
  CUserEntry user;
  ASSERT_EQ(SimulatorFindEntry(BookKind::kUsers, "", nullptr, "Lee, Ann", &user), 1);
  EXPECT_EQ(user.password.View(), "12");
  EXPECT_EQ(user.third.View(), "x");
  EXPECT_EQ(user.fourth.View(), "y");
}

TEST_F(ImportAddressBookTest, ClearsForTheAdministratorAlone) {
  PutEmail("Old");
  const std::string path = files_.Write("rows", "Ann,box\n");
  for (const auto& [user, password] : {std::pair("TOOLKIT", "KELP"), std::pair("CLERK", "pen")}) {
    CScanner* const box = LogInAs(user, password);
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(ImportFormatDelimited).ClearFirst()), 0);
    EXPECT_EQ(Email(BookKind::kPrivateEmail, user, "Ann"), "Ann|box") << "plain pairs";
    Logout();
  }
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Old"), "Old|");

  CScanner* const box = LogIn();
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(ImportFormatDelimited).ClearFirst()), 0);
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Old"), "none");
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Ann"), "Ann|box");
}

TEST_F(ImportAddressBookTest, AnEmptyFileIsSubmittedToo) {
  PutEmail("Old");
  const std::string path = files_.Write("empty", "");
  CScanner* const box = LogIn();
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(ImportFormatDelimited).SkipHeader()), 0);
  EXPECT_THAT(TakeCalls(), SizeIs(5));
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(ImportFormatDelimited).ClearFirst()), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), 0);
}

// The simulated appliance refuses the clear line that names no book. Other servers may not.
TEST_F(ImportAddressBookTest, TheWordlessClearLineReachesTheServer) {
  CScanner* const box = LogIn();
  for (const std::uint32_t format : {ImportFormatDirectory, ImportFormatMailServer}) {
    EXPECT_EQ(ImportAddressBook(box, AnyFile().c_str(), Options(format).ClearFirst()), 17);
    EXPECT_EQ(SimulatorTimeout(), kOneHour);
    EXPECT_EQ(ImportAddressBook(box, AnyFile().c_str(), Options(format)), 0);
  }
}

TEST_F(ImportAddressBookTest, ACountOfZeroOrLessIsAnEmptyMap) {
  CScanner* const box = LogInAs("CLERK", "pen");
  const std::string path = files_.Write("rows", "Ann,box\n");
  for (const std::int32_t count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(1).ColumnCount(count)), 0);
  }
  EXPECT_EQ(Email(BookKind::kPrivateEmail, "CLERK", "Ann"), "none");
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(1)), 0);
  EXPECT_EQ(Email(BookKind::kPrivateEmail, "CLERK", "Ann"), "Ann|box");
}

}  // namespace
}  // namespace quillkit
