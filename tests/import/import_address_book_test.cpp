#include <filesystem>
#include <string>

#include "appliance/scanner.h"
#include "books/connected_user.h"
#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/import/option_record.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/email_entry.h"
#include "tests/support/scratch_folder.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

class ImportAddressBookTest : public ApplianceTest {
 protected:
  // The address of this name in the public e-mail book, or in the private one of `user`.
  static std::string AddressOf(const char* name, const char* user = nullptr) {
    CEmailEntry entry;
    const BookKind kind = user == nullptr ? BookKind::kEmail : BookKind::kPrivateEmail;
    return SimulatorFindEntry(kind, "", user, name, &entry) == 1 ? entry.Address() : "none";
  }

  std::int32_t Import(const std::string& file, const OptionRecord& options) const {
    return ImportAddressBook(box, file.c_str(), options);
  }

  const ScratchFolder files;
  const std::string folder = files.Path().string();
  // A file with one entry in every format.
  const std::string path =
      files.Write("any", "Mailbox,a,b,n,SMTP:box1%\ndn:\ncn: Ann\nmail: box\n");
  const std::string script = files.Write("script", "SE emailab \"Bob\" \"b\"\n");
  const ScratchFolder temporary;
  const TemporaryFolder redirected{temporary.Path().string()};
  CScanner* box = LogIn();
};

TEST_F(ImportAddressBookTest, ReportsLocalErrorsInOrderWithoutACall) {
  TheAgent.SetError(kEarlier);
  EXPECT_EQ(ImportAddressBook(nullptr, nullptr, nullptr), -3);
  EXPECT_EQ(ImportAddressBook(box, path.c_str(), nullptr), -3);
  for (const std::uint32_t format : {1U, 16U, 256U, 4096U, 2U}) {
    EXPECT_EQ(ImportAddressBook(nullptr, files.PathOf("missing").c_str(), OptionRecord(format)),
              -1);
    EXPECT_EQ(ImportAddressBook(box, nullptr, OptionRecord(format)), -1);
    EXPECT_EQ(Import("", OptionRecord(format)), -1);
  }
  EXPECT_THAT(temporary.Names(), IsEmpty());

  EXPECT_EQ(Import(path, OptionRecord(2)), -11);
  EXPECT_THAT(temporary.Names(), ElementsAre(StartsWith("QK7")))
      << "an unknown format leaves an empty temporary file";
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(Import(folder, OptionRecord(format)), -2);
  }
  EXPECT_THAT(temporary.Names(), SizeIs(4)) << "each failed conversion leaves a file";
  {
    const TemporaryFolder missing(temporary.PathOf("missing"));
    EXPECT_EQ(Import(path, OptionRecord(ImportFormatDelimited)), -1);
    EXPECT_EQ(Import(folder, OptionRecord(ImportFormatDelimited)), -2)
        << "the source is checked before the temporary folder";
  }

  CScanner unbound;
  for (CScanner* const scanner : {&unbound, static_cast<CScanner*>(nullptr)}) {
    for (const std::uint32_t format : {ImportFormatDelimited, ImportFormatScript}) {
      EXPECT_EQ(ImportAddressBook(scanner, path.c_str(), OptionRecord(format)), -1);
    }
    EXPECT_EQ(ImportAddressBook(scanner, folder.c_str(), OptionRecord(ImportFormatDelimited)), -2)
        << "the scanner is checked last";
  }
  EXPECT_THAT(temporary.Names(), SizeIs(6)) << "a converted script is deleted without a scanner";
  EXPECT_THAT(TakeCalls(), IsEmpty());
  EXPECT_EQ(GetLastToolkitError(), kEarlier);
}

TEST_F(ImportAddressBookTest, SendsTheScriptUnderTheLongTimeoutAndDeletesIt) {
  const std::uint32_t timeout = SimulatorTimeout();
  for (const std::uint32_t format : kConvertedFormats) {
    EXPECT_EQ(Import(path, OptionRecord(format)), 0);
    EXPECT_THAT(TakeCalls(),
                ElementsAre("IMSPIOCtl 2 0", "IMSPIOCtl 1 3600000",
                            StartsWith("IMSPBatchConfiguration " + temporary.PathOf("QK7")),
                            "IMSPIOCtl 2 0", "IMSPIOCtl 1 " + std::to_string(timeout)));
    EXPECT_THAT(temporary.Names(), IsEmpty());

    SimulatorFail("IMSPIOCtl", 3, 16);
    EXPECT_EQ(Import(path, OptionRecord(format)), 16);
    EXPECT_THAT(TakeCalls(), SizeIs(4)) << "the failed call is the last one";
    EXPECT_EQ(GetLastToolkitError(), 16);
    EXPECT_THAT(temporary.Names(), IsEmpty());
    SimulatorSetTimeout(timeout);
  }
  Logout();
  EXPECT_EQ(Import(path, OptionRecord(ImportFormatDirectory)), 10);
}

TEST_F(ImportAddressBookTest, SendsAReadyMadeScriptUnchangedAndKeepsIt) {
  const TemporaryFolder missing(temporary.PathOf("missing"));  // no folder is needed
  const std::int32_t size = SimulatorBookSize(BookKind::kEmail, "", nullptr);
  EXPECT_EQ(Import(script, OptionRecord(ImportFormatScript).ClearFirst()), 0);
  EXPECT_EQ(TakeCalls()[2], "IMSPBatchConfiguration " + script);
  EXPECT_TRUE(std::filesystem::exists(script));
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), size + 1) << "nothing is cleared";
  EXPECT_EQ(AddressOf("Bob"), "b");
}

TEST_F(ImportAddressBookTest, ClearsTheBookOnlyForTheAdministrator) {
  const OptionRecord clear = OptionRecord(ImportFormatDelimited).ClearFirst();
  const std::string rows = files.Write("rows", "Ann,box\n");
  const auto old = MakeEntry("Old");
  SimulatorPutEntry(BookKind::kEmail, "", nullptr, &old);
  Logout();
  box = LogToQuillbox(kHost, "TOOLKIT", "KELP", "", 0);
  EXPECT_EQ(Import(rows, clear), 0);
  EXPECT_EQ(AddressOf("Ann", "TOOLKIT"), "box");
  EXPECT_EQ(AddressOf("Old"), "at");

  Logout();
  box = LogIn();
  EXPECT_EQ(Import(rows, clear), 0);
  EXPECT_EQ(AddressOf("Old"), "none");
  EXPECT_EQ(AddressOf("Ann"), "box");
  EXPECT_EQ(Import(files.Write("empty", ""), clear), 0);
  EXPECT_EQ(SimulatorBookSize(BookKind::kEmail, "", nullptr), 0) << "an empty file clears too";

  // The simulator rejects the clear line of these formats, which names no book.
  for (const std::uint32_t format : {ImportFormatDirectory, ImportFormatMailServer}) {
    EXPECT_EQ(Import(path, OptionRecord(format).ClearFirst()), 17);
  }
}

// --- The connected user ---

using ConnectedUserTest = ApplianceTest;

TEST_F(ConnectedUserTest, CopiesTheNameCutBeforeANulAndFillsTheBufferWithNuls) {
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
