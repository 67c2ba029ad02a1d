#include "simulator/appliance.h"

#include <utility>

namespace quillkit {

void Appliance::Reset() {
  Appliance fresh;
  fresh.isInitialised = isInitialised;
  fresh.stateFile = std::move(stateFile);
  fresh.journalFile = std::move(journalFile);
  *this = std::move(fresh);
}

}  // namespace quillkit
