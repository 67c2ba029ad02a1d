// The course of sessions: limits and spellings at login, logins that follow one another, and what
// is left after Logout and after Exit.

#include <gtest/gtest.h>

#include <ostream>
#include <string>
#include <string_view>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "platform/name_service.h"
#include "simulator/simulator.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr Status kEarlierError = 17;

class SessionCourse : public ApplianceTest {};

TEST_F(SessionCourse, TakesNamePasswordAndThirdTextUpToTheirLimits) {
  CUserEntry account;
  account.SetName(std::string(31, 'n'));
  account.SetPassword(std::string(15, 'p'));
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, &account);

  CScanner* box =
      LogToQuillbox(kHost, std::string(31, 'n'), std::string(15, 'p'), std::string(255, 't'), 0);
  ASSERT_NE(box, nullptr) << GetLastToolkitError();
  EXPECT_EQ(SimulatorSessionUser(), std::string(31, 'n'));
  EXPECT_NE(GetCurrentConnectedUser(box), nullptr);
}

TEST_F(SessionCourse, TheAdministratorInSmallLettersHasNoTopBook) {
  CUserEntry account;
  account.SetName("administrator");
  SimulatorPutEntry(BookKind::kUsers, "", nullptr, &account);

  CScanner* box = LogToQuillbox(kHost, "administrator", "", "", 1);
  ASSERT_NE(box, nullptr) << GetLastToolkitError();
  EXPECT_EQ(GetTopLevelAbook(box), nullptr);
  EXPECT_EQ(IsAdminConnected(box), 0);
}

TEST_F(SessionCourse, OnlyTheAdministratorCountsAsOne) {
  EXPECT_EQ(IsAdminConnected(LogIn()), 1);
  EXPECT_EQ(IsAdminConnected(nullptr), 1);
  CScanner* box = LogToQuillbox(kHost, "TOOLKIT", "KELP", "", 0);
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(IsAdminConnected(box), 0);
  EXPECT_NE(GetTopLevelAbook(box), nullptr);
}

TEST_F(SessionCourse, TellsWhatTheServerSaidOfItself) {
  CScanner* box = LogIn();
  EXPECT_STREQ(GetScannerModel(box), "Quillbox 40 ");
  EXPECT_STREQ(GetScannerVersion(box), "3.1 ");
  EXPECT_EQ(GetScannerAddress(box), TextToAddress("127.0.0.1"));
}

struct Spelling {
  std::string host;
  const char* address;  // null: there is none
  Status lastError;
};

std::ostream& operator<<(std::ostream& out, const Spelling& each) {
  return out << '"' << each.host << '"';
}

class HostSpelling : public ApplianceTest, public testing::WithParamInterface<Spelling> {};

TEST_P(HostSpelling, IsKeptAsTheNameOfTheAppliance) {
  TheAgent.SetError(kEarlierError);
  CScanner* box = LogToQuillbox(GetParam().host, kAdministrator, kPassword, "", 0);
  EXPECT_EQ(GetLastToolkitError(), GetParam().lastError);
  ASSERT_EQ(box != nullptr, GetParam().address != nullptr);
  if (box == nullptr) {
    EXPECT_THAT(TakeCalls(), IsEmpty());
    EXPECT_EQ(TheAgent.ScannerCount(), 0);
    return;
  }
  EXPECT_EQ(GetScannerName(box), GetParam().host);
  EXPECT_EQ(GetScannerAddress(box), TextToAddress(GetParam().address));
}

INSTANTIATE_TEST_SUITE_P(Spellings, HostSpelling,
                         testing::Values(Spelling{"127.0.0.1", "127.0.0.1", 0},
                                         Spelling{"localhost", "127.0.0.1", 0},
                                         Spelling{"\\\\localhost", "127.0.0.1", 0},
                                         Spelling{"\\\\127.0.0.1", "127.0.0.1", 0},
                                         Spelling{"/127.0.0.1", "127.0.0.1", 0},
                                         Spelling{"/\\127.0.0.1", "127.0.0.1", 0},
                                         Spelling{"255.255.255.255", nullptr, 25},
                                         Spelling{"\\\\255.255.255.255", nullptr, 25},
                                         Spelling{"0.0.0.0", nullptr, kEarlierError},
                                         Spelling{"\\\\0.0.0.0", nullptr, 25},
                                         Spelling{"", nullptr, 25}, Spelling{"\\\\", nullptr, 25},
                                         Spelling{std::string(300, 'x'), nullptr, 25},
                                         Spelling{"\\\\" + std::string(3000, 'x'), nullptr, 25}));

class SecondLogin : public ApplianceTest, public testing::WithParamInterface<bool> {};

