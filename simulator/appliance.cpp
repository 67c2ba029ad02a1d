#include "simulator/appliance.h"

#include <utility>

namespace quillbox {

void Appliance::Reset() {
  Appliance fresh;
  fresh.isInitialised = isInitialised;
  fresh.stateFile = std::move(stateFile);
  fresh.journalFile = std::move(journalFile);
  *this = std::move(fresh);
}

}  // namespace quillbox
