// Scenarios of the simulated appliance. The input is the file; the state file that it may begin
// with is called "books". A session then makes some calls on the appliance of the scenario.

#include "simulator/scenario.h"

#include <array>
#include <string>

#include "bridge/imsp_api.h"
#include "fuzz/input.h"
#include "fuzz/stored_content.h"
#include "simulator/simulator.h"
#include "simulator/state_text.h"
#include "simulator/the_appliance.h"
#include "tests/support/email_entry.h"
#include "tests/support/scratch_folder.h"

namespace quillkit {

using namespace quillbox;

namespace {

constexpr Status kLastStatus = 31;

// Whether a call whose reply is lost or delayed can wait in real time.
bool Waits(const Scenario& scenario) {
  return !scenario.clock.has_value();
}

void CheckStatus(Status status) {
  Require(status >= 0 && status <= kLastStatus, "the status is one of the server");
}

// Reads a book of these records.
template <class Row>
void CheckRead(BookKind kind, std::string_view name) {
  std::array<Row, 8> rows;
  for (const std::int32_t direction : {0, 1}) {
    ABIdent book(kind, name);
    KeyRange range({}, "*");
    auto count = static_cast<std::uint32_t>(rows.size());
    CheckStatus(IMSPReadAB(&book, &range, rows.data(), &count, direction));
  }
}

void MakeCalls() {
  LoginRecord login;
  login.user.Assign(kAdministratorName);
  login.password.Assign("quill");
  std::array<char, 256> identity{};
  ABIdent email(BookKind::kEmail, kEmailBook);
  EntryKey key("added");
  CEmailEntry entry = MakeEntry("added");
  std::uint32_t count = 0;
  CheckStatus(IMSPInit());
  CheckStatus(IMSPLogin(&login, identity.data(), static_cast<std::uint32_t>(identity.size())));
  for (int i = 0; i < 3; ++i) {
    CheckStatus(IMSPWakeup());
    CheckStatus(IMSPSizeofAB(&email, nullptr, &count));
    CheckStatus(IMSPCreateEntry(&email, &entry));
    CheckStatus(IMSPReadEntryProperties(&email, &key, &entry));
    CheckRead<CEmailEntry>(BookKind::kEmail, kEmailBook);
    CheckRead<CMenuItem>(BookKind::kKeyItems, "Scan");
    CheckRead<LogRecord>(BookKind::kLog, kLogBook);
    CheckStatus(IMSPDeleteEntry(&email, &key));
  }
  CheckStatus(IMSPLogout());
  CheckStatus(IMSPTerminate());
}

void CheckScenario(const std::string& text) {
  static const ScratchFolder folder;
  static const std::string books = folder.Write("books", StateText({}));
  const std::string path = folder.Write("scenario", text);
  Scenario scenario;
  const std::string fault = ReadScenario(path, scenario);
  SimulatorReset();
  // Only the files of this folder are used.
  const bool isOwn = scenario.begin == "office" || scenario.begin == "empty" ||
                     scenario.begin == books || !fault.empty();
  if (!isOwn) return;
  const char* const error = SimulatorLoadScenario(path.c_str());
  Require((error == nullptr) == fault.empty(), "a scenario that can be read can be loaded");
  if (error != nullptr) {
    Require(fault == error, "the error of a scenario is that of its file");
    return;
  }
  if (Waits(scenario)) return;
  MakeCalls();
  CheckedContent(TheAppliance().contents.store);
  for (std::int32_t i = 0; SimulatorUnfiredFault(i) != nullptr; ++i) {
  }
}

}  // namespace
}  // namespace quillkit

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  quillkit::CheckScenario(std::string(reinterpret_cast<const char*>(data), size));
  return 0;
}
