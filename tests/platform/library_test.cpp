// The shared library itself, loaded as an application does. It binds to the same simulated
// appliance as this program, which therefore sees its calls.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

#include "platform/module.h"
#include "simulator/simulator.h"
#include "tests/platform/pumping.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

class LibraryTest : public testing::Test {
 protected:
  LibraryTest() {
    SimulatorReset();
    SimulatorRecordCalls(1);
  }
  ~LibraryTest() override {
    Unload();
    SimulatorReset();
  }

  void Load() {
    library = LoadModule("Quillkit");
    ASSERT_NE(library, nullptr);
  }
  void Unload() {
    UnloadModule(library);
    library = nullptr;
  }

  // An exported function by its name.
  template <class Function>
  Function* Entry(const char* name) const {
    auto* entry = reinterpret_cast<Function*>(FindEntryPoint(library, name));
    EXPECT_NE(entry, nullptr) << name;
    return entry;
  }

  CScanner* LogIn() const {
    return Entry<decltype(LogToQuillbox)>("LogToQuillbox")("127.0.0.1", "TOOLKIT", "KELP", "", 0);
  }
  std::int32_t LastError() const {
    return Entry<decltype(GetLastToolkitError)>("GetLastToolkitError")();
  }

  // Waits for so many signs of life, pumping as an application's loop does. On POSIX a call of the
  // library takes the part of its loop.
  bool WaitForSignsOfLife(std::ptrdiff_t number) const {
    return PumpUntil([&] {
      LastError();
      return SignsOfLife() >= number;
    });
  }

  static std::vector<std::string> Calls() {
    std::vector<std::string> calls;
    for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) {
      calls.emplace_back(SimulatorCallText(i));
    }
    return calls;
  }
  static std::ptrdiff_t SignsOfLife() {
    const std::vector<std::string> calls = Calls();
    return std::count(calls.begin(), calls.end(), "IMSPWakeup");
  }

 private:
  ModuleHandle library = nullptr;
};

TEST_F(LibraryTest, IsLoadedUsedAndLeftTwice) {
  for (int round = 0; round < 2; ++round) {
    SCOPED_TRACE(round);
    SimulatorClearJournal();
    Load();
    CScanner* box = LogIn();
    ASSERT_NE(box, nullptr);
    EXPECT_STREQ(Entry<decltype(GetScannerName)>("GetScannerName")(box), "127.0.0.1");
    Entry<decltype(Logout)>("Logout")();
    Entry<decltype(Exit)>("Exit")();
    EXPECT_EQ(LogIn(), nullptr);
    EXPECT_EQ(LastError(), 20);
    const std::vector<std::string> before = Calls();
    Unload();
    EXPECT_EQ(Calls(), before);
    EXPECT_THAT(before, ElementsAre("IMSPInit", "IMSPLogin 127.0.0.1 TOOLKIT ***", "IMSPIOCtl 6 0",
                                    "IMSPReadEntryProperties 4:USERSAB TOOLKIT", "IMSPLogout",
                                    "IMSPTerminate"));
  }
}

TEST_F(LibraryTest, UnloadedInASessionItEndsTheServerLibraryOnceAndSendsNoLogout) {
  Load();
  ASSERT_NE(LogIn(), nullptr);
  SimulatorClearJournal();
  Unload();
  EXPECT_THAT(Calls(), ElementsAre("IMSPTerminate"));
}

// The library is this one's own twin: what one records, the other must not see.
TEST_F(LibraryTest, SharesNoStateWithTheProgram) {
  Load();
  ASSERT_NE(LogIn(), nullptr);
  EXPECT_EQ(LastError(), 0);
  EXPECT_EQ(LogToQuillbox("255.255.255.255", "TOOLKIT", "KELP", "", 0), nullptr);
  EXPECT_EQ(GetLastToolkitError(), 25);
  EXPECT_EQ(LastError(), 0);
}

TEST_F(LibraryTest, SignsOfLifeReachTheServerUntilLogout) {
  SimulatorSetWakeupPeriod(40);
  Load();
  ASSERT_NE(LogIn(), nullptr);
  Sleep(std::chrono::milliseconds(100));
  EXPECT_EQ(SignsOfLife(), 0);  // nobody has looked for due timers
  SimulatorFail("IMSPWakeup", 2, 6);
  EXPECT_TRUE(WaitForSignsOfLife(3));
  EXPECT_EQ(LastError(), 0) << "a failing one is not seen";

  Entry<decltype(Logout)>("Logout")();
  const std::ptrdiff_t before = SignsOfLife();
  Sleep(std::chrono::milliseconds(100));
  Pump();
  LastError();
  EXPECT_EQ(SignsOfLife(), before);
}

}  // namespace
}  // namespace quillkit
