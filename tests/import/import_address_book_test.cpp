#include <filesystem>
#include <string>
#include <vector>

#include "appliance/scanner.h"
#include "books/connected_user.h"
#include "bridge/address_entries.h"
#include "bridge/the_agent.h"
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

constexpr Status kEarlier = 22;
constexpr std::uint32_t kConvertedFormats[] = {ImportFormatDelimited, ImportFormatDirectory,
                                               ImportFormatMailServer};

// An option record with as long a map as is wanted.
class Options {
 public:
  explicit Options(std::uint32_t format, std::int32_t targetBook = TargetEmail,
                   const std::vector<std::int32_t>& columnMap = {0, 1})
      : words(6, 0) {
    words[2] = static_cast<std::int32_t>(format);
    words[3] = 12345;  // the import context, which has no effect
    words[4] = targetBook;
    words[5] = static_cast<std::int32_t>(columnMap.size());
    words.insert(words.end(), columnMap.begin(), columnMap.end());
  }

  Options& SkipHeader() { return words[0] = 2, *this; }
  Options& ClearFirst() { return words[1] = -1, *this; }
  Options& ColumnCount(std::int32_t count) { return words[5] = count, *this; }

  operator const ImportOptions*() const {
    return reinterpret_cast<const ImportOptions*>(words.data());
  }

 private:
  std::vector<std::int32_t> words;
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
    return files.Write("any", "Mailbox,a,b,n,SMTP:box1%\ndn:\ncn: Ann\nmail: box\n");
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

  const ScratchFolder files;
  const ScratchFolder temporary;
  const TemporaryFolder redirected{temporary.Path().string()};
};

// Absent options come before the file, a missing file before the format, and nothing of it reaches
// the server or the last error.
TEST_F(ImportAddressBookTest, WhatIsWrongLocallyIsToldInItsOrder) {
  CScanner* const box = LogIn();
  TheAgent.SetError(kEarlier);
  const std::string path = AnyFile();
  const std::string missing = files.PathOf("missing");
  EXPECT_EQ(ImportAddressBook(box, nullptr, nullptr), -3);
  EXPECT_EQ(ImportAddressBook(nullptr, path.c_str(), nullptr), -3);
  for (const std::uint32_t format : {1U, 16U, 256U, 4096U, 2U}) {
    EXPECT_EQ(ImportAddressBook(nullptr, missing.c_str(), Options(format)), -1);
    EXPECT_EQ(ImportAddressBook(box, nullptr, Options(format)), -1);
    EXPECT_EQ(ImportAddressBook(box, "", Options(format)), -1);
  }
  EXPECT_THAT(temporary.Names(), IsEmpty());

  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(2)), -11);
  EXPECT_THAT(temporary.Names(), ElementsAre(StartsWith("QK7"))) << "an empty file stays behind";
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(ImportAddressBook(box, files.Path().string().c_str(), Options(format)), -2);
  }
  EXPECT_THAT(temporary.Names(), SizeIs(4)) << "one is left behind by each";
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(GetLastToolkitError(), kEarlier);
}

TEST_F(ImportAddressBookTest, NeedsTheTemporaryFolderForAScriptOfItsOwn) {
  const TemporaryFolder missing(temporary.PathOf("missing"));
  CScanner* const box = LogIn();
  const std::string path = AnyFile();
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(1)), -1);
  EXPECT_EQ(ImportAddressBook(box, files.Path().string().c_str(), Options(1)), -2)
      << "the file is opened first";
  EXPECT_THAT(TakeCalls(), IsEmpty());
  const std::string script = files.Write("script", "CA emailab\n");
  EXPECT_EQ(ImportAddressBook(box, script.c_str(), Options(ImportFormatScript)), 0);
}

TEST_F(ImportAddressBookTest, TheServerRunsTheScriptUnderTheLongTimeout) {
  CScanner* const box = LogIn();
  const std::uint32_t timeout = SimulatorTimeout();
  const std::string path = AnyFile();
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(format)), 0);
    const std::string script = "IMSPBatchConfiguration " + temporary.PathOf("QK7");
    EXPECT_THAT(TakeCalls(),
                ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000", StartsWith(script),
                            "IMSPIOCtl 2 0", "IMSPIOCtl 1 " + std::to_string(timeout)));
    EXPECT_EQ(SimulatorTimeout(), timeout);
    EXPECT_THAT(temporary.Names(), IsEmpty());

    SimulatorFail("IMSPIOCtl", 3, 16);
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(format)), 16);
    EXPECT_THAT(TakeCalls(), SizeIs(4)) << "a failure ends it";
    EXPECT_EQ(GetLastToolkitError(), 16);
    EXPECT_THAT(temporary.Names(), IsEmpty());
    SimulatorSetTimeout(timeout);
  }
  Logout();
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(ImportFormatDirectory)), 10);
}

