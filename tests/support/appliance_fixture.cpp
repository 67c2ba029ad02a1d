#include "tests/support/appliance_fixture.h"

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "tests/support/menu_item.h"
#include "toolkit/quillkit.h"
#include "toolkit/session_entry.h"

namespace quillkit {

ApplianceTest::ApplianceTest() {
  SimulatorReset();
  SessionOpen = 0;
  TheAgent.LoadServerLibrary();
  SimulatorRecordCalls(1);
}

ApplianceTest::~ApplianceTest() {
  TheAgent.Logout(1);
  TheAgent.Shutdown();
}

CScanner* ApplianceTest::LogIn() {
  CScanner* box = LogToQuillbox(kHost, kAdministrator, kPassword, "", 0);
  EXPECT_NE(box, nullptr) << "status " << GetLastToolkitError();
  SimulatorClearJournal();
  return box;
}

void ApplianceTest::PutKey(std::string_view key, std::initializer_list<std::string_view> items) {
  const CMenuItem record = MakeItem(key);
  SimulatorPutEntry(BookKind::kTop, "", nullptr, &record);
  for (const std::string_view each : items) {
    const CMenuItem item = MakeItem(each);
    SimulatorPutEntry(BookKind::kKeyItems, std::string(key).c_str(), nullptr, &item);
  }
}

std::vector<std::string> ApplianceTest::TakeCalls() {
  std::vector<std::string> calls;
  for (std::int32_t i = 0; i < SimulatorCallCount(); ++i) calls.emplace_back(SimulatorCallText(i));
  SimulatorClearJournal();
  return calls;
}

}  // namespace quillkit
