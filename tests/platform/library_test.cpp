// The shared library itself, loaded as an application does. It binds to the same simulated
// appliance as this program, which therefore sees its calls.

#include <utility>

#include "platform/module.h"
#include "simulator/simulator.h"
#include "tests/platform/pumping.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {
namespace {

using testing::ElementsAre;

class LibraryTest : public ApplianceTest {
 protected:
  ~LibraryTest() override { Unload(); }

  void Load() { library = LoadModule("Quillkit"); }
  void Unload() { UnloadModule(std::exchange(library, nullptr)); }

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

 private:
  ModuleHandle library = nullptr;
};

TEST_F(LibraryTest, CanBeLoadedAgainAndUnloadedInASession) {
  for (const char* const load : {"loaded first", "loaded again"}) {
    SCOPED_TRACE(load);
    Load();
    CScanner* box = LogIn();
    ASSERT_NE(box, nullptr);
    EXPECT_STREQ(Entry<decltype(GetScannerName)>("GetScannerName")(box), "127.0.0.1");
    EXPECT_EQ(LogToQuillbox("255.255.255.255", "TOOLKIT", "KELP", "", 0), nullptr);
    EXPECT_EQ(GetLastToolkitError(), 25);
    EXPECT_EQ(LastError(), 0) << "the library shares no state with the program's own copy";
    Entry<decltype(Logout)>("Logout")();
    Entry<decltype(Exit)>("Exit")();
    EXPECT_EQ(LogIn(), nullptr);
    EXPECT_EQ(LastError(), 20);
    Unload();
    EXPECT_THAT(
        TakeCalls(),
        ElementsAre("IMSPInit", "IMSPLogin 127.0.0.1 TOOLKIT ***", "IMSPIOCtl 6 0",
                    "IMSPReadEntryProperties 4:USERSAB TOOLKIT", "IMSPLogout", "IMSPTerminate"));
  }
  Load();
  ASSERT_NE(LogIn(), nullptr);
  TakeCalls();
  Unload();
  EXPECT_THAT(TakeCalls(), ElementsAre("IMSPTerminate"))
      << "unloading in a session sends no logout";
}

TEST_F(LibraryTest, KeepAlivesAreSentUntilTheSessionEnds) {
  SimulatorSetWakeupPeriod(40);
  Load();
  for (const char* end : {"Logout", "Exit"}) {
    SCOPED_TRACE(end);
    ASSERT_NE(LogIn(), nullptr);
    TakeCalls();
    // A failed keep-alive is not recorded. PumpUntil replaces the application's loop; on POSIX a
    // call of the library runs the timers.
    SimulatorFail("IMSPWakeup", 2, 6);
    EXPECT_TRUE(PumpUntil([&] { return LastError() == 0 && SimulatorCallCount() >= 3; }));
    EXPECT_THAT(TakeCalls(), testing::Each("IMSPWakeup"));

    Entry<void()>(end)();
    TakeCalls();
    Sleep(std::chrono::milliseconds(100));
    Pump();
    LastError();
    EXPECT_THAT(TakeCalls(), ElementsAre());
  }
}

}  // namespace
}  // namespace quillkit