TEST_P(SecondLogin, ReplacesTheScannerOfTheSameAddress) {
  const bool isLogoutBetween = GetParam();
  LogIn();
  if (isLogoutBetween) Logout();
  TakeCalls();
  constexpr std::string_view kIdentity = "Other - 9 - x";
  SimulatorSetIdentity(kIdentity.data(), static_cast<std::uint32_t>(kIdentity.size()));

  CScanner* box = LogToQuillbox("\\\\127.0.0.1", kAdministrator, kPassword, "", 0);
  ASSERT_NE(box, nullptr);
  EXPECT_EQ(TheAgent.ScannerCount(), 1);
  EXPECT_EQ(TheAgent.ScannerAt(0), box);
  EXPECT_STREQ(GetScannerName(box), "\\\\127.0.0.1");
  EXPECT_STREQ(GetScannerModel(box), "Other ");

  // The server is asked for its period once in the life of a timer.
  const auto calls = TakeCalls();
  EXPECT_EQ(calls.size(), isLogoutBetween ? 3U : 2U);
  EXPECT_EQ(calls[1] == "IMSPIOCtl 6 0", isLogoutBetween);
}

INSTANTIATE_TEST_SUITE_P(WithAndWithoutLogout, SecondLogin, testing::Bool());

TEST_F(SessionCourse, AnotherApplianceJoinsTheList) {
  CScanner* first = LogIn();
  CScanner* second = LogToQuillbox("127.0.0.2", kAdministrator, kPassword, "", 0);
  ASSERT_NE(second, nullptr);
  EXPECT_EQ(TheAgent.ScannerCount(), 2);
  EXPECT_STREQ(GetScannerName(first), "127.0.0.1");
  EXPECT_STREQ(GetScannerName(second), "127.0.0.2");
}

TEST_F(SessionCourse, LogoutBeforeAnyLoginOnlySendsTheCall) {
  TheAgent.SetError(kEarlierError);
  Logout();
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPLogout"));
  EXPECT_EQ(GetLastToolkitError(), kEarlierError);
  EXPECT_EQ(SessionOpen, 0);
}

TEST_F(SessionCourse, LogoutLeavesWhatIsInMemory) {
  PutKey("Scan", {"Desk", "Mail"});
  CScanner* box = LogIn();
  CTopLevelAB* book = GetTopLevelAbook(box);
  ASSERT_EQ(LoadTopLevelAbook(book, 1), 0);
  TakeCalls();

  Logout();
  Logout();
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPLogout", "IMSPLogout"));
  EXPECT_EQ(GetTopLevelAbook(box), nullptr);
  EXPECT_EQ(GetCurrentConnectedUser(box), nullptr);
  EXPECT_EQ(IsAdminConnected(box), 0);
  EXPECT_EQ(TheAgent.WakeupPeriod(), 0U);
  EXPECT_STREQ(GetScannerName(box), "127.0.0.1");
  EXPECT_STREQ(GetScannerModel(box), "Quillbox 40 ");
  ASSERT_EQ(GetCount(book), 1);
  EXPECT_EQ(GetItemCount(GetKeyAt(book, 0)), 2);

  // The server decides what it still answers.
  constexpr Status kNotLoggedIn = 10;
  EXPECT_EQ(AddKey(book, "Copy", 1), kNotLoggedIn);
  EXPECT_EQ(GetLastToolkitError(), kNotLoggedIn);
  EXPECT_EQ(GetCount(book), 1);
}

TEST_F(SessionCourse, GetTopLevelAbookWithoutASessionDoesNotLookAtItsHandle) {
  alignas(CScanner) unsigned char nobody[sizeof(CScanner)];
  EXPECT_EQ(GetTopLevelAbook(reinterpret_cast<CScanner*>(nobody)), nullptr);
  EXPECT_EQ(GetTopLevelAbook(nullptr), nullptr);
}

TEST_F(SessionCourse, AfterExitNothingReachesTheServer) {
  LogIn();
  Exit();
  EXPECT_EQ(GetTopLevelAbook(nullptr), nullptr) << "no handle is looked at any more";
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPTerminate"));
  EXPECT_EQ(TheAgent.ScannerCount(), 0);
  EXPECT_EQ(TheAgent.CurrentUser(), nullptr);
  EXPECT_EQ(TheAgent.ServerLibrary(), nullptr);

  EXPECT_EQ(LogToQuillbox(kHost, kAdministrator, kPassword, "", 1), nullptr);
  EXPECT_EQ(GetLastToolkitError(), 20);
  Logout();
  Exit();
  EXPECT_EQ(GetCurrentConnectedUser(nullptr), nullptr);
  EXPECT_EQ(IsAdminConnected(nullptr), 0);
  EXPECT_EQ(GetTopLevelAbook(nullptr), nullptr);
  CSoftKey* key = nullptr;
  EXPECT_EQ(CreateSoftKey("Scan", nullptr, &key), 0);
  std::uint32_t count = 0;
  EXPECT_EQ(GetDBItemCount(key, &count), 20);
  DestroySoftKey(key);
  ImportOptions options{};
  options.format = ImportFormatScript;
  EXPECT_EQ(ImportAddressBook(nullptr, ".", &options), -1);
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

}  // namespace
}  // namespace quillkit
