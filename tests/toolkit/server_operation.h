// Every exported function that calls the server, as a table: the calls that it makes on a stage
// that is always set alike, and what the failure of each does to it.

#ifndef QUILLKIT_TESTS_TOOLKIT_SERVER_OPERATION_H_
#define QUILLKIT_TESTS_TOOLKIT_SERVER_OPERATION_H_

#include <cstdint>
#include <functional>
#include <ostream>
#include <vector>

#include "bridge/records.h"
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
  const char* script = nullptr;
};

// What the failure of a call does to the function that makes it.
enum class Reaction {
  kStops,    // the function fails with it and makes no further call
  kPasses,   // nobody looks at it: the run goes on as if undisturbed
  kEnds,     // the function succeeds, without what would have followed
  kEmpties,  // code 4 ends it as above, any other code stops it
  kLogsOut,  // as kStops, behind an IMSPLogout
};

// What a function returns when it fails: the status, -1, 0, null, nothing.
enum class Style { kStatus, kCount, kFlag, kHandle, kNothing };

// What memory loses by the failure of a read: nothing, the items of the key at an index, all keys.
inline constexpr int kNoLoss = -1;
inline constexpr int kAllKeys = -2;

struct Step {
  const char* entry;
  Reaction reaction;
  int loss = kNoLoss;
};

struct Operation {
  const char* name;
  Style style;
  std::vector<Step> steps;
  std::int64_t success;  // for a handle: 1
  std::function<std::int64_t(Stage&)> run;
};

inline std::ostream& operator<<(std::ostream& out, const Operation& each) {
  return out << each.name;
}

std::vector<Operation> ServerOperations();

}  // namespace quillkit

#endif  // QUILLKIT_TESTS_TOOLKIT_SERVER_OPERATION_H_
