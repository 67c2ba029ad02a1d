// The fixture of the soft-key tests: the keys B, C and D, with items of the same names in B, in
// memory and on the server.

#ifndef QUILLKIT_TESTS_SOFTKEYS_PANEL_H_
#define QUILLKIT_TESTS_SOFTKEYS_PANEL_H_

#include <string>
#include <vector>

#include "bridge/the_agent.h"
#include "simulator/simulator.h"
#include "softkeys/top_level_ab.h"
#include "tests/support/appliance_fixture.h"
#include "tests/support/menu_item.h"

namespace quillkit {

using Names = std::vector<std::string>;

class PanelTest : public ApplianceTest {
 protected:
  PanelTest() {
    PutKey("B", {"B", "C", "D"});
    PutKey("C", {});
    PutKey("D", {});
    book.Attach(box, 1);
    TheAgent.SetError(kEarlier);
    SimulatorClearJournal();
  }

  static Names NamesOf(CSoftKey& key) {
    Names names;
    for (int i = 0; i < key.ItemCount(); ++i) names.emplace_back(key.ItemAt(i)->name.View());
    return names;
  }

  static Names NamesOf(const CTopLevelAB& book) {
    Names names;
    for (int i = 0; i < book.Count(); ++i) names.push_back(book.KeyAt(i)->KeyName());
    return names;
  }

  CScanner* box = LogIn();
  CTopLevelAB book;
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_SOFTKEYS_PANEL_H_
