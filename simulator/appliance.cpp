#include "simulator/appliance.h"

#include <utility>

namespace quillkit {

void Appliance::Reset() {
  const bool wasInitialised = isInitialised;
  *this = Appliance();
  isInitialised = wasInitialised;
}

Appliance& TheAppliance() {
  static Appliance appliance = [] {
    Appliance seeded;
    Seed(seeded);
    return seeded;
  }();
  return appliance;
}

}  // namespace quillkit
