// The course of sessions: how a host may be spelled, and what is left after Logout and after Exit.

#include <gtest/gtest.h>

#include <string>

#include "appliance/scanner.h"
#include "bridge/the_agent.h"
#include "platform/name_service.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"
#include "toolkit/toolkit_app.h"

namespace quillkit {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class SessionCourse : public ApplianceTest {};

TEST_F(SessionCourse, AHostMayFollowOneOrTwoSlashesAndKeepsItsSpelling) {
  for (const std::string host :
       {"127.0.0.1", "localhost", "\\\\localhost", "\\\\127.0.0.1", "/127.0.0.1", "/\\127.0.0.1"}) {
    CScanner* box = LogToQuillbox(host, kAdministrator, kPassword, "", 0);
    ASSERT_NE(box, nullptr) << host;
    EXPECT_EQ(GetScannerName(box), host);
    EXPECT_EQ(GetScannerAddress(box), TextToAddress("127.0.0.1"));
    EXPECT_STREQ(GetScannerModel(box), "Quillbox 40 ");
    EXPECT_STREQ(GetScannerVersion(box), "3.1 ");
  }
  EXPECT_EQ(TheAgent.ScannerCount(), 1);
  TakeCalls();
  for (const std::string& host :
       {std::string("255.255.255.255"), std::string("\\\\255.255.255.255"), std::string("0.0.0.0"),
        std::string("\\\\0.0.0.0"), std::string(), std::string("\\\\"),
        std::string("\\\\\\127.0.0.1"), std::string(300, 'x'), "\\\\" + std::string(3000, 'x')}) {
    TheAgent.SetError(kEarlier);
    EXPECT_EQ(LogToQuillbox(host, kAdministrator, kPassword, "", 0), nullptr) << host;
    EXPECT_EQ(GetLastToolkitError(), host == "0.0.0.0" ? kEarlier : 25) << host;
  }
  EXPECT_THAT(TakeCalls(), IsEmpty());
}

TEST_F(SessionCourse, ASecondLogoutCallsTheServerToo) {
  CScanner* box = LogIn();
  TheAgent.SetError(kEarlier);
  Logout();
  Logout();
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPLogout", "IMSPLogout"));
  EXPECT_EQ(GetLastToolkitError(), kEarlier);
  EXPECT_EQ(GetTopLevelAbook(nullptr), nullptr) << "without a session the handle is invalid";
  EXPECT_EQ(GetCurrentConnectedUser(box), nullptr);
  EXPECT_EQ(IsAdminConnected(box), 0);
}

TEST_F(SessionCourse, AfterExitAndAfterUnloadingNothingReachesTheServer) {
  for (const bool isUnloaded : {false, true}) {
    ASSERT_TRUE(CToolkitApp::Start());
    LogIn();
    isUnloaded ? CToolkitApp::Stop() : Exit();
    TakeCalls();
    Logout();
    Exit();
    EXPECT_EQ(GetCurrentConnectedUser(nullptr), nullptr);
    CSoftKey* key = nullptr;
    EXPECT_EQ(CreateSoftKey("Scan", nullptr, &key), 0);
    std::uint32_t count = 0;
    EXPECT_EQ(GetDBItemCount(key, &count), 20);
    DestroySoftKey(key);
    EXPECT_THAT(TakeCalls(), IsEmpty()) << (isUnloaded ? "after unloading" : "after Exit");
  }
}

}  // namespace
}  // namespace quillkit
