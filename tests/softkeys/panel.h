// The stage of the tests of soft keys: a session, and a set of keys of its own beside the one that
// the login made.

#ifndef QUILLKIT_TESTS_SOFTKEYS_PANEL_H_
#define QUILLKIT_TESTS_SOFTKEYS_PANEL_H_

#include <string>
#include <vector>

#include "softkeys/top_level_ab.h"
#include "tests/support/appliance_fixture.h"

namespace quillkit {

using Names = std::vector<std::string>;

inline std::string ReadCall(const std::string& key) {
  return "IMSPReadAB 512:" + key + " [|*|0] 512 1";
}

class PanelTest : public ApplianceTest {
 protected:
  PanelTest() { book.Attach(box, 0); }

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
