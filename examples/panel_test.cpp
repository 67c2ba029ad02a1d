// Tests of an application on the simulated appliance, with GoogleTest: the function under test adds
// soft keys until the appliance refuses one.

#include <string>
#include <vector>

#include "quillbox_test.h"
#include "toolkit/quillkit.h"

namespace {

using namespace quillkit;

// Returns the number of keys that were added, or -1 if the appliance cannot be reached.
int AddKeys(const std::vector<std::string>& names) {
  CScanner* const box = LogToQuillbox("127.0.0.1", "TOOLKIT", "KELP", "", 1);
  if (box == nullptr) return -1;
  int added = 0;
  for (const std::string& name : names) {
    if (AddKey(GetTopLevelAbook(box), name, 1) != 0) break;
    ++added;
  }
  Logout();
  return added;
}

class PanelTest : public QuillboxTest {};

TEST_F(PanelTest, AddsKeysToAnEmptyPanel) {
  UseScenario("begin empty\n");
  EXPECT_EQ(AddKeys({"Scan", "Copy"}), 2);
  EXPECT_EQ(SimulatorBookSize(BookKind::kTop, nullptr, nullptr), 2);
}

TEST_F(PanelTest, StopsAtTheThirdKeyIfTheAppliancePanelIsFull) {
  UseScenario(
      "begin empty\n"
      "fault IMSPCreateEntry nth 3 status 24\n");
  EXPECT_EQ(AddKeys({"Scan", "Copy", "Mail", "Fax"}), 2);
}

}  // namespace
