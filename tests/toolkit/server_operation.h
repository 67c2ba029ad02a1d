// The exported functions that call the server, but for LoadItems and the import, as a table: the
// calls that each makes on a stage that is always set alike, and what the failure of each does.

#ifndef QUILLKIT_TESTS_TOOLKIT_SERVER_OPERATION_H_
#define QUILLKIT_TESTS_TOOLKIT_SERVER_OPERATION_H_

#include <cstdint>
#include <functional>
#include <ostream>
#include <string>
#include <utility>
#include <vector>

#include "bridge/records.h"
#include "tests/support/appliance_fixture.h"
#include "toolkit/quillkit.h"

namespace quillkit {

// What the functions are tried on: a session of the administrator, whose panel has the keys Scan
// (of the items Desk and Mail) and Send (of the item Fax), and no other.
struct Stage {
  CScanner* box = nullptr;
  CTopLevelAB* book = nullptr;
  CSoftKey* key = nullptr;     // the Scan of the book
  CSoftKey* newKey = nullptr;  // a key named Copy, of the application
  CMenuItem item;              // named Desk
  CMenuItem newItem;           // named Fresh
};

// What a function returns when it fails: the status, -1, 0, nothing that tells.
enum class Style { kStatus, kCount, kFlag, kNothing };

inline std::int64_t FailureOf(Style style, Status status) {
  if (style == Style::kStatus) return status;
  return style == Style::kCount ? -1 : 0;
}

// `calls` are as the journal shows them, without "IMSP". The character before each tells what its
// failure does:
//   !  the function fails and makes no further call
//   x  so, behind an IMSPLogout
//   4  so, but code 4 is as -; the keys in memory are lost
//   -  the function succeeds, without the calls that would have followed; so are they
//   ~  nobody looks at it: the run goes on as if undisturbed; a key that was read is left empty
struct Operation {
  std::string name;
  Style style;
  std::int64_t success;
  std::vector<std::string> calls;
  std::function<std::int64_t(Stage&)> run;
};

inline std::ostream& operator<<(std::ostream& out, const Operation& each) {
  return out << each.name;
}

std::vector<Operation> ServerOperations();

using Names = std::vector<std::string>;
// What an application can see of the keys in memory, each with its items; without a book that it
// can reach, nothing.
using Panel = std::vector<std::pair<std::string, Names>>;
Panel Look(CTopLevelAB* book);

class OperationTest : public ApplianceTest {
 protected:
  // Sets the stage on an appliance as delivered. The new key has to be destroyed.
  static Stage SetStage();
};

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_SERVER_OPERATION_H_