// The conversion runs all the same.
TEST_F(ImportAddressBookTest, AScannerThatIsNotConnectedComesLast) {
  CScanner unbound;
  for (CScanner* const scanner : {&unbound, static_cast<CScanner*>(nullptr)}) {
    EXPECT_EQ(ImportAddressBook(scanner, AnyFile().c_str(), Options(1)), -1);
    EXPECT_EQ(ImportAddressBook(scanner, files.Path().string().c_str(), Options(1)), -2);
    EXPECT_EQ(ImportAddressBook(scanner, AnyFile().c_str(), Options(ImportFormatScript)), -1);
  }
  EXPECT_THAT(temporary.Names(), SizeIs(2)) << "of the folders, none of the files";
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(ImportAddressBookTest, AReadyMadeScriptIsPassedOnAndStays) {
  PutEmail("Old");
  CScanner* const box = LogIn();
  const std::string script = files.Write("script", "SE emailab \"Bob\" \"b\"\n");
  EXPECT_EQ(ImportAddressBook(box, script.c_str(), Options(ImportFormatScript).ClearFirst()), 0);
  EXPECT_EQ(TakeCalls()[2], "IMSPBatchConfiguration " + script);
  EXPECT_TRUE(std::filesystem::exists(script));
  EXPECT_THAT(temporary.Names(), IsEmpty());
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Old"), "Old|") << "nothing was cleared";
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Bob"), "Bob|b");
}

TEST_F(ImportAddressBookTest, TheOptionsReachTheConverter) {
  CScanner* const box = LogIn();
  const std::string path =
      files.Write("rows", "number,name,third,fourth\n12,\"Lee, Ann\",x,y\n34,Bob,z\n");
  EXPECT_EQ(
      ImportAddressBook(box, path.c_str(),
                        Options(ImportFormatDelimited, TargetUsers, {1, 0, 2, 3}).SkipHeader()),
      0);
  CUserEntry user;
  ASSERT_EQ(SimulatorFindEntry(BookKind::kUsers, "", nullptr, "Lee, Ann", &user), 1);
  EXPECT_EQ(user.password.View(), "12");
  EXPECT_EQ(user.third.View(), "x");
  EXPECT_EQ(user.fourth.View(), "y");
  EXPECT_EQ(SimulatorFindEntry(BookKind::kUsers, "", nullptr, "name", &user), 0);
}

TEST_F(ImportAddressBookTest, ClearsForTheAdministratorAlone) {
  PutEmail("Old");
  const std::string path = files.Write("rows", "Ann,box\n");
  for (const auto& [user, password] : {std::pair("TOOLKIT", "KELP"), std::pair("CLERK", "pen")}) {
    CScanner* const box = LogInAs(user, password);
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(1).ClearFirst()), 0);
    EXPECT_EQ(Email(BookKind::kPrivateEmail, user, "Ann"), "Ann|box") << "plain pairs";
    Logout();
  }
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Old"), "Old|");

  CScanner* const box = LogIn();
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(1).ClearFirst()), 0);
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Old"), "none");
  EXPECT_EQ(Email(BookKind::kEmail, nullptr, "Ann"), "Ann|box");
  EXPECT_EQ(ImportAddressBook(box, files.Write("empty", "").c_str(), Options(1).ClearFirst()), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), 0) << "an empty file clears too";

  // The simulated appliance refuses the clear line that names no book. Other servers may not.
  for (const std::uint32_t format : {ImportFormatDirectory, ImportFormatMailServer}) {
    EXPECT_EQ(ImportAddressBook(box, AnyFile().c_str(), Options(format).ClearFirst()), 17);
    EXPECT_EQ(ImportAddressBook(box, AnyFile().c_str(), Options(format)), 0);
  }
}

TEST_F(ImportAddressBookTest, ACountOfZeroOrLessIsAnEmptyMap) {
  CScanner* const box = LogInAs("CLERK", "pen");
  const std::string path = files.Write("rows", "Ann,box\n");
  for (const std::int32_t count : {0, -1, INT32_MIN}) {
    EXPECT_EQ(ImportAddressBook(box, path.c_str(), Options(1).ColumnCount(count)), 0);
  }
  EXPECT_EQ(Email(BookKind::kPrivateEmail, "CLERK", "Ann"), "none");
}

// --- The connected user ---

using ConnectedUserTest = ApplianceTest;

// The name is cut to what fits in front of a NUL, and NULs fill the rest.
TEST_F(ConnectedUserTest, NameFillsTheBuffer) {
  const CScanner* const box = LogIn();
  const std::string name = "ADMINISTRATOR";
  for (std::size_t size = 0; size <= 20; ++size) {
    std::string buffer(20, '#');
    EXPECT_EQ(GetConnectedUserName(box, buffer.data(), size), size == 0 ? 0 : 1);
    std::string expected = size == 0 ? "" : name.substr(0, size - 1);
    expected.resize(size);
    EXPECT_EQ(buffer, expected + std::string(20 - size, '#')) << "size " << size;
  }
}

}  // namespace
}  // namespace quillkit
