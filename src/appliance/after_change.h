// Reloads cached data after a successful change on the server.

#ifndef QUILLKIT_APPLIANCE_AFTER_CHANGE_H_
#define QUILLKIT_APPLIANCE_AFTER_CHANGE_H_

#include <cstdint>

#include "bridge/status.h"

namespace quillkit {

// After a successful change, runs `load` if `reload` is set and returns its status. Otherwise
// returns the status of the change.
template <class Load>
Status AfterChange(Status changed, std::int32_t reload, Load load) {
  return changed == kNoError && reload != 0 ? load() : changed;
}

// The same, but the result of `load` is ignored. Returns the status of the change.
template <class Load>
Status LoadAfterChange(Status changed, std::int32_t reload, Load load) {
  if (changed == kNoError && reload != 0) load();
  return changed;
}

}  // namespace quillkit

#endif  // QUILLKIT_APPLIANCE_AFTER_CHANGE_H_
